#include "aluframe/picture/view.h"

#include <algorithm>
#include <array>

#include "aluframe/texts/text.h"

namespace aluframe::picture {

namespace {

// Of 25°, by which the frame is turned and tilted.
constexpr double c25 = 0.9063077870366499, s25 = 0.42261826174069944;

}  // namespace

constexpr View View::iso{{c25, s25, 0}, {-s25 * s25, c25* s25, c25}};
constexpr View View::xy{{1, 0, 0}, {0, 1, 0}};
constexpr View View::xz{{1, 0, 0}, {0, 0, 1}};
constexpr View View::yz{{0, 1, 0}, {0, 0, 1}};

namespace {

struct Named {
  View view;
  std::string_view name, heading;
};

const std::array<Named, 4> views{{{View::iso, "iso", texts::translatable("axonometric view")},
                                  {View::xy, "xy", texts::translatable("plan (XY)")},
                                  {View::xz, "xz", texts::translatable("view along Y (XZ)")},
                                  {View::yz, "yz", texts::translatable("view against X (YZ)")}}};

/// Null for a view without a name.
const Named* row_of(const View& view) {
  const auto* const found = std::ranges::find(views, view, &Named::view);
  return found == views.end() ? nullptr : found;
}

/// Whether all nodes have one coordinate in common.
template <class Coordinate>
bool is_flat(const model::Model& model, Coordinate of) {
  return std::ranges::all_of(
      model.nodes, [&](const model::Node& node) { return of(node) == of(model.nodes[0]); });
}

}  // namespace

std::optional<View> parse_view(std::string_view name) {
  const auto* const found = std::ranges::find(views, name, &Named::name);
  return found == views.end() ? std::nullopt : std::optional(found->view);
}

std::string_view name_of(const View& view) {
  const Named* row = row_of(view);
  return row == nullptr ? "" : row->name;
}

std::string_view view_names() {
  return "iso, xy, xz, yz";
}

std::string_view heading_of(const View& view) {
  const Named* row = row_of(view);
  return row == nullptr ? "" : texts::translation_of(row->heading);
}

Point2 project(const View& view, const Point3& point) {
  return {dot(view.right, point), dot(view.up, point)};
}

Point3 towards_eye(const View& view) {
  return cross(view.right, view.up);
}

bool is_end_on(const View& view, const Point3& unit_direction) {
  return length_of(project(view, unit_direction)) < end_on;
}

View natural_view(const model::Model& model) {
  if (is_flat(model, [](const model::Node& node) { return node.y; })) return View::xz;
  if (is_flat(model, [](const model::Node& node) { return node.x; })) return View::yz;
  if (is_flat(model, [](const model::Node& node) { return node.z; })) return View::xy;
  return View::iso;
}

}  // namespace aluframe::picture

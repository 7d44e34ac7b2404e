#include "aluframe/picture/view.h"

#include <algorithm>
#include <array>
#include <numbers>

#include "aluframe/texts/text.h"

namespace aluframe::picture {

namespace {

struct Named {
  View view;
  std::string_view name, heading;
};

constexpr std::array<Named, 4> views{
    {{View::iso, "iso", texts::translatable("axonometric view")},
     {View::xy, "xy", texts::translatable("plan (XY)")},
     {View::xz, "xz", texts::translatable("view along Y (XZ)")},
     {View::yz, "yz", texts::translatable("view against X (YZ)")}}};

const Named& row_of(View view) {
  return views[static_cast<std::size_t>(view)];
}

constexpr double degree = std::numbers::pi / 180.0;
constexpr double turn = 25.0 * degree, tilt = 25.0 * degree;

/// The directions of the paper in the model.
struct Paper {
  Point3 right, up;
};

Paper paper_of(View view) {
  switch (view) {
    case View::xy:
      return {{1, 0, 0}, {0, 1, 0}};
    case View::xz:
      return {{1, 0, 0}, {0, 0, 1}};
    case View::yz:
      return {{0, 1, 0}, {0, 0, 1}};
    case View::iso:
      break;
  }
  const double s = std::sin(turn), c = std::cos(turn);
  return {{c, s, 0}, {-s * std::sin(tilt), c * std::sin(tilt), std::cos(tilt)}};
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

std::string_view name_of(View view) {
  return row_of(view).name;
}

std::string_view view_names() {
  return "iso, xy, xz, yz";
}

std::string_view heading_of(View view) {
  return texts::translation_of(row_of(view).heading);
}

Point2 project(View view, const Point3& point) {
  const Paper paper = paper_of(view);
  return {dot(paper.right, point), dot(paper.up, point)};
}

Point3 towards_eye(View view) {
  const auto [a, b] = paper_of(view);
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

bool is_end_on(View view, const Point3& unit_direction) {
  return length_of(project(view, unit_direction)) < end_on;
}

View natural_view(const model::Model& model) {
  if (is_flat(model, [](const model::Node& node) { return node.y; })) return View::xz;
  if (is_flat(model, [](const model::Node& node) { return node.x; })) return View::yz;
  if (is_flat(model, [](const model::Node& node) { return node.z; })) return View::xy;
  return View::iso;
}

}  // namespace aluframe::picture

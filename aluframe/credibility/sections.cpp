#include <fmt/format.h>

#include <limits>
#include <string_view>

#include "aluframe/credibility/kinds.h"
#include "aluframe/model/section.h"
#include "aluframe/model/units.h"
#include "aluframe/section/section_properties.h"
#include "aluframe/texts/text.h"

namespace aluframe::credibility {

namespace {

/// Bounds hold for the outermost fibres; stress points need not be those, and given values are
/// rounded. A wrong unit is off by a hundred times and more.
constexpr double room = 4.0;

struct Plate {
  const model::Section* section = nullptr;
  std::string_view name;
  double thickness = 0.0;
};

/// The first plate of the sections in use that is outside of what is usual.
template <class IsOdd>
std::optional<Plate> odd_plate(const model::Model& model, IsOdd is_odd) {
  for (const model::Section& section : model.sections) {
    const auto names = model::dimension_names(section.shape);
    for (std::size_t i = 0; i < names.size(); ++i) {
      if (!names[i].starts_with('t') || !is_odd(section.dimensions[i])) continue;
      return Plate{&section, names[i], section.dimensions[i]};
    }
  }
  return std::nullopt;
}

constexpr const char* odd_thickness = texts::translatable(
    "/sections/{}: {} of section {} is {:.4g} mm, walls of aluminium sections have 0.1 to 100 mm: "
    "are its dimensions in another unit than \"{}\"?");

std::optional<Doubt> doubt_about(const model::Model& model, const std::optional<Plate>& plate) {
  if (!plate) return std::nullopt;
  const model::Number number = plate->section->number;
  return elements_of_section(model, number)
      .doubt(fmt::format(fmt::runtime(odd_thickness), model.sections.position(number), plate->name,
                         number, plate->thickness, model::name_of(model.units.section)));
}

struct Axis {
  const char* name;
  double inertia;  ///< mm⁴
  double least, most;
};

/// Both moments of inertia with their bounds; none where the points do not enclose the centroid.
std::array<Axis, 2> axes_of(const model::SectionProperties& of) {
  const auto [left, right] = std::ranges::minmax(of.point_y);
  const auto [below, above] = std::ranges::minmax(of.point_z);
  return {{{"Iyy", of.iyy, smallest_inertia(of.area, right - left),
            largest_inertia(of.area, above, -below)},
           {"Izz", of.izz, smallest_inertia(of.area, above - below),
            largest_inertia(of.area, right, -left)}}};
}

bool has_own_values(const model::Section& section) {
  const model::GivenProperties& given = section.given;
  return given.area || given.iyy || given.izz || given.point_y || given.point_z;
}

constexpr const char* odd_inertia = texts::translatable(
    "/sections/{}/properties: section {} has {} = {:.4g} mm⁴ with an area of {:.4g} mm², a section "
    "between its stress points has {:.3g} to {:.3g}: is one of them in another unit than \"{}\"?");

}  // namespace

double largest_inertia(double area, double above, double below) {
  return area * above * below;
}

double smallest_inertia(double area, double width) {
  if (width == 0.0) return std::numeric_limits<double>::infinity();
  return area * area * area / (12.0 * width * width);
}

std::optional<Doubt> thick_plates(const model::Model& model) {
  return doubt_about(model, odd_plate(model, [](double t) { return t > thickest_plate; }));
}

std::optional<Doubt> thin_plates(const model::Model& model) {
  return doubt_about(model,
                     odd_plate(model, [](double t) { return t > 0.0 && t < thinnest_plate; }));
}

std::optional<Doubt> inertia_beyond_area(const model::Model& model) {
  for (const model::Section& section : model.sections) {
    if (!has_own_values(section)) continue;
    const model::SectionProperties properties = section::properties_of(section);
    for (const Axis& axis : axes_of(properties)) {
      // A point on one side alone says nothing of how far the section reaches to the other.
      const bool too_large = axis.most > 0.0 && axis.inertia > room * axis.most;
      const bool too_small = std::isfinite(axis.least) && room * axis.inertia < axis.least;
      if (!too_large && !too_small) continue;
      return elements_of_section(model, section.number)
          .doubt(fmt::format(fmt::runtime(odd_inertia), model.sections.position(section.number),
                             section.number, axis.name, axis.inertia, properties.area, axis.least,
                             axis.most, model::name_of(model.units.section)));
    }
  }
  return std::nullopt;
}

}  // namespace aluframe::credibility

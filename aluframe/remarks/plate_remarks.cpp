#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <vector>

#include "aluframe/remarks/concerned.h"
#include "aluframe/remarks/kinds.h"
#include "aluframe/remarks/plate_limits.h"
#include "aluframe/texts/text.h"

namespace aluframe::remarks {

namespace {

/// Buckling coefficient in pure bending over that in uniform compression, 23.88 over 4.
constexpr double bending_factor = 5.97;
/// Width over thickness of a web, as a factor of √(240/f0.2), above which its shear buckling
/// deserves a look: a judgement, not a rule of the code.
constexpr double slender_in_shear = 60.0;

struct Plate {
  std::string_view name;
  PlateEdges edges;
  double slenderness;  ///< width over thickness
};

// Dimensions in the order of model::dimension_names.

std::vector<Plate> of_tee(const std::array<double, 8>& d) {
  const double H = d[0], B = d[1], tw = d[2], tf = d[3];
  return {{texts::translatable("flange"), PlateEdges::one_held, (B - tw) / 2.0 / tf},
          {texts::translatable("stem"), PlateEdges::one_held, (H - tf) / tw}};
}

std::vector<Plate> of_double_channel(const std::array<double, 8>& d) {
  const double H = d[0], B = d[1], tw = d[2], tf = d[3];
  return {{texts::translatable("flange"), PlateEdges::one_held, (B - tw) / tf},
          {texts::translatable("web"), PlateEdges::both_held, (H - 2.0 * tf) / tw}};
}

/// Width over thickness of the web of a C, H or B.
double web_slenderness(const model::Section& section) {
  const auto& d = section.dimensions;
  const bool box = section.shape == model::Shape::box;
  const double H = d[0], tw = d[2], tf1 = d[3], tf2 = d[5], r1 = box ? 0.0 : d[6];
  return (H - tf1 - tf2 - 2.0 * r1) / tw;
}

/// The plates that the checks do not judge for local buckling.
std::vector<Plate> unjudged(const model::Section& section) {
  const auto& d = section.dimensions;
  switch (section.shape) {
    case model::Shape::tee:
      return of_tee(d);
    case model::Shape::double_channel:
      return of_double_channel(d);
    case model::Shape::channel:
      return {{texts::translatable("web"), PlateEdges::both_held, web_slenderness(section)}};
    case model::Shape::pipe:
      return {{texts::translatable("wall"), PlateEdges::round, d[0] / d[1]}};
    default:
      return {};
  }
}

struct Worst {
  std::string_view plate;
  double ratio = 0.0;  ///< width over thickness over its limit
};

Worst worst_unjudged(const model::Section& section, const model::Material& material) {
  Worst worst;
  for (const Plate& plate : unjudged(section)) {
    const double ratio = plate.slenderness / plate_limit(plate.edges, section, material);
    if (ratio > worst.ratio) worst = {.plate = plate.name, .ratio = ratio};
  }
  return worst;
}

/// Whether the section has a web that counts in full in bending however slender it is.
bool has_unreduced_web(const model::Section& section) {
  return section.shape == model::Shape::h_section || section.shape == model::Shape::box;
}

/// What is said of shear beside slender webs; which elements, when they are not those of `bent`.
std::string shear_text(const Concerned& sheared, const Concerned& bent) {
  if (sheared.empty()) return {};
  if (sheared.named() == bent.named()) {
    return fmt::format(
        texts::translatable("; at h/t up to {:.3g} look at shear buckling too, which "
                            "no check does"),
        sheared.worst_value());
  }
  return fmt::format(texts::translatable("; at h/t up to {:.3g} ({}) look at shear buckling too, "
                                         "which no check does"),
                     sheared.worst_value(), sheared.named());
}

}  // namespace

std::optional<Remark> unjudged_plates(Subject& subject) {
  const model::Model& model = subject.model;
  Concerned concerned;
  for (const model::Element& element : model.elements) {
    const double ratio = worst_unjudged(*model.sections.find(element.section),
                                        *model.materials.find(element.material))
                             .ratio;
    if (ratio > 1.0) concerned.add(element, ratio);
  }
  if (concerned.empty()) return std::nullopt;
  const model::Section& section = *model.sections.find(concerned.worst().section);
  const model::Material& material = *model.materials.find(concerned.worst().material);
  Remark remark = about_section(
      concerned, "B12",
      fmt::format(
          texts::translatable(
              "slender plates count in full because no check judges their shape: the {} of {} "
              "has {:.3g} times its limit in compression; judge local buckling of them by hand "
              "where they are compressed"),
          worst_unjudged(section, material).plate, named(section), concerned.worst_value()));
  remark.value = concerned.worst_value();
  return remark;
}

std::optional<Remark> slender_webs(Subject& subject) {
  const model::Model& model = subject.model;
  Concerned bent, sheared;
  for (const model::Element& element : model.elements) {
    const model::Section& section = *model.sections.find(element.section);
    if (element.kind == model::ElementKind::truss || !has_unreduced_web(section)) continue;
    const model::Material& material = *model.materials.find(element.material);
    const double slenderness = web_slenderness(section);
    const double ratio = slenderness / (plate_limit(PlateEdges::both_held, section, material) *
                                        std::sqrt(bending_factor));
    if (ratio > 1.0) bent.add(element, ratio);
    if (slenderness > slender_in_shear * strength_factor(section, material)) {
      sheared.add(element, slenderness);
    }
  }
  if (bent.empty()) return std::nullopt;
  Remark remark = about_section(
      bent, "B2",
      fmt::format(
          texts::translatable(
              "slender webs count in full in bending: the web of {} has {:.3g} times its limit "
              "there; check bending by hand with an effective web{}"),
          named(*model.sections.find(bent.worst().section)), bent.worst_value(),
          shear_text(sheared, bent)));
  remark.value = bent.worst_value();
  return remark;
}

}  // namespace aluframe::remarks

#include <cmath>

#include "aluframe/catalogue/alloys.h"

#include <fmt/format.h>
#include "aluframe/remarks/concerned.h"
#include "aluframe/remarks/kinds.h"
#include "aluframe/remarks/weld_strips.h"
#include "aluframe/texts/text.h"

namespace aluframe::remarks {

namespace {

/// Share by which an area must exceed the gross one: what sums of plates differ by from a
/// catalogue's area of the same section, corners and rounding included.
constexpr double area_tolerance = 0.02;

const model::Section& section_of(const model::Model& model, const model::Element& element) {
  return *model.sections.find(element.section);
}

bool strips_fit(const model::Model& model, const model::Element& element) {
  return EffectiveAreas::strip_width(element) <= widest_strip(section_of(model, element));
}

std::string area_text(const EffectiveAreas::Answer& areas) {
  return fmt::format(texts::translatable("the checks count {:.4g} mm² of {:.4g} mm² gross"),
                     areas.effective, areas.gross);
}

bool is_checked(const model::Section& section) {
  return section.shape != model::Shape::other;
}

}  // namespace

std::optional<Remark> wide_strips(Subject& subject) {
  const model::Model& model = subject.model;
  EffectiveAreas& areas = subject.areas;
  Concerned concerned;
  for (const model::Element& element : model.elements) {
    if (!section_of(model, element).welded || strips_fit(model, element)) continue;
    const EffectiveAreas::Answer& of = areas.of(element);
    concerned.add(element, of.effective / of.gross);
  }
  if (concerned.empty()) return std::nullopt;
  const model::Element& worst = concerned.worst();
  const model::Section& section = section_of(model, worst);
  Remark remark = about_section(
      concerned, "W1",
      fmt::format(
          texts::translatable(
              "heat-affected strips are wider than the plates have room for: in {} strips of "
              "{:.4g} mm where {:.4g} mm fit beside each weld, {}, so stresses come out too "
              "low; give `haz_width` no more than fits"),
          named(section), EffectiveAreas::strip_width(worst), std::max(widest_strip(section), 0.0),
          area_text(areas.of(worst))));
  remark.value = concerned.worst_value();
  return remark;
}

std::optional<Remark> area_above_gross(Subject& subject) {
  const model::Model& model = subject.model;
  EffectiveAreas& areas = subject.areas;
  Concerned concerned;
  for (const model::Element& element : model.elements) {
    const model::Section& section = section_of(model, element);
    if (!section.welded || !is_checked(section) || !strips_fit(model, element)) continue;
    const EffectiveAreas::Answer& of = areas.of(element);
    if (of.effective > (1.0 + area_tolerance) * of.gross) {
      concerned.add(element, of.effective / of.gross);
    }
  }
  if (concerned.empty()) return std::nullopt;
  const model::Element& worst = concerned.worst();
  Remark remark = about_section(
      concerned, "W5",
      fmt::format(texts::translatable(
                      "welded sections count with more than their gross area: of {} the checks "
                      "count {:.4g} mm² of {:.4g} mm² gross, so axial stresses come out too low; "
                      "check tension and compression by hand with the strips taken off"),
                  named(section_of(model, worst)), areas.of(worst).effective,
                  areas.of(worst).gross));
  remark.value = concerned.worst_value();
  return remark;
}

std::optional<Remark> welds_without_loss(Subject& subject) {
  const model::Model& model = subject.model;
  Concerned concerned;
  for (const model::Element& element : model.elements) {
    const model::Section& section = section_of(model, element);
    if (!section.welded || !is_checked(section)) continue;
    if (model.materials.find(element.material)->standard == catalogue::alloy_standard) continue;
    concerned.add(element);
  }
  if (concerned.empty()) return std::nullopt;
  const model::Material& material = *model.materials.find(concerned.worst().material);
  return about_section(
      concerned, "F8",
      fmt::format(
          texts::translatable(
              "welds take nothing off materials of another standard than {} (such as material "
              "{} of standard \"{}\"): the metal beside a weld is softer in every "
              "tempered alloy; name the alloy of the code, or give the strengths of the "
              "welded metal"),
          catalogue::alloy_standard, material.number, material.standard));
}

std::optional<Remark> assumed_ribs(Subject& subject) {
  const model::Model& model = subject.model;
  EffectiveAreas& areas = subject.areas;
  Concerned concerned;
  for (const model::Element& element : model.elements) {
    const bool stiffened = model.design.value_or(model::DesignSettings{}).rib;
    if (!is_checked(section_of(model, element)) || element.design.rib || !stiffened) continue;
    const double without = areas.with_ribs(element, false).slenderness;
    if (without > 1.0 && areas.of(element).slenderness <= 1.0) concerned.add(element, without);
  }
  if (concerned.empty()) return std::nullopt;
  Remark remark = about_section(
      concerned, "B11",
      fmt::format(
          texts::translatable(
              "plates count in full only because they are taken as stiffened by ribs: "
              "without, a plate of {} has {:.3g} times its limit in compression; where there "
              "are no ribs set `rib` to false, for all in the settings or in the element's "
              "design"),
          named(section_of(model, concerned.worst())), concerned.worst_value()));
  remark.value = concerned.worst_value();
  return remark;
}

}  // namespace aluframe::remarks

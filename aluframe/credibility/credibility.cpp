#include "aluframe/credibility/credibility.h"

#include <fmt/format.h>

#include <array>
#include <numbers>
#include <utility>

#include "aluframe/credibility/kinds.h"
#include "aluframe/model/members.h"
#include "aluframe/model/units.h"
#include "aluframe/texts/text.h"

namespace aluframe::credibility {

namespace {

/// A member's length, or that of an element without one.
struct Span {
  model::Number element = 0;  ///< its first
  double length = 0.0;        ///< mm
};

std::vector<Span> spans_of(const model::Model& model) {
  std::vector<Span> spans;
  const model::Connectivity connectivity(model);
  const auto length_of = [&](model::Number element) {
    return model::element_length(model, *model.elements.find(element));
  };
  for (const model::Member& member : model.members) {
    Span span{member.elements.front(), 0.0};
    for (const model::Number element : member.elements) span.length += length_of(element);
    spans.push_back(span);
  }
  for (const model::Element& element : model.elements) {
    if (connectivity.member_of(element.number) != nullptr) continue;
    spans.push_back({element.number, model::element_length(model, element)});
  }
  return spans;
}

std::optional<Doubt> short_spans(const model::Model& model) {
  Concerned concerned;
  for (const Span& span : spans_of(model)) {
    if (span.length < shortest_span) concerned.add(span.element, shortest_span / span.length);
  }
  if (!concerned.worst) return std::nullopt;
  const std::string text = fmt::format(
      texts::translatable("/elements/{}: a span of {:.4g} mm begins with element {}, usual are 100 "
                          "mm to 500 m: are coordinates in a larger unit than \"{}\"?"),
      model.elements.position(*concerned.worst), shortest_span / concerned.worst_value,
      *concerned.worst, model::name_of(model.units.length));
  return concerned.doubt(text);
}

std::optional<Doubt> long_spans(const model::Model& model) {
  Concerned concerned;
  for (const Span& span : spans_of(model)) {
    if (span.length > longest_span) concerned.add(span.element, span.length);
  }
  if (!concerned.worst) return std::nullopt;
  const std::string text = fmt::format(
      texts::translatable("/elements/{}: a span of {:.4g} m begins with element {}, usual are 100 "
                          "mm to 500 m: are coordinates in a smaller unit than \"{}\"?"),
      model.elements.position(*concerned.worst), concerned.worst_value / 1000.0, *concerned.worst,
      model::name_of(model.units.length));
  return concerned.doubt(text);
}

/// An angle that is a round part of a turn in radians, as it is written with three digits or more.
bool looks_like_radians(double beta) {
  constexpr double rounding = 1e-3;
  constexpr std::array<double, 4> parts{1.0 / 6, 1.0 / 4, 1.0 / 3, 1.0 / 2};  // of π
  for (int half_turns = 0; half_turns < 2; ++half_turns) {
    for (const double part : parts) {
      for (const double turn : {half_turns + part, half_turns + 1 - part, half_turns + 1.0}) {
        if (std::abs(std::abs(beta) - turn * std::numbers::pi) < rounding) return true;
      }
    }
  }
  return false;
}

std::optional<Doubt> beta_in_radians(const model::Model& model) {
  Concerned concerned;
  for (const model::Element& element : model.elements) {
    if (looks_like_radians(element.beta)) concerned.add(element.number, 1.0);
  }
  if (!concerned.worst) return std::nullopt;
  const double beta = model.elements.find(*concerned.worst)->beta;
  return concerned.doubt(fmt::format(
      texts::translatable("/elements/{}/beta: element {} is turned by {:.6g}°, a round angle if it "
                          "were in radians ({:.0f}°): beta is in degrees"),
      model.elements.position(*concerned.worst), *concerned.worst, beta,
      beta * 180.0 / std::numbers::pi));
}

/// The elements of a material whose value is outside of what metals have.
template <class Value>
Concerned elements_outside(const model::Model& model, Value value, double least, double most) {
  Concerned concerned;
  for (const model::Element& element : model.elements) {
    const double found = value(*model.materials.find(element.material));
    if (!(found >= least && found <= most)) {
      concerned.add(element.number, std::max(least / found, found / most));
    }
  }
  return concerned;
}

std::optional<Doubt> odd_moduli(const model::Model& model) {
  Concerned concerned = elements_outside(
      model, [](const model::Material& material) { return material.e; }, softest_metal,
      stiffest_metal);
  if (!concerned.worst) return std::nullopt;
  const model::Number number = model.elements.find(*concerned.worst)->material;
  return concerned.doubt(fmt::format(
      texts::translatable("/materials/{}/e: material {} has E = {:.4g} N/mm², metals have 10000 to "
                          "500000 (aluminium 70000): is it in another unit?"),
      model.materials.position(number), number, model.materials.find(number)->e));
}

std::optional<Doubt> odd_densities(const model::Model& model) {
  Concerned concerned;
  for (const model::Element& element : model.elements) {
    const double density = model.materials.find(element.material)->density;
    if (density == 0.0) continue;  // without weight, on purpose
    if (density < lightest_metal || density > heaviest_metal) {
      concerned.add(element.number, std::max(lightest_metal / density, density / heaviest_metal));
    }
  }
  if (!concerned.worst) return std::nullopt;
  const model::Number number = model.elements.find(*concerned.worst)->material;
  return concerned.doubt(fmt::format(
      texts::translatable("/materials/{}/density: material {} has {:.4g} kg/mm³, metals have 1e-6 "
                          "to 2.5e-5 (aluminium 2.7e-6): is it in kg/m³?"),
      model.materials.position(number), number, model.materials.find(number)->density));
}

}  // namespace

Concerned elements_of_section(const model::Model& model, model::Number section) {
  Concerned concerned;
  for (const model::Element& element : model.elements) {
    if (element.section == section) concerned.add(element.number, 1.0);
  }
  return concerned;
}

std::vector<Doubt> doubts(const model::Model& model) {
  constexpr std::optional<Doubt> (*kinds[])(const model::Model&) = {
      short_spans,     long_spans, thick_plates,  thin_plates,        inertia_beyond_area,
      beta_in_radians, odd_moduli, odd_densities, overwhelming_forces};
  std::vector<Doubt> found;
  for (const auto kind : kinds) {
    if (auto doubt = kind(model)) found.push_back(std::move(*doubt));
  }
  return found;
}

}  // namespace aluframe::credibility

#include "aluframe/explain/effective_area.h"

#include <fmt/format.h>

#include <string>

#include "aluframe/explain/haz_plates.h"
#include "aluframe/explain/inputs.h"
#include "aluframe/explain/plate_parts.h"
#include "aluframe/explain/plates.h"
#include "tz_alu/engine/effective_section.h"
#include "tz_alu/engine/local_buckling.h"

namespace aluframe::explain {

namespace engine = alu_engine;
using engine::REDUCED_PART;

namespace {

/// Formulas of the section and what is odd about them.
struct Formulas {
  Term area;
  Term inertia;
  std::string area_note = {};
  std::string inertia_note = {};
};

// Not welded: what the plates lose is taken off.

Term lost_thickness(Derivation& d) {
  return d.trace.part({"δ", translatable("part of the thickness that is lost"), "", "5.3"},
                      1.0 - effective_thickness(d));
}

Formulas all_plates_reduced(Derivation& d) {
  const Term delta = lost_thickness(d);
  const Term H = dimension(d, Dimension::depth), tw = dimension(d, Dimension::web);
  const Term B1 = dimension(d, Dimension::top_width), tf1 = dimension(d, Dimension::top_thickness);
  const Term B2 = dimension(d, Dimension::bottom_width);
  const Term tf2 = dimension(d, Dimension::bottom_thickness);
  const double webs = is_box(d) ? 2.0 : 1.0;
  const Term hw = d.trace.part({"hw", translatable("height of the web"), "mm"}, H - tf1 - tf2);
  const Term top = d.trace.part(
      {"ΔA1", translatable("area that the top flange loses"), "mm²", "5.3"}, delta * tf1 * B1);
  const Term bottom = d.trace.part(
      {"ΔA2", translatable("area that the bottom flange loses"), "mm²", "5.3"}, delta * tf2 * B2);
  const Term web = is_box(d) ? 2.0 * delta * tw * hw : delta * tw * hw;
  return {gross_area(d) - top - bottom - web,
          inertia_y(d) - B1 * cubed(delta * tf1) / 12.0 - B2 * cubed(delta * tf2) / 12.0 -
              top * squared(magnitude(top_fibre(d)) - tf1 / 2.0) -
              bottom * squared(magnitude(bottom_fibre(d)) - tf2 / 2.0) -
              cubed(delta * tw) * hw / (12.0 / Term::number(webs)),
          translatable("axial compression alone: every plate loses thickness")};
}

Formulas top_flange_reduced(Derivation& d) {
  const Term tf1 = dimension(d, Dimension::top_thickness);
  const Term lost =
      d.trace.part({"ΔA1", translatable("area that the top flange loses"), "mm²", "5.3"},
                   dimension(d, Dimension::top_width) * lost_thickness(d) * tf1);
  return {gross_area(d) - lost, inertia_y(d) - lost * squared(top_fibre(d) - tf1 / 2.0),
          translatable("My is positive: the top flange alone loses thickness"),
          translatable("z1 with its sign")};
}

Formulas bottom_flange_reduced(Derivation& d) {
  const Term tf2 = dimension(d, Dimension::bottom_thickness);
  const Term lost =
      d.trace.part({"ΔA2", translatable("area that the bottom flange loses"), "mm²", "5.3"},
                   dimension(d, Dimension::bottom_width) * lost_thickness(d) * tf2);
  return {gross_area(d) - lost,
          inertia_y(d) - lost * squared(magnitude(bottom_fibre(d)) - tf2 / 2.0),
          translatable("My is not positive: the bottom flange alone loses thickness")};
}

Formulas unwelded(Derivation& d, REDUCED_PART part) {
  switch (part) {
    case REDUCED_PART::WholeSection:
      return all_plates_reduced(d);
    case REDUCED_PART::TopFlange:
      return top_flange_reduced(d);
    default:
      return bottom_flange_reduced(d);
  }
}

// Welded: built up from the plates; the strips keep ρhaz.

/// The term with the factor ρ, where it has one.
Term scaled(const Term& factor, bool is_reduced, const Term& term) {
  return is_reduced ? factor * term : term;
}

struct Reduced {
  bool top;
  bool bottom;
  bool web;
};

Term clear_inertia(const FlangeTerms& flange, const Term& t) {
  return flange.clear * t * squared(flange.arm) + flange.clear * cubed(t) / 12.0;
}

Term strip_transfer(Derivation& d, const FlangeTerms& flange) {
  return flange.strip * haz_factor(d) * flange.thickness * squared(flange.arm);
}

Term strip_own(Derivation& d, const FlangeTerms& flange) {
  return flange.strip * cubed(haz_factor(d) * flange.thickness) / 12.0;
}

Term flange_inertia(Derivation& d, const FlangeTerms& flange, bool top, bool is_reduced) {
  const Term t = scaled(effective_thickness(d), is_reduced, flange.thickness);
  return d.trace.part(
      {top ? "If1" : "If2",
       top ? translatable("inertia of the top flange")
           : translatable("inertia of the bottom flange"),
       "mm⁴", translatable("chapter 5"), is_reduced ? translatable("its clear part with ρ·t") : ""},
      clear_inertia(flange, t) + strip_transfer(d, flange) + strip_own(d, flange));
}

Term web_inertia(Derivation& d, const PlateTerms& plates, bool is_reduced) {
  return d.trace.part({"Iw", translatable("inertia of the webs"), "mm⁴", translatable("chapter 5"),
                       is_reduced ? translatable("their clear part with ρ·t") : ""},
                      scaled(effective_thickness(d), is_reduced, plates.web) *
                              cubed(plates.web_height) / (12.0 / Term::number(plates.webs)) +
                          web_strip_inertia(d, plates));
}

Term web_strip_area(Derivation& d, const PlateTerms& plates) {
  return Term::number(2.0 * plates.webs) * haz_width(d) * plates.web * haz_factor(d);
}

Term built_area(Derivation& d, const PlateTerms& plates, const Reduced& is) {
  const Term rho = effective_thickness(d);
  const auto& top = plates.top;
  const auto& bottom = plates.bottom;
  const Term webs = plates.webs == 1 ? scaled(rho, is.web, plates.web_height)
                    : is.web         ? Term::number(plates.webs) * rho * plates.web_height
                                     : Term::number(plates.webs) * plates.web_height;
  return scaled(rho, is.top, top.clear) * top.thickness +
         top.strip * (top.thickness + bottom.thickness) * haz_factor(d) +
         scaled(rho, is.bottom, bottom.clear) * bottom.thickness + web_strip_area(d, plates) +
         webs * plates.web;
}

Formulas built(Derivation& d, const PlateTerms& plates, const Reduced& is, const char* note) {
  return {built_area(d, plates, is),
          flange_inertia(d, plates.top, true, is.top) +
              flange_inertia(d, plates.bottom, false, is.bottom) + web_inertia(d, plates, is.web),
          note};
}

Formulas welded_h_bottom(Derivation& d, const PlateTerms& plates) {
  const Term rho = effective_thickness(d);
  const Term haz = haz_factor(d), B2 = dimension(d, Dimension::bottom_width);
  const auto& top = plates.top;
  const auto& bottom = plates.bottom;
  const Term If1 = d.trace.part(
      {"If1", translatable("inertia of the top flange"), "mm⁴", translatable("chapter 5"),
       translatable("ρ acts on its own inertia alone (W3)")},
      top.clear * top.thickness * squared(top.arm) + top.clear * cubed(rho * top.thickness) / 12.0 +
          strip_transfer(d, top) + strip_own(d, top));
  const Term If2 = d.trace.part(
      {"If2", translatable("inertia of the bottom flange"), "mm⁴", translatable("chapter 5"),
       translatable("it counts in full (W3)")},
      B2 * bottom.thickness * squared(bottom.arm) + B2 * cubed(bottom.thickness) / 12.0);
  return {top.clear * top.thickness + top.strip * top.thickness * haz + B2 * bottom.thickness +
              web_strip_area(d, plates) + plates.web_height * plates.web,
          If1 + If2 + web_inertia(d, plates, false),
          translatable("My is not positive: the bottom flange of a welded H counts in full (W3)")};
}

Term bottom_reduced_inertia(Derivation& d, const PlateTerms& plates) {
  const auto& bottom = plates.bottom;
  const Term thin = effective_thickness(d) * bottom.thickness;
  const Term If2 = d.trace.part(
      {"If2", translatable("inertia of the bottom flange"), "mm⁴", translatable("chapter 5"),
       translatable("its clear part with ρ·t; the strip's own inertia takes the square of its "
                    "thickness (W4)")},
      clear_inertia(bottom, thin) + strip_transfer(d, bottom) +
          bottom.strip * squared(haz_factor(d) * bottom.thickness) / 12.0);
  return flange_inertia(d, plates.top, true, false) + If2 + web_inertia(d, plates, false);
}

Formulas welded_bottom(Derivation& d, const PlateTerms& plates) {
  if (d.shape() == ALU_SHAPE_H) return welded_h_bottom(d, plates);
  const std::string note =
      translatable("My is not positive: the bottom flange alone loses thickness");
  const Term inertia = bottom_reduced_inertia(d, plates);
  if (!is_box(d)) return {built_area(d, plates, {false, true, false}), inertia, note};
  const auto& top = plates.top;
  const auto& bottom = plates.bottom;
  const Term haz = haz_factor(d), b = haz_width(d);
  return {top.clear * top.thickness + (top.thickness + bottom.thickness) * haz * (b + plates.web) +
              effective_thickness(d) * bottom.clear * bottom.thickness +
              2.0 * b * plates.web * haz + plates.web_height * plates.web,
          inertia, fmt::format(translatable("{}; half the strips and one web count (W4)"), note)};
}

Formulas welded(Derivation& d, REDUCED_PART part) {
  const PlateTerms plates = haz_plates(d);
  switch (part) {
    case REDUCED_PART::WholeSection:
      return built(d, plates, {true, true, true},
                   translatable("axial compression alone: every clear part counts with ρ·t"));
    case REDUCED_PART::TopFlange:
      return built(
          d, plates, {true, false, false},
          translatable("My is positive: the clear part of the top flange counts with ρ·t"));
    default:
      return welded_bottom(d, plates);
  }
}

engine::AREA_AND_INERTIA value_of(const Derivation& d, REDUCED_PART part, double rho) {
  const engine::HAZ haz{d.in.Parameters().dHazWidth, d.material.HazFactor()};
  return d.is_welded() ? engine::WeldedEffectiveArea(d.in.Section(), haz, part, rho)
                       : engine::UnweldedEffectiveArea(d.in.Section(), part, rho);
}

void derive(Derivation& d) {
  const REDUCED_PART part = engine::ReducedPart(d.in.force);
  const double rho = effective_thickness(d).own_value();
  const Formulas formulas = d.is_welded() ? welded(d, part) : unwelded(d, part);
  const engine::AREA_AND_INERTIA value = value_of(d, part, rho);
  d.trace.define({"Ae", translatable("effective area"), "mm²", "5.3", formulas.area_note},
                 value.dArea, formulas.area);
  d.trace.define({"Ie", translatable("effective second moment of area about y"), "mm⁴", "5.3",
                  formulas.inertia_note},
                 value.dInertia, formulas.inertia);
}

}  // namespace

Term effective_area(Derivation& d) {
  if (d.trace.step("Ae") == nullptr) derive(d);
  return Term::symbol("Ae", d.trace.step("Ae")->value);
}

Term effective_inertia(Derivation& d) {
  if (d.trace.step("Ie") == nullptr) derive(d);
  return Term::symbol("Ie", d.trace.step("Ie")->value);
}

}  // namespace aluframe::explain

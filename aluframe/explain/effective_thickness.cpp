// What slender plates keep of their thickness.

#include <fmt/format.h>

#include <string>
#include <utility>

#include "aluframe/explain/factors.h"
#include "aluframe/explain/inputs.h"
#include "aluframe/explain/plate_parts.h"
#include "aluframe/explain/plates.h"
#include "tz_alu/engine/constants.h"
#include "tz_alu/engine/local_buckling.h"
#include "tz_alu/tolerance.h"

namespace aluframe::explain {

namespace engine = alu_engine;

namespace {

/// A plate that governs, as a formula.
struct GoverningPlate {
  Term width;
  Term thickness;
  std::string why;
};

GoverningPlate one_flange(Derivation& d, Dimension width, Dimension thickness, std::string why) {
  const Term B = dimension(d, width);
  const Term open = B - webs(d);
  if (is_box(d)) return {open, dimension(d, thickness), std::move(why)};
  const Term r1 = dimension(d, Dimension::r1);
  const Term b = is_h(d) ? (open - 2.0 * r1) / 2.0 : open - r1;
  return {b, dimension(d, thickness), std::move(why)};
}

GoverningPlate both_flanges(Derivation& d, bool bottom) {
  const Term B = dimension(d, bottom ? Dimension::top_width : Dimension::bottom_width);
  const Term open = B - webs(d);
  return {is_box(d) ? open : open - dimension(d, Dimension::r1),
          dimension(d, bottom ? Dimension::bottom_thickness : Dimension::top_thickness),
          bottom
              ? translatable(
                    "both flanges are slender: the thickness of the bottom flange is paired with "
                    "the width of the other")
              : translatable(
                    "both flanges are slender: the thickness of the top flange is paired with the "
                    "width of the other")};
}

GoverningPlate plate_in_axial_compression(Derivation& d) {
  const engine::PLATE_RATIOS ratios = ratios_of(d);
  const auto is_slender = [](double ratio) { return ratio - 1.0 > engine::kTolerance; };
  if (is_slender(ratios.dWeb)) {
    const Term between = dimension(d, Dimension::depth) - dimension(d, Dimension::top_thickness) -
                         dimension(d, Dimension::bottom_thickness);
    return {is_box(d) ? between : between - 2.0 * dimension(d, Dimension::r1),
            dimension(d, Dimension::web),
            translatable("axial compression alone: the slender web governs")};
  }
  if (is_slender(ratios.dTop))
    return both_flanges(d, ratios.dBottom - ratios.dTop > engine::kTolerance);
  return one_flange(d, Dimension::bottom_width, Dimension::bottom_thickness,
                    translatable("axial compression alone: the slender bottom flange governs"));
}

GoverningPlate governing_plate(Derivation& d) {
  switch (engine::ReducedPart(d.in.force)) {
    case engine::REDUCED_PART::WholeSection:
      return plate_in_axial_compression(d);
    case engine::REDUCED_PART::TopFlange:
      return one_flange(
          d, Dimension::top_width, Dimension::top_thickness,
          translatable("My is positive: the top flange governs, whichever plate is slender"));
    default:
      return one_flange(
          d, Dimension::bottom_width, Dimension::bottom_thickness,
          translatable(
              "My is not positive: the bottom flange governs, whichever plate is slender"));
  }
}

Term critical_stress(Derivation& d, const engine::GOVERNING_PLATE& plate) {
  const GoverningPlate of = governing_plate(d);
  const Term b =
      d.trace.define({"bp", translatable("width of the governing plate"), "mm", "5.2", of.why},
                     plate.b, of.width, {"R"});
  const Term k =
      d.given({"kp", translatable("buckling coefficient of the governing plate"), "", "5.3",
               plate.k == 4.0 ? translatable("plate between two others")
                              : translatable("outstanding plate")},
              plate.k);
  const Term nu = poisson_ratio(d);
  return d.trace.define(
      {"σcr", translatable("elastic critical stress of the governing plate"), "N/mm²", "5.3"},
      engine::CriticalStress(plate, d.in.E(), nu.own_value()),
      k * elastic_modulus(d) * Term::constant("π²", engine::kPi * engine::kPi) /
          (12.0 * (1.0 - squared(nu)) * squared(b / of.thickness)));
}

/// c1/λ - 0.22·c2/λ², before its bounds.
Term unbounded_thickness(Derivation& d, const Term& lambda) {
  const auto [c1, c2] = engine::ReductionCoefficients(d.is_weak(), d.is_welded(), d.has_ribs());
  const std::string why = plate_conditions(d);
  const Term first =
      d.given({"c1", translatable("coefficient of the effective thickness"), "", "5.3", why}, c1);
  const Term second =
      d.given({"c2", translatable("coefficient of the effective thickness"), "", "5.3", why}, c2);
  return first / lambda - 0.22 * second / squared(lambda);
}

}  // namespace

Term effective_thickness(Derivation& d) {
  return d.trace.once("ρ", [&] {
    const double value = engine::EffectiveThicknessFactor(d.in, ratios_of(d));
    Info info{"ρ", translatable("effective thickness over thickness"), "", "5.3"};
    governing_ratio(d);
    const engine::GOVERNING_PLATE plate = engine::GoverningPlate(d.in, ratios_of(d));
    if (plate.k == 0.0) {
      info.why =
          translatable("1: in axial compression alone a slender top flange takes nothing off");
      return d.trace.given(info, value, {"R"});
    }
    const Term lambda = d.trace.define(
        {"λp", translatable("relative slenderness of the governing plate"), "", "5.3"},
        engine::RelativePlateSlenderness(d.in, plate),
        root(proof_strength(d) / critical_stress(d, plate)));
    Term formula = unbounded_thickness(d, lambda);
    if (engine::IsEffectiveThicknessCapped(d.in)) {
      formula = smaller(1.0 / squared(lambda), formula);
      info.why = translatable("at most 1/λp²: without ribs or in an unsymmetric section");
    }
    const double unbounded = explain::value(formula);
    if (unbounded < engine::kTolerance) {
      formula = greater(formula, Term::number(0.0));
      info.why = info.why.empty() ? translatable("not below 0")
                                  : fmt::format(translatable("{}; not below 0"), info.why);
    } else if (unbounded - 1.0 > engine::kTolerance) {
      formula = smaller(formula, Term::number(1.0));
      info.why = info.why.empty() ? translatable("not above 1")
                                  : fmt::format(translatable("{}; not above 1"), info.why);
    }
    return d.trace.define(info, value, formula);
  });
}

}  // namespace aluframe::explain

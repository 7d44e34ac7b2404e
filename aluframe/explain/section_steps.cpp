#include "aluframe/explain/section_steps.h"

#include <string>
#include <vector>

#include "aluframe/explain/effective_area.h"
#include "aluframe/explain/haz_plates.h"
#include "aluframe/explain/inputs.h"
#include "aluframe/explain/plates.h"
#include "tz_alu/engine/heat_affected_section.h"

namespace aluframe::explain {

namespace {

enum class Kind { gross, heat_affected, effective };

Kind kind_of(const Derivation& d) {
  if (is_effective(d)) return Kind::effective;
  const bool has_strips = d.is_welded() && alu_engine::HasHazPlates(d.shape());
  return has_strips ? Kind::heat_affected : Kind::gross;
}

/// Steps that say which section it is.
std::vector<std::string> reason_steps(Derivation& d) {
  if (!has_judged_plates(d)) return {};
  return {governing_ratio(d).name()};
}

std::string reason_of(const Derivation& d) {
  switch (kind_of(d)) {
    case Kind::effective:
      return d.is_welded() ? translatable("effective section: a plate is slender; welded")
                           : translatable("effective section: a plate is slender");
    case Kind::heat_affected:
      return translatable("heat-affected section: welded");
    default:
      break;
  }
  if (d.is_welded())
    return translatable("gross section: pipes and solid rounds keep it beside a weld");
  return has_judged_plates(d)
             ? translatable("gross section: not welded")
             : translatable("gross section: not welded, plates of this shape are not judged");
}

struct AreaAndInertia {
  Term area;
  Term inertia;
};

/// Of the section beside welds or with slender plates.
AreaAndInertia reduced(Derivation& d) {
  return kind_of(d) == Kind::effective
             ? AreaAndInertia{effective_area(d), effective_inertia(d)}
             : AreaAndInertia{heat_affected_area(d), heat_affected_inertia(d)};
}

/// The inertia over the distance of a fibre.
Term modulus(Derivation& d, const char* symbol, const char* quantity, double value, bool top) {
  return d.trace.once(symbol, [&] {
    const Info info{symbol, quantity, "mm³", "", reason_of(d)};
    const std::vector<std::string> because = reason_steps(d);
    const auto fibre = [&] { return magnitude(top ? top_fibre(d) : bottom_fibre(d)); };
    if (kind_of(d) != Kind::gross) {
      return d.trace.define(info, value, reduced(d).inertia / fibre(), because);
    }
    const Term distance = d.is_unsymmetric ? fibre() : outermost_z(d);
    return d.trace.define(info, value, inertia_y(d) / distance, because);
  });
}

}  // namespace

Term calculated_area(Derivation& d) {
  return kind_of(d) == Kind::gross ? gross_area(d) : reduced(d).area;
}

Term top_modulus(Derivation& d) {
  return modulus(d, "W1", translatable("modulus of the top fibre"), d.section.dW1, true);
}

Term bottom_modulus(Derivation& d) {
  return modulus(d, "W2", translatable("modulus of the bottom fibre"), d.section.dW2, false);
}

Term modulus_z(Derivation& d) {
  return d.trace.once("Wz", [&] {
    const char* kept = kind_of(d) == Kind::gross ? "" : translatable("always of the gross section");
    return d.trace.define({"Wz", translatable("modulus about z"), "mm³", "", kept}, d.section.dWz,
                          inertia_z(d) / outermost_y(d));
  });
}

}  // namespace aluframe::explain

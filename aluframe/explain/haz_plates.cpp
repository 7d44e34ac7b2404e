#include "aluframe/explain/haz_plates.h"

#include <string>

#include "aluframe/explain/inputs.h"
#include "tz_alu/engine/heat_affected_section.h"

namespace aluframe::explain {

namespace engine = alu_engine;

namespace {

engine::HAZ haz_of(const Derivation& d) {
  return {d.in.Parameters().dHazWidth, d.material.HazFactor()};
}

engine::HAZ_PLATES plates_of(const Derivation& d) {
  return engine::HazPlates(d.in.Section(), haz_of(d).dWidth);
}

const engine::HAZ_SHAPE& shape_of(const Derivation& d) {
  return *engine::FindHazShape(d.shape());
}

/// The term so many times.
Term times(double count, const Term& term) {
  return count == 1.0 ? term : count * term;
}

/// haz·b + webs·tw.
Term width_of(Derivation& d, const engine::HAZ_SHAPE::WIDTH& width) {
  return times(width.haz, haz_width(d)) + times(width.webs, dimension(d, Dimension::web));
}

Term clear_width(Derivation& d, const std::string& symbol, const char* quantity, double value,
                 Dimension of) {
  const engine::HAZ_SHAPE& shape = shape_of(d);
  const Term left = dimension(d, of) - times(shape.lost.haz, haz_width(d)) -
                    times(shape.lost.webs, dimension(d, Dimension::web));
  const char* why =
      d.shape() == ALU_SHAPE_T
          ? translatable("not below 0; of a tee twice the flange less one zone and the web (W5)")
          : translatable("not below 0");
  return d.trace.define({symbol, quantity, "mm", translatable("chapter 5"), why}, value,
                        greater(times(shape.dParts, left), Term::number(0.0)));
}

Term strip_width(Derivation& d, const std::string& symbol, const char* quantity, double value,
                 const engine::HAZ_SHAPE::WIDTH& width) {
  return d.trace.define(
      {symbol, quantity, "mm", translatable("chapter 5"), translatable("never shortened (W1)")},
      value, width_of(d, width));
}

Term arm_of(Derivation& d, const std::string& symbol, const char* quantity, const Term& fibre,
            const Term& thickness) {
  return d.trace.part({symbol, quantity, "mm"}, magnitude(fibre) - thickness / 2.0);
}

FlangeTerms top_flange(Derivation& d) {
  const engine::HAZ_SHAPE& shape = shape_of(d);
  const engine::HAZ_FLANGE flange = plates_of(d).flange[0];
  const Term t = dimension(d, Dimension::top_thickness);
  const Term strip = strip_width(d, "s1", translatable("heat-affected width of the top flange"),
                                 flange.strip, shape.strip);
  return {clear_width(d, "bf1", translatable("clear width of the top flange"), flange.bf,
                      Dimension::top_width),
          t, strip, strip,
          arm_of(d, "d1", translatable("distance of the top flange's middle from the y axis"),
                 top_fibre(d), t)};
}

FlangeTerms bottom_flange(Derivation& d) {
  const engine::HAZ_SHAPE& shape = shape_of(d);
  const engine::HAZ_FLANGE flange = plates_of(d).flange[1];
  const bool has_own_width = d.shape() == ALU_SHAPE_C || d.shape() == ALU_SHAPE_H;
  const Term t = dimension(
      d, d.shape() == ALU_SHAPE_2C ? Dimension::top_thickness : Dimension::bottom_thickness);
  const Term strip = strip_width(d, "s2", translatable("heat-affected width of the bottom flange"),
                                 flange.strip, shape.strip);
  const bool is_whole = shape.bottomOwn.haz == shape.strip.haz;
  const Term own =
      is_whole
          ? strip
          : d.trace.define({"s2own", translatable("width of the bottom strip's own inertia"), "mm",
                            translatable("chapter 5"), translatable("of a box half of the strip")},
                           flange.ownStrip, width_of(d, shape.bottomOwn));
  return {clear_width(d, "bf2", translatable("clear width of the bottom flange"), flange.bf,
                      has_own_width ? Dimension::bottom_width : Dimension::top_width),
          t, strip, own,
          arm_of(d, "d2", translatable("distance of the bottom flange's middle from the y axis"),
                 bottom_fibre(d), t)};
}

Term clear_web_height(Derivation& d) {
  const Term H = dimension(d, Dimension::depth), tf1 = dimension(d, Dimension::top_thickness);
  const Term zones = 2.0 * haz_width(d);
  const Term left = d.shape() == ALU_SHAPE_T ? H - tf1 - zones
                    : d.shape() == ALU_SHAPE_2C
                        ? H - 2.0 * tf1 - zones
                        : H - tf1 - dimension(d, Dimension::bottom_thickness) - zones;
  return d.trace.define({"hw", translatable("clear height of the web"), "mm",
                         translatable("chapter 5"), translatable("not below 0")},
                        plates_of(d).hw, greater(left, Term::number(0.0)));
}

Term flange_inertia(Derivation& d, const std::string& symbol, const char* quantity,
                    const FlangeTerms& flange, const engine::HAZ_FLANGE& of) {
  const auto& [bf, t, strip, own, arm] = flange;
  const Term rho = haz_factor(d);
  return d.trace.define(
      {symbol, quantity, "mm⁴", translatable("chapter 5")},
      engine::HazFlangeInertia(of, d.material.HazFactor()),
      (bf + strip * rho) * t * squared(arm) + bf * cubed(t) / 12.0 + own * cubed(rho * t) / 12.0);
}

Term clear_web_inertia(Derivation& d, const PlateTerms& plates) {
  return d.trace.define(
      {"Iw1", translatable("inertia of the clear web"), "mm⁴", translatable("chapter 5")},
      engine::ClearWebInertia(plates_of(d)),
      cubed(plates.web_height) * plates.web / (12.0 / Term::number(plates.webs)));
}

/// Squared distances of the web strips' middles from the y axis.
Term strip_offsets(Derivation& d, const PlateTerms& plates) {
  const auto offset = [&](const char* symbol, const Term& fibre, const Term& thickness) {
    return d.trace.part(
        {symbol, translatable("distance of a web strip's middle from the y axis"), "mm"},
        magnitude(fibre) - thickness - haz_width(d) / 2.0);
  };
  Term top = squared(offset("g1", top_fibre(d), plates.top.thickness));
  if (!plates.has_bottom) return top;
  return top + squared(offset("g2", bottom_fibre(d), plates.bottom.thickness));
}

}  // namespace

PlateTerms haz_plates(Derivation& d) {
  const engine::HAZ_SHAPE& shape = shape_of(d);
  const bool has_bottom = shape.nFlanges > 1;
  const FlangeTerms top = top_flange(d);
  return {top,
          has_bottom ? bottom_flange(d) : top,
          has_bottom,
          clear_web_height(d),
          dimension(d, Dimension::web),
          shape.nWebs};
}

Term web_strip_inertia(Derivation& d, const PlateTerms& plates) {
  return d.trace.once("Iw2", [&] {
    const Term rho = haz_factor(d), b = haz_width(d);
    const int strips = plates.webs * (plates.has_bottom ? 2 : 1);
    return d.trace.define(
        {"Iw2", translatable("inertia of the heat-affected strips of the webs"), "mm⁴",
         translatable("chapter 5"), translatable("strips count together in their own inertia")},
        engine::WebStripInertia(plates_of(d), haz_of(d)),
        rho * plates.web * cubed(b) / (12.0 / Term::number(strips)) +
            times(plates.webs, rho) * plates.web * b * strip_offsets(d, plates));
  });
}

Term heat_affected_inertia(Derivation& d) {
  return d.trace.once("Ihaz", [&] {
    const PlateTerms plates = haz_plates(d);
    const engine::HAZ_PLATES of = plates_of(d);
    Term sum = flange_inertia(d, "If1", translatable("inertia of the top flange"), plates.top,
                              of.flange[0]);
    if (plates.has_bottom) {
      sum = sum + flange_inertia(d, "If2", translatable("inertia of the bottom flange"),
                                 plates.bottom, of.flange[1]);
    }
    return d.trace.define(
        {"Ihaz", translatable("second moment of area about y with heat-affected strips"), "mm⁴",
         translatable("chapter 5")},
        engine::HeatAffectedInertia(of, haz_of(d)),
        sum + clear_web_inertia(d, plates) + web_strip_inertia(d, plates));
  });
}

Term heat_affected_area(Derivation& d) {
  return d.trace.once("Ahaz", [&] {
    const PlateTerms plates = haz_plates(d);
    const Term rho = haz_factor(d);
    const auto& top = plates.top;
    Term area = top.clear * top.thickness;
    if (plates.has_bottom) {
      area = area + top.strip * (top.thickness + plates.bottom.thickness) * rho +
             plates.bottom.clear * plates.bottom.thickness;
    } else {
      area = area + top.strip * top.thickness * rho;
    }
    const int strips = plates.webs * (plates.has_bottom ? 2 : 1);
    return d.trace.define(
        {"Ahaz", translatable("area with heat-affected strips"), "mm²", translatable("chapter 5")},
        engine::HeatAffectedArea(plates_of(d), haz_of(d)),
        area + times(strips, haz_width(d)) * plates.web * rho +
            times(plates.webs, plates.web_height) * plates.web);
  });
}

}  // namespace aluframe::explain

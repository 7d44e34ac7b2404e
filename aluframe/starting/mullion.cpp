#include <fmt/format.h>

#include "aluframe/starting/builder.h"

namespace aluframe::starting {

/// A mullion over several storeys, hung from the top floor and held against wind at each. x of the
/// elements points upwards and z, by beta 90°, along Y: wind bends them about their strong axis.
model::Model make_mullion(const Sizes& sizes) {
  const double height = sizes.at("height"), spacing = sizes.at("spacing"), w0 = sizes.at("w0");
  const int storeys = static_cast<int>(sizes.at("storeys"));
  Builder frame(fmt::format("Mullion over {} storeys of {} m", storeys, size_text(height)),
                fmt::format("One mullion of a curtain wall with {} m of wall to carry, hung from "
                            "the top floor. Its forces follow "
                            "from the loads: weight of the glass 0.5 kN/m², wind by w0 = {} kN/m² "
                            "at the top of a building of 50 m, "
                            "roughness C. Change: w0, roughness, height and mu_sl of the wind, "
                            "spacing, the section. Combinations "
                            "are made by the rule of JGJ 102-2003; seismic action is not in it.",
                            size_text(spacing), size_text(w0)),
                "JGJ 102-2003", "6063-T5");
  frame.section(1, "Mullion box 140x65", model::Shape::box, {140, 65, 3, 4});
  std::vector<model::Number> elements;
  model::Number below = frame.node("Foot", 0, 0, 0);
  frame.support(below, {true, true, false, false, false, true});
  for (int i = 1; i <= storeys; ++i) {
    const model::Number above = frame.node(fmt::format("Floor {}", i), 0, 0, height * i);
    elements.push_back(frame.element(fmt::format("Mullion, storey {}", i), below, above, 1));
    frame.turn(90);
    frame.support(above, {true, true, i == storeys, false, false, true});
    below = above;
  }
  model::CaseLoads& weight = frame.load_case("Weight", {.kind = model::ActionKind::permanent});
  weight.self_weight = {0, 0, -1};
  weight.area.push_back(by_spacing(elements, spacing, {model::LoadAxes::global, 2}, -0.5));
  for (const double shape : {1.2, -1.4}) {
    model::CaseLoads& wind =
        frame.load_case(shape > 0 ? "Wind pressure" : "Wind suction",
                        {.kind = model::ActionKind::wind, .exclusive = "wind"});
    wind.area.push_back(by_spacing(elements, spacing, {model::LoadAxes::global, 1}, 0));
    model::WindPressure pressure;
    pressure.w0 = per_area * w0;
    pressure.roughness = model::Roughness::c;
    pressure.height = 50e3;
    pressure.shape = shape;
    wind.area.back().pressure = pressure;
  }
  return frame.finish();
}

}  // namespace aluframe::starting

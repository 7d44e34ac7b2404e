#include <fmt/format.h>

#include "aluframe/starting/builder.h"

namespace aluframe::starting {

namespace {

constexpr int pieces = 4;  ///< of a rafter, between purlins
constexpr std::array<bool, 6> across{false, true, false, false, false, false};

struct Portal {
  model::Number foot = 0, eaves = 0;
  std::vector<model::Number> column, rafter;
};

/// One half of the frame, from its foot to the ridge, which must be there.
Portal half(Builder& frame, const char* side, double x, double towards, double height, double rise,
            model::Number ridge) {
  Portal portal;
  portal.foot = frame.node(fmt::format("Foot {}", side), x, 0, 0);
  frame.support(portal.foot, {true, true, true, true, true, true});
  portal.eaves = frame.node(fmt::format("Eaves {}", side), x, 0, height);
  frame.support(portal.eaves, across);
  portal.column.push_back(
      frame.element(fmt::format("Column {}", side), portal.foot, portal.eaves, 1));
  model::Number last = portal.eaves;
  for (int i = 1; i <= pieces; ++i) {
    const double part = static_cast<double>(i) / pieces;
    model::Number next = ridge;
    if (i < pieces) {
      next = frame.node(fmt::format("Purlin {} {}", side, i), x + part * towards, 0,
                        height + part * rise);
      frame.support(next, across);
    }
    portal.rafter.push_back(frame.element(fmt::format("Rafter {} {}", side, i), last, next, 2));
    last = next;
  }
  return portal;
}

model::AreaLoad wind_on(const std::vector<model::Number>& elements, double spacing, double w0,
                        double height, double shape) {
  model::AreaLoad load = by_spacing(elements, spacing, {model::LoadAxes::global, 0}, 0);
  model::WindPressure wind;
  wind.w0 = per_area * w0;
  wind.roughness = model::Roughness::b;
  wind.height = 1e3 * height;
  wind.shape = shape;
  wind.beta_z = 1.0;
  load.pressure = wind;
  return load;
}

}  // namespace

/// A portal with fixed feet in the plane of X and Z; purlins and bracing hold it along Y.
model::Model make_hall(const Sizes& sizes) {
  const double span = sizes.at("span"), height = sizes.at("height"), rise = sizes.at("rise");
  const double spacing = sizes.at("spacing"), w0 = sizes.at("w0"), s0 = sizes.at("s0");
  Builder frame(fmt::format("Hall portal of {} m", size_text(span)),
                fmt::format("One portal of a hall, {} m apart, with fixed feet; purlins at the "
                            "quarters of the rafters and bracing "
                            "hold it across. Its forces follow from the loads: roof 0.3 kN/m², "
                            "snow by s0 = {} kN/m², wind on the walls "
                            "by w0 = {} kN/m² from either side. Change: pressures and shape "
                            "factors, spacing, sections, wind on the "
                            "roof. Combinations are made by the rule of GB 50068-2018.",
                            size_text(spacing), size_text(s0), size_text(w0)),
                "GB 50068-2018");
  frame.use_buckling_modes();
  frame.model().frame->braced_b = true;
  frame.section(1, "Column box 200x120", model::Shape::box, {200, 120, 6, 8});
  frame.section(2, "Rafter box 180x100", model::Shape::box, {180, 100, 6, 8});
  const model::Number ridge = frame.node("Ridge", 0, 0, height + rise);
  frame.support(ridge, across);
  const Portal left = half(frame, "left", -span / 2, span / 2, height, rise, ridge);
  const Portal right = half(frame, "right", span / 2, -span / 2, height, rise, ridge);
  std::vector<model::Number> roof = left.rafter;
  roof.insert(roof.end(), right.rafter.begin(), right.rafter.end());
  model::CaseLoads& weight = frame.load_case("Weight", {.kind = model::ActionKind::permanent});
  weight.self_weight = {0, 0, -1};
  weight.area.push_back(by_spacing(roof, spacing, {model::LoadAxes::global, 2}, -0.3));
  model::CaseLoads& snow =
      frame.load_case("Snow", {.kind = model::ActionKind::snow, .category = "II"});
  snow.area.push_back(by_spacing(roof, spacing, {model::LoadAxes::projected, 2}, 0));
  snow.area.back().pressure = model::SnowPressure{per_area * s0, 1.0};
  for (const double sense : {1.0, -1.0}) {
    model::CaseLoads& wind =
        frame.load_case(sense > 0 ? "Wind from the left" : "Wind from the right",
                        {.kind = model::ActionKind::wind, .exclusive = "wind"});
    const Portal& windward = sense > 0 ? left : right;
    const Portal& lee = sense > 0 ? right : left;
    wind.area.push_back(wind_on(windward.column, spacing, w0, height, sense * 0.8));
    wind.area.push_back(wind_on(lee.column, spacing, w0, height, sense * 0.5));
  }
  return frame.finish();
}

}  // namespace aluframe::starting

#include <fmt/format.h>

#include <cmath>
#include <numbers>

#include "aluframe/starting/builder.h"

namespace aluframe::starting {

namespace {

/// A spherical cap over a circle.
struct Cap {
  double radius, rise;  ///< of the base and of the crown over it, m

  double sphere() const { return (radius * radius + rise * rise) / (2 * rise); }
  /// Height over the base at a distance from the axis.
  double height(double at) const {
    return std::sqrt(sphere() * sphere() - at * at) - (sphere() - rise);
  }
  /// Of the zone between two distances from the axis (Archimedes): the sphere's circumference times
  /// the height of the zone.
  double surface(double from, double to) const {
    return 2 * std::numbers::pi * sphere() * (height(from) - height(to));
  }
  double plan(double from, double to) const { return std::numbers::pi * (to * to - from * from); }
};

}  // namespace

/// A dome of one layer with ribs, rings and one diagonal a panel, on hinges along its edge.
model::Model make_dome(const Sizes& sizes) {
  const Cap cap{sizes.at("span") / 2, sizes.at("rise")};
  const auto rings = static_cast<std::size_t>(sizes.at("rings"));
  const auto sectors = static_cast<std::size_t>(sizes.at("sectors"));
  const double s0 = sizes.at("s0");
  Builder frame(fmt::format("Dome of {} m", size_text(2 * cap.radius)),
                fmt::format("Reticulated dome of one layer, rise {} m, on hinges along its edge. "
                            "Its forces follow from the loads at the "
                            "nodes: cladding 0.3 kN/m² by each one's share of the surface, snow {} "
                            "kN/m² by that of the plan. Change: pressures, the pipe, "
                            "rings and sectors; snow on one side and wind are yours to add. "
                            "Combinations are made by the rule of "
                            "GB 50068-2018.",
                            size_text(cap.rise), size_text(s0)),
                "GB 50068-2018");
  frame.section(1, "Pipe 140x6", model::Shape::pipe, {140, 6});
  frame.use_buckling_modes();
  const model::Number crown = frame.node("Crown", 0, 0, cap.rise);
  std::vector<std::vector<model::Number>> ring(rings);
  for (std::size_t r = 0; r < rings; ++r) {
    const double at = cap.radius * static_cast<double>(r + 1) / static_cast<double>(rings);
    for (std::size_t s = 0; s < sectors; ++s) {
      const double angle =
          2 * std::numbers::pi * static_cast<double>(s) / static_cast<double>(sectors);
      ring[r].push_back(frame.node(fmt::format("Ring {} sector {}", r + 1, s + 1),
                                   at * std::cos(angle), at * std::sin(angle), cap.height(at)));
      if (r + 1 == rings) frame.support(ring[r].back(), {true, true, true, false, false, false});
    }
  }
  for (std::size_t r = 0; r < rings; ++r) {
    for (std::size_t s = 0; s < sectors; ++s) {
      const model::Number here = ring[r][s], next = ring[r][(s + 1) % sectors];
      const model::Number inner = r == 0 ? crown : ring[r - 1][s];
      frame.element(fmt::format("Rib {} sector {}", r + 1, s + 1), inner, here, 1);
      frame.element(fmt::format("Ring {} sector {}", r + 1, s + 1), here, next, 1);
      if (r > 0) frame.element(fmt::format("Diagonal {} sector {}", r + 1, s + 1), inner, next, 1);
    }
  }
  // Each node has what lies half-way to its neighbours in plan, those of a ring the same.
  const auto share = [&](double pressure, double (Cap::*area)(double, double) const) {
    std::vector<model::NodalLoad> loads;
    const double step = cap.radius / static_cast<double>(rings);
    const auto add = [&](std::vector<model::Number> nodes, double from, double to) {
      model::NodalLoad load;
      load.components[2] =
          -newtons * pressure * (cap.*area)(from, to) / static_cast<double>(nodes.size());
      load.nodes = {false, std::move(nodes)};
      loads.push_back(std::move(load));
    };
    add({crown}, 0, step / 2);
    for (std::size_t r = 0; r < rings; ++r) {
      const double at = step * static_cast<double>(r + 1);
      add(ring[r], at - step / 2, std::min(at + step / 2, cap.radius));
    }
    return loads;
  };
  model::CaseLoads& weight = frame.load_case("Weight", {.kind = model::ActionKind::permanent});
  weight.self_weight = {0, 0, -1};
  weight.nodal = share(0.3, &Cap::surface);
  frame.load_case("Snow", {.kind = model::ActionKind::snow, .category = "II"}).nodal =
      share(s0, &Cap::plan);
  return frame.finish();
}

}  // namespace aluframe::starting

#pragma once

#include <array>
#include <variant>
#include <vector>

#include "aluframe/area_loads/fault.h"
#include "aluframe/area_loads/widths.h"
#include "aluframe/model/model.h"

/// Loads per area, distributed to the elements that carry them (docs/area-loads.md).
///
///     const auto loads = area_loads::line_loads(model, area_load);
///     if (const auto* fault = std::get_if<area_loads::Fault>(&loads)) ...
namespace aluframe::area_loads {

/// How an area load comes to its elements.
struct Distribution {
  double pressure = 0.0;  ///< N/mm², with its sign
  double area = 0.0;      ///< mm², as the pressure counts it: projected where it is projected
  /// On each mm of a carried width, per mm of the element: N/mm². With a spacing, along the load's
  /// own direction instead.
  std::array<double, 3> per_area = {};
  std::vector<WidthPiece> widths = {};
};

/// The nodes and elements that the load names must exist.
std::variant<Distribution, Fault> distribute(const model::Model& model,
                                             const model::AreaLoad& load);

/// The line loads that the area load becomes. What they add up to is pressure times area; with a
/// region or panels their moments are those of the area, too.
std::variant<std::vector<model::SpanLoad>, Fault> line_loads(const model::Model& model,
                                                             const model::AreaLoad& load);

}  // namespace aluframe::area_loads

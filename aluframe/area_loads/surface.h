#pragma once

#include <optional>
#include <vector>

#include "aluframe/area_loads/carrier.h"
#include "aluframe/model/area_load.h"
#include "aluframe/model/model.h"

namespace aluframe::area_loads {

/// What an area load acts on, in its plane.
struct Surface {
  Plane plane;
  std::optional<Polygon> region;  ///< counterclockwise about the normal
  std::vector<Carrier> carriers;  ///< whole elements; with a region, those that reach into it
  double near = 0.0;              ///< ends no further apart are joined, mm
};

/// Throws Fault when the region is none, its corners or the elements are not in one plane, or an
/// element that the load names is outside of the region.
Surface surface_of(const model::Model& model, const model::AreaLoad& load);

}  // namespace aluframe::area_loads

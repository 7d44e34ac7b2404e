#pragma once

#include "host/host_api.h"
#include "host/tz_db/model.h"

/// Geometry of points in space. Lengths in, lengths out.
class CMathFunc {
 public:
  /// Distance between two points.
  HOST_API static double mathLength(const T_NODE_D& a, const T_NODE_D& b);
  /// Distance of `point` from the infinite straight line through `a` and `b`; from `a` when the two
  /// coincide.
  HOST_API static double mathDistanceToLine(const T_NODE_D& point, const T_NODE_D& a,
                                            const T_NODE_D& b);
};

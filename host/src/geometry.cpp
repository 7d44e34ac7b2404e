#include <cmath>

#include "host/tz_db/mathfunc.h"

namespace {

T_NODE_D Difference(const T_NODE_D& a, const T_NODE_D& b) {
  return {b.dX - a.dX, b.dY - a.dY, b.dZ - a.dZ};
}

}  // namespace

double CMathFunc::mathLength(const T_NODE_D& a, const T_NODE_D& b) {
  const T_NODE_D d = Difference(a, b);
  return std::hypot(d.dX, d.dY, d.dZ);
}

double CMathFunc::mathDistanceToLine(const T_NODE_D& point, const T_NODE_D& a, const T_NODE_D& b) {
  const double length = mathLength(a, b);
  if (length == 0.0) return mathLength(a, point);
  const T_NODE_D u = Difference(a, b);
  const T_NODE_D v = Difference(a, point);
  const double x = u.dY * v.dZ - u.dZ * v.dY;
  const double y = u.dZ * v.dX - u.dX * v.dZ;
  const double z = u.dX * v.dY - u.dY * v.dX;
  return std::hypot(x, y, z) / length;
}

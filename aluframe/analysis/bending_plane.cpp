#include "aluframe/analysis/bending_plane.h"

namespace aluframe::analysis {

BendingPlane BendingPlane::of(double ei, double gas, double length) {
  return {length, ei, gas > 0.0 ? 12.0 * ei / (gas * length * length) : 0.0};
}

double PlaneLoad::value_at(double x) const {
  if (to == from) return from_value;
  return from_value + (to_value - from_value) * ((x - from) / (to - from));
}

Vector4 deflections_at(const BendingPlane& plane, double x) {
  const double l = plane.length, p = plane.shear, s = x / l, r = 1.0 - s;
  // Written in the distances from both ends, so that each shape is exact at either.
  const Vector4 shapes(r * r * (1.0 + 2.0 * s) + p * r, l * s * r * (r + p / 2.0),
                       s * s * (1.0 + 2.0 * r) + p * s, -l * s * r * (s + p / 2.0));
  return shapes / (1.0 + p);
}

Vector4 rotations_at(const BendingPlane& plane, double x) {
  const double l = plane.length, p = plane.shear, s = x / l, r = 1.0 - s;
  const Vector4 shapes(-6.0 * s * r / l, r * (1.0 - 3.0 * s) + p * r, 6.0 * s * r / l,
                       s * (1.0 - 3.0 * r) + p * s);
  return shapes / (1.0 + p);
}

Matrix4 bending_stiffness(const BendingPlane& plane) {
  const double l = plane.length, p = plane.shear;
  const double across = 12.0, mixed = 6.0 * l;
  const double near = (4.0 + p) * l * l, far = (2.0 - p) * l * l;
  Matrix4 k;
  k << across, mixed, -across, mixed,   //
      mixed, near, -mixed, far,         //
      -across, -mixed, across, -mixed,  //
      mixed, far, -mixed, near;
  return k * (plane.ei / ((1.0 + p) * l * l * l));
}

Vector4 fixed_end_forces_of_load(const BendingPlane& plane, const PlaneLoad& load) {
  const double l = plane.length;
  if (load.from == 0.0 && load.to == l && load.from_value == load.to_value) {
    // The most frequent load; its symmetry leaves no part to the shear flexibility.
    return load.from_value * l * Vector4(-0.5, -l / 12.0, -0.5, l / 12.0);
  }
  return -integrate<Vector4>(load.from, load.to, [&](double x) -> Vector4 {
    return load.value_at(x) * deflections_at(plane, x);
  });
}

Vector4 fixed_end_forces_of_force(const BendingPlane& plane, double x, double force) {
  return -force * deflections_at(plane, x);
}

Vector4 fixed_end_forces_of_moment(const BendingPlane& plane, double x, double moment) {
  return -moment * rotations_at(plane, x);
}

Vector4 fixed_end_forces_of_curvature(const BendingPlane& plane, double curvature) {
  return plane.ei * curvature * Vector4(0.0, 1.0, 0.0, -1.0);
}

}  // namespace aluframe::analysis

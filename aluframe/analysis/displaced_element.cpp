#include "aluframe/analysis/displaced_element.h"

#include <algorithm>

#include "aluframe/analysis/element_spans.h"
#include "aluframe/analysis/element_stiffness.h"
#include "aluframe/analysis/fixed_end_forces.h"
#include "aluframe/analysis/local_axes.h"
#include "aluframe/analysis/releases.h"

namespace aluframe::analysis {

namespace {

using Polynomial = std::array<double, 6>;

double value(const Polynomial& p, double t) {
  double sum = 0.0;
  for (auto c = p.rbegin(); c != p.rend(); ++c) sum = sum * t + *c;
  return sum;
}

/// Integral over a length that is 1 in the polynomials, from a value at its start.
Polynomial integral(double start, const Polynomial& p, double length) {
  Polynomial out{start};
  for (std::size_t k = 1; k < out.size(); ++k) out[k] = length * p[k - 1] / static_cast<double>(k);
  return out;
}

Polynomial sum(double a, const Polynomial& p, double b, const Polynomial& q) {
  Polynomial out{};
  for (std::size_t k = 0; k < out.size(); ++k) out[k] = a * p[k] + b * q[k];
  return out;
}

/// Force and moment of a section, rotation and deflection of a bending plane.
struct PlaneState {
  double force = 0.0, moment = 0.0, rotation = 0.0, deflection = 0.0;
};

struct PlaneStiffness {
  double ei = 0.0;
  double gas = 0.0;  ///< 0: rigid in shear
  double curvature = 0.0;
};

/// The deflection along a span under a load that is `q` along it; the state goes to its end.
Polynomial bent(const PlaneStiffness& plane, const Polynomial& q, double length,
                PlaneState& state) {
  const Polynomial force = integral(state.force, q, length);
  const Polynomial moment = integral(state.moment, force, length);
  const Polynomial curvature = sum(1.0 / plane.ei, moment, 1.0, {plane.curvature});
  const Polynomial rotation = integral(state.rotation, curvature, length);
  const Polynomial slope = plane.gas > 0.0 ? sum(1.0, rotation, -1.0 / plane.gas, force) : rotation;
  const Polynomial deflection = integral(state.deflection, slope, length);
  state = {value(force, 1.0), value(moment, 1.0), value(rotation, 1.0), value(deflection, 1.0)};
  return deflection;
}

}  // namespace

Vector12 end_displacements(const Element& element, const Geometry& geometry,
                           const ElementLoads& loads, const Vector6& start, const Vector6& end) {
  Vector12 nodes;
  for (Eigen::Index k = 0; k < 6; ++k) {
    const auto direction = static_cast<std::size_t>(k);
    nodes[k] = start[direction];
    nodes[6 + k] = end[direction];
  }
  Vector12 ends = to_local(geometry.axes, nodes);
  if (element.kind == ElementKind::truss) {
    ends[5] = ends[11] = (ends[7] - ends[1]) / geometry.length;
    ends[4] = ends[10] = -(ends[8] - ends[2]) / geometry.length;
    return ends;
  }
  const bool is_released = std::ranges::any_of(element.released, [](bool one) { return one; });
  if (!is_released) return ends;
  Matrix12 stiffness = elastic_stiffness(element, geometry.length);
  if (const auto releases = Releases::condense(element.released, stiffness)) {
    releases->restore(fixed_end_forces(element, loads), ends);
  }
  return ends;
}

DisplacedElement::DisplacedElement(const Element& element, const ElementLoads& loads,
                                   const Vector12& ends)
    : at_start_(ends.head<3>()), added_at_end_(ends.segment<3>(6) - ends.head<3>()) {
  if (element.kind == ElementKind::beam) {
    // The ends move such that what is released exerts nothing.
    bend(element, loads,
         elastic_stiffness(element, loads.length) * ends + fixed_end_forces(element, loads));
  } else {
    places_ = {0.0, loads.length};
    spans_ = {Span{}};
  }
}

void DisplacedElement::bend(const Element& element, const ElementLoads& loads,
                            const Vector12& forces) {
  const Stiffness& s = element.stiffness;
  const PlaneStiffness plane_y{s.e * s.izz, s.g * s.ay, loads.free.curvature_y};
  const PlaneStiffness plane_z{s.e * s.iyy, s.g * s.az, loads.free.curvature_z};
  const LocalPoint first = point_load_at_start(loads);
  double axial_force = -forces[0] - first.force.x(), axial = 0.0;
  PlaneState y{forces[1] + first.force.y(), -forces[5] - first.moment.z()};
  PlaneState z{forces[2] + first.force.z(), forces[4] + first.moment.y()};
  places_ = {0.0};
  for (const ElementSpan& span : spans_of(loads, std::nullopt)) {
    const double length = span.length();
    const auto load = [&](int axis) {
      return Polynomial{span.load_start[axis], span.load_end[axis] - span.load_start[axis]};
    };
    const Polynomial n = sum(-1.0, integral(-axial_force, load(0), length), 0.0, {});
    const Polynomial strain = sum(1.0 / (s.e * s.area), n, 1.0, {loads.free.strain});
    const Polynomial along = integral(axial, strain, length);
    spans_.push_back({along, bent(plane_y, load(1), length, y), bent(plane_z, load(2), length, z)});
    places_.push_back(span.to);
    axial_force = value(n, 1.0) - span.force_at_end.x();
    axial = value(along, 1.0);
    y.force += span.force_at_end.y();
    y.moment -= span.moment_at_end.z();
    z.force += span.force_at_end.z();
    z.moment += span.moment_at_end.y();
  }
  // The rotation at the start is the one that brings its end to where it is.
  added_at_end_ -= Eigen::Vector3d(axial, y.deflection, z.deflection);
}

Eigen::Vector3d DisplacedElement::at(double x) const {
  const auto behind = std::ranges::upper_bound(places_, x);
  const auto last = static_cast<std::ptrdiff_t>(spans_.size()) - 1;
  const auto i =
      static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(behind - places_.begin() - 1, 0, last));
  const double t = (x - places_[i]) / (places_[i + 1] - places_[i]);
  Eigen::Vector3d out = at_start_ + x / places_.back() * added_at_end_;
  for (Eigen::Index axis = 0; axis < 3; ++axis) {
    out[axis] += value(spans_[i][static_cast<std::size_t>(axis)], t);
  }
  return out;
}

}  // namespace aluframe::analysis

#pragma once

#include <optional>
#include <vector>

#include "aluframe/analysis/element_loads.h"

namespace aluframe::analysis {

/// Axial force along a span, N, positive in tension: a parabola.
struct SpanAxialForce {
  double start = 0.0, end = 0.0;
  double bow = 0.0;  ///< in the middle, above the mean of both ends

  double largest_compression() const;
  double at(double part) const {
    return start + (end - start) * part + 4 * bow * part * (1 - part);
  }
};

/// A part of an element along which the loads are linear, and what acts at its end. Local axes, mm
/// from the element's start.
struct ElementSpan {
  double from = 0.0, to = 0.0;
  SpanAxialForce axial;
  Eigen::Vector3d load_start = Eigen::Vector3d::Zero();     ///< force per length, N/mm, at `from`
  Eigen::Vector3d load_end = Eigen::Vector3d::Zero();       ///< at `to`
  Eigen::Vector3d force_at_end = Eigen::Vector3d::Zero();   ///< point loads at `to`, N
  Eigen::Vector3d moment_at_end = Eigen::Vector3d::Zero();  ///< N·mm

  double length() const { return to - from; }
};

/// The spans of an element from its start to its end. Point loads at its very start are not among
/// them, but for what they change in the axial force.
/// @param axial_force_at_start N, positive in tension: what the start node exerts, so that a point
///        load there acts behind it; nothing: without axial force
std::vector<ElementSpan> spans_of(const ElementLoads& loads,
                                  std::optional<double> axial_force_at_start);

/// Sum of the point loads at the very start of an element.
LocalPoint point_load_at_start(const ElementLoads& loads);

/// Axial force at x, mm from the start of the element, N.
double axial_force_at(const std::vector<ElementSpan>& spans, double x);

/// The largest compression along the spans, N; 0 where all are in tension.
double largest_compression(const std::vector<ElementSpan>& spans);

}  // namespace aluframe::analysis

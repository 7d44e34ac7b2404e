#pragma once

#include "aluframe/analysis/frame.h"
#include "aluframe/analysis/small_matrices.h"

namespace aluframe::analysis {

/// Length and local axes of an element.
struct Geometry {
  double length = 0.0;  ///< mm
  Axes axes = Axes::Identity();
};

/// Geometry of an element between two nodes that lie apart. z lies in the plane of the axis and the
/// `reference` direction, on its side (reference_sine must be parallel_limit or more). Without one
/// z lies in the vertical plane through the axis and points upwards; a vertical element (its axis
/// leaves the vertical by less than parallel_limit of its length) has y along global Y, made
/// perpendicular to the axis. `beta`, degrees, then turns y and z about x, right-handed.
Geometry geometry_between(const Node& start, const Node& end, double beta,
                          const std::optional<Vector3>& reference = std::nullopt);

/// Sine of the angle between an element's axis and a reference direction; 0 for one without length.
double reference_sine(const Node& start, const Node& end, const Vector3& reference);

/// Geometry of every element of the frame.
std::vector<Geometry> element_geometry(const Frame& frame);

/// Global components of an element's twelve turned into local ones, and back.
Vector12 to_local(const Axes& axes, const Vector12& global);
Vector12 to_global(const Axes& axes, const Vector12& local);

/// Stiffness between local displacements and forces, turned to global ones.
Matrix12 to_global(const Axes& axes, const Matrix12& local);

}  // namespace aluframe::analysis

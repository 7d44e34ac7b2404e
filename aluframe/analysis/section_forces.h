#pragma once

#include "aluframe/analysis/element_loads.h"
#include "aluframe/analysis/results.h"

namespace aluframe::analysis {

/// Forces at the five positions, in double precision: N, Fy, Fz, Mx, My, Mz in columns.
using FivePositions = Eigen::Matrix<double, 6, 5>;

/// From the end forces acting ON the element and the loads between them, by equilibrium. The loads
/// of a truss are on its nodes, so it has one axial force.
FivePositions section_forces(ElementKind kind, const Vector12& end_forces,
                             const ElementLoads& loads);

/// The part of section_forces that comes from the loads between the ends.
FivePositions sections_of_loads(ElementKind kind, const ElementLoads& loads);

/// The part of section_forces that comes from the end forces.
/// @param f end forces, twelve rows, and a column for each of several cases
/// @param sections the five positions one below the other, thirty rows, in the same columns
template <class Ends, class Sections>
void sections_of_ends(ElementKind kind, double length, const Ends& f, Sections& sections) {
  if (kind == ElementKind::truss) {
    sections.setZero();
    for (int i = 0; i < 30; i += 6) sections.row(i) = f.row(6);
    return;
  }
  // A section balances the piece before it and the start's forces.
  for (int position = 0; position < 4; ++position) {
    const double x = length * position / 4.0;
    const int i = 6 * position;
    sections.row(i) = -f.row(0);
    sections.row(i + 1) = f.row(1);
    sections.row(i + 2) = f.row(2);
    sections.row(i + 3) = -f.row(3);
    sections.row(i + 4) = f.row(4) + x * f.row(2);
    sections.row(i + 5) = x * f.row(1) - f.row(5);
  }
  // What the end exerts on the last section, so that a released force is exactly 0 there.
  constexpr double signs[] = {1.0, -1.0, -1.0, 1.0, -1.0, 1.0};
  for (int i = 0; i < 6; ++i) sections.row(24 + i) = signs[i] * f.row(6 + i);
}

}  // namespace aluframe::analysis

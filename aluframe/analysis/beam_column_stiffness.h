#pragma once

#include "aluframe/analysis/assembly.h"
#include "aluframe/analysis/beam_column_plane.h"

namespace aluframe::analysis {

/// Stiffness of a beam without releases whose two bending planes are under axial force; torsion is
/// as in first order.
void set_beam_column(const Element& element, double length, const BeamColumnPlane& y,
                     const BeamColumnPlane& z, ElementStiffness& stiffness);

/// Stiffness of a truss under an axial force, N, positive in tension, which acts along its chord.
void set_truss(const Element& element, double length, double axial_force,
               ElementStiffness& stiffness);

/// Euler load of a bar on hinges, N, with so many half waves, at least 1, and shear flexibility:
/// 1/(1/P + 1/GAs) (Engesser).
double euler_load(const BendingPlane& plane, int half_waves);

/// The compression that buckles a truss between its nodes, N; infinite for one without moments of
/// inertia.
double truss_buckling_load(const Element& element, double length);

}  // namespace aluframe::analysis

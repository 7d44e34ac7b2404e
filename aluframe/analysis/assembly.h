#pragma once

#include <functional>
#include <span>

#include "aluframe/analysis/equations.h"
#include "aluframe/analysis/linear_solver.h"
#include "aluframe/analysis/local_axes.h"

namespace aluframe::analysis {

/// Stiffness of one element in local axes.
struct ElementStiffness {
  Matrix12 condensed;   ///< with its releases
  Vector12 unreleased;  ///< diagonal as if nothing were released; also without axial forces
  /// End forces per radian of rigid-body rotation, positive as dw/dx in both planes: what the axial
  /// force exerts; with its releases. 0 in first order.
  Vector12 rigid_rotation;
};

/// Gives the stiffness of the element at a place.
using StiffnessSource = std::function<void(std::size_t, ElementStiffness&)>;

/// Elastic stiffness of the frame's elements. Their releases must leave each of them restrained.
StiffnessSource elastic_source(const Frame& frame, std::span<const Geometry> geometry);

/// Equations of a frame. Row i and column i of the stiffness are multiplied by scale[i], which
/// makes the diagonal 1 where nothing is released: what is small in it is small against the
/// stiffness that meets in a node, whatever the units and directions.
struct ScaledEquations {
  SymmetricMatrix matrix;
  std::vector<double> scale;
};

/// Assembles the equations of all free directions. Prescribed displacements are loads to them.
ScaledEquations assemble(const Frame& frame, std::span<const Geometry> geometry,
                         const Equations& equations, const StiffnessSource& source);

}  // namespace aluframe::analysis

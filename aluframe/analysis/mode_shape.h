#pragma once

#include <span>

#include "aluframe/analysis/buckling.h"
#include "aluframe/analysis/initial_slope.h"
#include "aluframe/analysis/local_axes.h"

namespace aluframe::analysis {

/// A buckling mode as an initial shape, its largest displacement anywhere, between the nodes too,
/// being `amplitude`, mm. Within an element it is what the mode is there, by its stability
/// functions, as a polynomial through seventeen of its points.
/// @param loads of the state, and axial forces per element at its start, as `Buckling::find` has
///        them
/// @return a problem when a truss buckles between its nodes, which has no bow here
Result<InitialShape> shape_of_mode(const Frame& frame, std::span<const Geometry> geometry,
                                   const LoadCase& loads, std::span<const double> axial_forces,
                                   const BucklingMode& mode, double amplitude);

}  // namespace aluframe::analysis

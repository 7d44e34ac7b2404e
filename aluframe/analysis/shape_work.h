#pragma once

#include <span>

#include "aluframe/analysis/beam_column.h"
#include "aluframe/analysis/load_vector.h"

namespace aluframe::analysis {

/// A solution of second order on its way.
struct DisplacedFrame {
  const Frame& frame;
  std::span<const Geometry> geometry;
  const LoadsByElement& loads;
  std::span<const BeamColumn> columns;   ///< that gave the displacements
  std::span<const double> axial_forces;  ///< that the displacements gave, at the starts
  const NodeValues& displacements;
};

/// The sign, 1 or -1, with which a shape adds to the displacements: its equivalent loads, which the
/// axial forces exert on it, then push the way in which the frame is displaced already, which is
/// where their work, the integral of -N·s·w', is positive. 1 where that is nothing but rounding.
double adding_sign(const InitialShape& shape, const DisplacedFrame& displaced);

}  // namespace aluframe::analysis

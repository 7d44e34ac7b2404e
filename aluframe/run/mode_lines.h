#pragma once

#include <string>
#include <vector>

#include "aluframe/picture/content.h"
#include "aluframe/run/input.h"

namespace aluframe::run {

/// How a combination buckles the frame, to be drawn: its largest displacement is 1 mm.
struct DrawnMode {
  double factor = 0.0;  ///< of the loads
  std::string text;     ///< kept: "nodes 2-3 move along X"
  std::vector<picture::DisplacedLine> lines;
};

/// The smallest modes of a combination, as many as asked for or as there are. Between its nodes an
/// element is drawn as the cubic that goes with their displacements and rotations, one that buckles
/// while they stand still as half a wave.
Result<std::vector<DrawnMode>> drawn_modes(const Input& input, model::Number combination,
                                           int count);

}  // namespace aluframe::run

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
/// element is drawn as the cubic that goes with the displacements and rotations of its ends: those
/// of its nodes, but where it is released. A truss stays straight, and an element that buckles
/// while its nodes stand still is half a wave.
/// @return a problem when there is no such combination, its forces are given, or the analysis fails
Result<std::vector<DrawnMode>> drawn_modes(const Input& input, model::Number combination,
                                           int count);

}  // namespace aluframe::run

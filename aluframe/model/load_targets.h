#pragma once

#include <cstddef>
#include <vector>

#include "aluframe/model/table.h"

/// What loads act on, and along what.
namespace aluframe::model {

/// What a load acts on: the listed nodes or elements, or all of the model.
struct Targets {
  bool all = false;
  std::vector<Number> numbers;  ///< each once; empty with `all`

  friend bool operator==(const Targets&, const Targets&) = default;
};

enum class LoadAxes {
  local,     ///< the element's own x, y, z
  global,    ///< X, Y, Z; a load on a span is per length of the element
  projected  ///< X, Y, Z; a load on a span is per length seen along its axis, as snow is
};

/// The axis that a load acts along, in its positive direction, or that a moment turns about,
/// right-handed.
struct LoadDirection {
  LoadAxes axes = LoadAxes::global;
  std::size_t axis = 2;  ///< 0 x, 1 y, 2 z

  friend bool operator==(const LoadDirection&, const LoadDirection&) = default;
};

}  // namespace aluframe::model

#pragma once

#include "aluframe/run/input.h"

namespace aluframe::run {

/// A load case or a combination.
struct Subject {
  bool is_combination = false;
  model::Number number = 0;

  friend bool operator==(const Subject&, const Subject&) = default;
};

/// The model with the forces that follow from its loads, besides given ones, so that those of the
/// subject are known: of a load case in first order, of a combination as the model says.
/// @param input a copy, which gets the forces
Result<model::Model> with_forces_of(Input input, const Subject& subject);

}  // namespace aluframe::run

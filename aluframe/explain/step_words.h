#pragma once

#include <string>

#include "aluframe/explain/step.h"

namespace aluframe::explain {

/// What is said of a quantity, in the language in use.
struct StepWords {
  std::string quantity;
  std::string clause;  ///< empty: none
  std::string why;     ///< empty: nothing
};

StepWords words_of(const Info& info);

}  // namespace aluframe::explain

#pragma once

#include <string>
#include <variant>

namespace aluframe::combinations {

/// Why no combinations can be made.
struct Fault {
  std::string place;  ///< JSON path in the model, such as "/load_cases/3/action/exclusive"
  std::string text;   ///< what is wrong and what is allowed
};

}  // namespace aluframe::combinations

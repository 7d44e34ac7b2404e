#pragma once

#include <string>
#include <variant>

namespace aluframe::run {

/// Why a run stops. The text is a whole message for the user: file, place, what was found, what is
/// allowed.
struct Problem {
  enum class Kind {
    input,   ///< the model or what is asked of it is at fault; nothing was changed
    failure  ///< something failed while running
  };

  std::string text;
  Kind kind = Kind::input;
};

/// A value, or the problem that stands in its way.
template <class Value>
using Result = std::variant<Value, Problem>;

}  // namespace aluframe::run

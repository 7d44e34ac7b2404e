#pragma once

#include <string>
#include <variant>

namespace aluframe::io {

/// What is wrong with an input, for the user: where, what was found, what is allowed; or why a file
/// cannot be written.
struct Problem {
  enum class Kind { input, failure };
  std::string file;   ///< path as the user gave it
  std::string place;  ///< JSON path such as "/elements/3/nodes/1", or "line 4, column 7"
  std::string text;   ///< "found -3, must be positive"
  Kind kind = Kind::input;

  /// "frame.json: /elements/3/nodes/1: node 99 does not exist"
  std::string message() const { return file + ": " + place + (place.empty() ? "" : ": ") + text; }
};

/// A value, or the first problem met on the way to it.
template <class Value>
using Result = std::variant<Value, Problem>;

}  // namespace aluframe::io

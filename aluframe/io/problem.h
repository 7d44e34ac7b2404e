#pragma once

#include <cstddef>
#include <string>
#include <variant>
#include <vector>

namespace aluframe::io {

/// One thing that is wrong in a file, and where.
struct Fault {
  std::string place;        ///< JSON path such as "/elements/3/nodes/1", or "line 4, column 7"
  std::string text;         ///< "found -3, must be positive"
  std::size_t line = 0;     ///< of a JSON path in the file, from 1; 0: unknown
  std::string entity = {};  ///< that the path leads into, by its own number: "element 12"; or empty

  /// "line 42: /elements/3/nodes/1 (element 12): node 99 does not exist"
  std::string message() const;
};

/// What is wrong with an input, for the user: where, what was found, what is allowed; or why a file
/// cannot be written.
struct Problem {
  enum class Kind { input, failure };
  std::string file;   ///< path as the user gave it
  std::string place;  ///< of the first fault
  std::string text;
  Kind kind = Kind::input;
  std::size_t line = 0;
  std::string entity = {};
  std::vector<Fault> others = {};  ///< that the file has behind the first one
  /// Whether it has more than those.
  bool has_more = false;

  /// "frame.json: line 42: /elements/3/nodes/1 (element 12): node 99 does not exist", one line for
  /// each fault.
  std::string message() const;
};

/// A value, or what stands in its way.
template <class Value>
using Result = std::variant<Value, Problem>;

}  // namespace aluframe::io

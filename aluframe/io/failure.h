#pragma once

#include <string>

namespace aluframe::io {

/// Thrown inside the readers at the first fault of a file. The public functions turn it into a
/// Problem by adding the file's name, so it never leaves this library.
struct Failure {
  std::string place;  ///< JSON path, or line and column; empty for the file as a whole
  std::string text;   ///< what was found and what is allowed
};

}  // namespace aluframe::io

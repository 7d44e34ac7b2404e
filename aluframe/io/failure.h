#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace aluframe::io {

/// Thrown inside the readers at a fault of a file. The public functions turn it into a Problem by
/// adding the file's name, so it never leaves this library.
struct Failure {
  std::string place;  ///< JSON path, or line and column; empty for the file as a whole
  std::string text;   ///< what was found and what is allowed
  std::optional<std::uint32_t> at = std::nullopt;  ///< the place in its JsonDocument, where known
};

/// Thrown inside the readers where something is missing or wrong because of another fault, which is
/// told: an element of a section that could not be read.
struct FollowsFromFault {};

}  // namespace aluframe::io

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace aluframe::texts {

/// A format string, "{:.3f} at {1}", taken apart: what stands before, between and behind its
/// placeholders.
struct FormatPieces {
  std::vector<std::string> literals;  ///< one more than placeholders
  /// Which argument each placeholder takes.
  std::vector<std::size_t> arguments;

  std::size_t literal_characters() const;
};

FormatPieces take_apart(std::string_view format);

}  // namespace aluframe::texts

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
  std::vector<std::string> specs;  ///< how each is written: ".3f"

  /// How many bytes the literals have, and how many of them are letters.
  std::size_t characters() const;
  std::size_t letters() const;
};

FormatPieces take_apart(std::string_view format);

}  // namespace aluframe::texts

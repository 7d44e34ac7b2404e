#pragma once

#include <span>
#include <string>
#include <string_view>

namespace aluframe::io {

/// The name that was probably meant, for "did you mean": one that differs only in the case of its
/// letters, or by at most two letters and less than half of them. Empty when none is close.
std::string_view closest_name(std::string_view found, std::span<const std::string_view> names);

/// What to tell the user about a name that is not allowed: "unknown field, did you mean "beta"?",
/// or all allowed names when none is close. `what`: "field".
std::string unknown_name_text(std::string_view what, std::string_view found,
                              std::span<const std::string_view> allowed);

}  // namespace aluframe::io

#pragma once

#include <string_view>
#include <utility>

namespace aluframe::io {

/// The number that the whole of a cell is, and an empty text; or what a number must be. With a
/// decimal point, whatever the user's language, and within the range of model files.
std::pair<double, std::string_view> parse_number(std::string_view text);

/// Whether two names of columns differ at most in the case of their letters.
bool equal_but_for_case(std::string_view a, std::string_view b);

}  // namespace aluframe::io

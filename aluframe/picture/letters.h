#pragma once

#include <string>
#include <string_view>
#include <vector>

// How much room texts take, in whatever sans-serif letters they will be shown.

namespace aluframe::picture {

/// An estimate of a text's width, as a multiple of the letters' size. Ideographs are as wide as
/// tall.
double width_of(std::string_view utf8);

/// The text in lines of at most `width` times the letters' size, broken at blanks where there are
/// any. A text without letters is one empty line.
std::vector<std::string> wrapped(std::string_view utf8, double width);

}  // namespace aluframe::picture

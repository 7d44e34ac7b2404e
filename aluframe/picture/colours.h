#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "aluframe/texts/text.h"

// Colours that readers with any colour vision tell apart: dark against light, blue against orange.

namespace aluframe::picture {

inline constexpr std::string_view ink = "#1a1a1a";   ///< lines and letters
inline constexpr std::string_view grey = "#9a9a9a";  ///< what stands behind
inline constexpr std::string_view pale = "#e4e7ea";  ///< solid symbols
inline constexpr std::string_view white = "#ffffff";
inline constexpr std::string_view blue = "#0060a8";    ///< positive forces, node numbers
inline constexpr std::string_view orange = "#c24a00";  ///< negative forces, ratios over 1
inline constexpr std::string_view green = "#00704f";   ///< element numbers
inline constexpr std::string_view violet = "#7a2f8f";  ///< loads

/// A class of ratios: those up to a limit that are above the class before.
struct RatioClass {
  double up_to;
  std::string_view text;
  std::string_view colour;
  double width;  ///< of the line
};

/// Blue, the darker the more, up to 1; what exceeds it is orange and thick.
inline constexpr std::array<RatioClass, 5> ratio_classes{
    {{0.25, texts::translatable("up to 0.25"), "#a9d3f0", 0.9},
     {0.50, texts::translatable("0.25 to 0.50"), "#5ba7dc", 0.9},
     {0.75, texts::translatable("0.50 to 0.75"), "#1f77b8", 0.9},
     {0.90, texts::translatable("0.75 to 0.90"), "#0b4a86", 0.9},
     {1.00, texts::translatable("0.90 to 1"), "#061f45", 1.1}}};
inline constexpr RatioClass over_one{0.0, texts::translatable("over 1"), "#e05000", 2.0};

/// The class of a ratio; what is no number counts as over 1.
const RatioClass& class_of(double ratio);

/// Colour and dashes of the n-th of several kinds; both repeat, together after 24.
struct KindStyle {
  std::string_view colour, dash;
};
KindStyle kind_style(std::size_t place);

}  // namespace aluframe::picture

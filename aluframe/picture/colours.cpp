#include "aluframe/picture/colours.h"

#include <algorithm>

namespace aluframe::picture {

const RatioClass& class_of(double ratio) {
  const auto* const found = std::ranges::find_if(
      ratio_classes, [ratio](const RatioClass& one) { return ratio <= one.up_to; });
  return found == ratio_classes.end() ? over_one : *found;
}

KindStyle kind_style(std::size_t place) {
  constexpr std::array<std::string_view, 8> colours{"#0072b2", "#d55e00", "#009e73", "#cc79a7",
                                                    "#56b4e9", "#8a6d00", "#000000", "#e69f00"};
  constexpr std::array<std::string_view, 3> dashes{"", "3 1", "0.8 0.8"};
  return {colours[place % colours.size()], dashes[place / colours.size() % dashes.size()]};
}

}  // namespace aluframe::picture

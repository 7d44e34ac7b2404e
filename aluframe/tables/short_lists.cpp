#include "aluframe/tables/short_lists.h"

#include <algorithm>
#include <cstddef>
#include <variant>

#include "aluframe/model/number_ranges.h"
#include "aluframe/texts/text.h"

namespace aluframe::tables {

namespace {

constexpr std::size_t longest = 60;

/// How many numbers are in "1-3,7".
std::size_t count_of(std::string ranges) {
  std::erase(ranges, ' ');
  std::size_t count = 0;
  const auto read = std::get<model::NumberRanges>(model::parse_number_ranges(ranges));
  for (const model::NumberRange& range : read.ranges()) count += range.last - range.first + 1;
  return count;
}

}  // namespace

std::string shown_list(const std::string& ranges, Lists lists) {
  if (lists == Lists::whole || ranges.size() <= longest) return ranges;
  const std::size_t end = ranges.rfind(',', longest);
  return texts::translated("{} and {} more", ranges.substr(0, end),
                           count_of(ranges.substr(end + 1)));
}

}  // namespace aluframe::tables

#pragma once

#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "aluframe/model/table.h"

namespace aluframe::model {

/// Numbers from `first` to `last`, both included.
struct NumberRange {
  Number first = 0;
  Number last = 0;

  friend bool operator==(const NumberRange&, const NumberRange&) = default;
};

/// Numbers as the user lists them, "1,3,10-20"; empty: no limit.
class NumberRanges {
 public:
  NumberRanges() = default;
  explicit NumberRanges(std::vector<NumberRange> ranges) : ranges_(std::move(ranges)) {}

  bool empty() const { return ranges_.empty(); }
  bool contains(Number number) const;
  const std::vector<NumberRange>& ranges() const { return ranges_; }

 private:
  std::vector<NumberRange> ranges_;
};

/// Reads "1,3,10-20". @return the ranges, or what is wrong with the text
std::variant<NumberRanges, std::string> parse_number_ranges(std::string_view text);

/// "1, 3, 10-20" of sorted numbers; beyond `most_ranges` such ranges "and 20 more".
std::string join_as_ranges(const std::vector<Number>& sorted,
                           std::size_t most_ranges = std::numeric_limits<std::size_t>::max());

/// The members of `existing` that the ranges name, in their own order; or, when a range names none
/// at all, a message that says which.
std::variant<std::vector<Number>, std::string> select(const NumberRanges& ranges,
                                                      const std::vector<Number>& existing,
                                                      const std::string& what);

}  // namespace aluframe::model

#include "aluframe/model/number_ranges.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>

#include "aluframe/texts/text.h"

namespace aluframe::model {

namespace {

std::optional<Number> parse_number(std::string_view text) {
  Number number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  if (number < 1 || number > max_number) return std::nullopt;
  return number;
}

std::optional<NumberRange> parse_range(std::string_view text) {
  const std::size_t dash = text.find('-');
  const std::optional<Number> first = parse_number(text.substr(0, dash));
  if (!first) return std::nullopt;
  if (dash == std::string_view::npos) return NumberRange{*first, *first};
  const std::optional<Number> last = parse_number(text.substr(dash + 1));
  if (!last || *last < *first) return std::nullopt;
  return NumberRange{*first, *last};
}

bool holds(const NumberRange& range, Number number) {
  return range.first <= number && number <= range.last;
}

std::string text_of(const NumberRange& range) {
  return range.first == range.last ? fmt::format("{}", range.first)
                                   : fmt::format("{}-{}", range.first, range.last);
}

}  // namespace

bool NumberRanges::contains(Number number) const {
  return std::ranges::any_of(ranges_,
                             [number](const NumberRange& range) { return holds(range, number); });
}

std::variant<NumberRanges, std::string> parse_number_ranges(std::string_view text) {
  std::vector<NumberRange> ranges;
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t comma = std::min(text.find(',', start), text.size());
    const std::string_view part = text.substr(start, comma - start);
    const std::optional<NumberRange> range = parse_range(part);
    if (!range) {
      return texts::translated(
          "found '{}', must be numbers from 1 to {} and rising ranges of them, as in 1,3,10-20",
          part, max_number);
    }
    ranges.push_back(*range);
    start = comma + 1;
  }
  return NumberRanges(std::move(ranges));
}

std::string join_as_ranges(const std::vector<Number>& sorted, std::size_t most_ranges) {
  std::string text;
  for (std::size_t i = 0, ranges = 0; i < sorted.size(); ++ranges) {
    if (ranges == most_ranges) {
      return fmt::format(texts::translatable("{} and {} more"), text, sorted.size() - i);
    }
    std::size_t last = i;
    while (last + 1 < sorted.size() && sorted[last + 1] == sorted[last] + 1) ++last;
    text += (text.empty() ? "" : ", ") + text_of({sorted[i], sorted[last]});
    i = last + 1;
  }
  return text;
}

std::variant<std::vector<Number>, std::string> select(const NumberRanges& ranges,
                                                      const std::vector<Number>& existing,
                                                      const std::string& what) {
  for (const NumberRange& range : ranges.ranges()) {
    const auto found = [&range](Number number) { return holds(range, number); };
    if (std::ranges::none_of(existing, found)) {
      return texts::translated("there is no {} {}", what, text_of(range));
    }
  }
  std::vector<Number> selected;
  std::ranges::copy_if(existing, std::back_inserter(selected),
                       [&ranges](Number number) { return ranges.contains(number); });
  return selected;
}

}  // namespace aluframe::model

#include "aluframe/io/csv_number.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "aluframe/io/json_value.h"
#include "aluframe/texts/text.h"

namespace aluframe::io {

std::pair<double, std::string_view> parse_number(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  double value = 0.0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error == std::errc::invalid_argument || end != text.data() + text.size()) {
    return {0.0, texts::translatable("must be a number")};
  }
  const bool is_in_range = error == std::errc{} && std::abs(value) <= largest_number;
  return {value, is_in_range ? std::string_view() : number_range};
}

bool equal_but_for_case(std::string_view a, std::string_view b) {
  const auto lower = [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [&](char x, char y) { return lower(x) == lower(y); });
}

}  // namespace aluframe::io

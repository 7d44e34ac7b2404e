#include "aluframe/io/json_writer.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <nlohmann/json.hpp>

namespace aluframe::io {

namespace {

constexpr int single_fewest_digits = 7;
constexpr int single_most_digits = 9;

/// Reads as the reader will; the text is of our own making, so it is a number.
double read_back(std::string_view text) {
  double value = 0.0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

/// The number of a unit that reading turns into `value`: the quotient or, as both steps round, one
/// of its neighbours. When none is, the quotient.
double number_in_unit(double value, double scale) {
  const double quotient = value / scale;
  constexpr double infinity = std::numeric_limits<double>::infinity();
  for (const double number :
       {quotient, std::nextafter(quotient, -infinity), std::nextafter(quotient, infinity)}) {
    if (scale * number == value) return number;
  }
  return quotient;
}

}  // namespace

std::string number_text(double value, double scale) {
  // The second step makes the text of a length that no number of the unit stands for the text of
  // the length that it is read as, so that a file is written again as it was.
  const double reached = scale * number_in_unit(value, scale);
  const double number = number_in_unit(reached, scale);
  for (const int digits : {15, 16}) {
    std::string text = fmt::format("{:.{}g}", number, digits);
    if (scale * read_back(text) == reached) return text;
  }
  return fmt::format("{}", number);
}

void append_number(std::string& text, float value, double scale) {
  const double in_unit = static_cast<double>(value) / scale;
  // Sign, point and exponent take at most 7 characters beside the digits.
  std::array<char, single_most_digits + 7> number;
  std::string_view written;
  for (int digits = single_fewest_digits; digits <= single_most_digits; ++digits) {
    const char* end =
        std::to_chars(number.begin(), number.end(), in_unit, std::chars_format::general, digits)
            .ptr;
    written = {number.data(), static_cast<std::size_t>(end - number.data())};
    if (static_cast<float>(scale * read_back(written)) == value) break;
  }
  text += written;
}

std::string json_string(std::string_view text) {
  return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string json_list(std::span<const std::string> values) {
  std::string text;
  for (const std::string& value : values) text += (text.empty() ? "" : ", ") + value;
  return '[' + text + ']';
}

JsonLine& JsonLine::json(std::string_view field, std::string_view value) {
  if (!fields_.empty()) fields_ += ", ";
  fmt::format_to(std::back_inserter(fields_), "\"{}\": {}", field, value);
  return *this;
}

JsonLine& JsonLine::text(std::string_view field, std::string_view value) {
  return json(field, json_string(value));
}

JsonLine& JsonLine::number(std::string_view field, double value, double scale) {
  return json(field, number_text(value, scale));
}

JsonLine& JsonLine::flag(std::string_view field, bool value) {
  return json(field, value ? "true" : "false");
}

JsonLine& JsonLine::text_unless(std::string_view field, std::string_view value,
                                std::string_view standard) {
  return value == standard ? *this : text(field, value);
}

JsonLine& JsonLine::number_unless(std::string_view field, double value, double standard) {
  return value == standard ? *this : number(field, value);
}

JsonLine& JsonLine::flag_unless(std::string_view field, bool value, bool standard) {
  return value == standard ? *this : flag(field, value);
}

}  // namespace aluframe::io

#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace aluframe::io {

/// A number of N or mm in a unit that is `scale` of them, with as few digits (15 to 17) as reading
/// it back needs to meet the same number: 3600 mm are 3.6 m. When no number of the unit does, the
/// nearest, which comes back equal but for its last digit. The number must be finite.
std::string number_text(double value, double scale = 1.0);

/// Appends a number of single precision with as few digits as bring it back exactly; 9 always do.
void append_number(std::string& text, float value, double scale);

/// Text as a JSON string, quotes included. Bytes that are not UTF-8 become U+FFFD.
std::string json_string(std::string_view text);

/// "[1, 2]" of values that are JSON already.
std::string json_list(std::span<const std::string> values);

/// One JSON object on one line, field by field in the order of the calls.
///
///     JsonLine().number("x", 3600, 1000).text("name", "A").str()   // {"x": 3.6, "name": "A"}
class JsonLine {
 public:
  JsonLine& text(std::string_view field, std::string_view value);
  /// `scale`: N or mm in one unit of the file.
  JsonLine& number(std::string_view field, double value, double scale = 1.0);
  JsonLine& flag(std::string_view field, bool value);
  /// A value that is JSON already.
  JsonLine& json(std::string_view field, std::string_view value);

  /// The same, left out when the value is the one that reading assumes.
  JsonLine& text_unless(std::string_view field, std::string_view value, std::string_view standard);
  JsonLine& number_unless(std::string_view field, double value, double standard);
  JsonLine& flag_unless(std::string_view field, bool value, bool standard);

  bool empty() const { return fields_.empty(); }
  std::string str() const { return '{' + fields_ + '}'; }

 private:
  std::string fields_;
};

}  // namespace aluframe::io

#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

/// Where the values of a JSON text stand, for changing one and keeping every other byte. The text
/// must be valid: nothing is checked here.
///
///     const JsonSpan root = json_value_at(text, 0);
///     for (const JsonMember& member : json_members(text, root)) ...
namespace aluframe::io {

/// Bytes of a text from `begin` to before `end`.
struct JsonSpan {
  std::size_t begin = 0;
  std::size_t end = 0;

  std::string_view of(std::string_view text) const { return text.substr(begin, end - begin); }
  friend bool operator==(const JsonSpan&, const JsonSpan&) = default;
};

/// A field of an object.
struct JsonMember {
  JsonSpan name;  ///< with its quotes
  JsonSpan value;
};

/// What may stand between the parts of a JSON text.
inline constexpr std::string_view json_blanks = " \t\r\n";

/// The first value at or behind a place of the text.
JsonSpan json_value_at(std::string_view text, std::size_t place);
/// The fields of an object, in their order.
std::vector<JsonMember> json_members(std::string_view text, JsonSpan object);
/// The values of a list, in their order.
std::vector<JsonSpan> json_items(std::string_view text, JsonSpan list);

}  // namespace aluframe::io

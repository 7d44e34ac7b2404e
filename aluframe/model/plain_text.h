#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace aluframe::model {

/// Names and titles stand in lines of reports and tables. This finds the first character that would
/// break such a line or turn its order on the screen, so that a text could look like other lines:
/// control characters (U+0000 to U+001F, U+007F to U+009F), the line and paragraph separators
/// (U+2028, U+2029) and what turns the direction of writing (U+202A to U+202E, U+2066 to U+2069).
///
/// @param text UTF-8
/// @return "U+000A behind \"Bridge\"", or nothing when all characters are plain
///
///     if (const auto found = find_control_character(name)) return "found " + *found;
std::optional<std::string> find_control_character(std::string_view text);

/// What a message says of a text in which that was found.
inline constexpr std::string_view plain_text_rule =
    "must be one line of text without control characters";

/// The text with a blank for every such character, to be shown.
std::string without_control_characters(std::string_view text);

}  // namespace aluframe::model

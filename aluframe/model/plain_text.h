#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "aluframe/texts/text.h"

namespace aluframe::model {

/// Names and titles stand in lines of reports and tables. This finds the first character that would
/// break such a line or turn its order on the screen, so that a text could look like other lines:
/// control characters (U+0000 to U+001F, U+007F to U+009F), the line and paragraph separators
/// (U+2028, U+2029) and what marks or turns the direction of writing (U+061C, U+200E, U+200F,
/// U+202A to U+202E, U+2066 to U+2069).
///
/// @param text UTF-8
/// @return "U+000A behind \"Bridge\"", or nothing when all characters are plain
///
///     if (const auto found = find_control_character(name)) return "found " + *found;
std::optional<std::string> find_control_character(std::string_view text);

/// What a message says of a text in which that was found.
inline constexpr std::string_view plain_text_rule =
    texts::translatable("must be one line of text without control characters");

/// The text with a blank for every such character: for a line or a cell that is shown.
std::string without_control_characters(std::string_view text);

/// Lines of text for a terminal: the same, with the line feeds left.
std::string for_terminal(std::string_view text);

/// A cell of CSV: the same, quoted where it must be, and with an apostrophe in front where a
/// spreadsheet would take it for a formula (= + - @).
std::string for_csv(std::string_view text);

/// JSON with an escape (\u009B) for every such character that it may hold as it is: the same data.
std::string for_json(std::string_view json);

}  // namespace aluframe::model

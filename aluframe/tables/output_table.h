#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace aluframe::tables {

/// Colours of a terminal: of a ratio over 1, and of all else.
inline constexpr std::string_view red = "\x1b[31m";
inline constexpr std::string_view plain = "\x1b[0m";

enum class Format { table, json, csv };

std::optional<Format> parse_format(std::string_view name);

/// What the program says, unlike a name of the user's: English in JSON and CSV, in a text table in
/// the language in use (`texts::sentence_in_words`).
struct Phrase {
  std::string english;

  friend bool operator==(const Phrase&, const Phrase&) = default;
};

/// Nothing, a text, one of the program's own, a whole number, a number or a truth value.
using Cell = std::variant<std::monostate, std::string, Phrase, std::int64_t, double, bool>;

struct Column {
  std::string key;             ///< name in JSON and CSV
  std::string heading;         ///< name in a text table, English
  int decimals = 3;            ///< of numbers in a text table
  bool is_ratio = false;       ///< shown in red where it exceeds 1
  bool is_scientific = false;  ///< "2.1e-14" in a text table
};

/// Rows for the user, printed in any of the formats.
struct OutputTable {
  std::vector<Column> columns;
  std::vector<std::vector<Cell>> rows;
};

/// "  worst ratio   0.853": a line of a summary, its name in the language in use.
std::string line_of(std::string_view name, const std::string& value);

/// A number with 17 significant digits, "inf", "-inf" or "nan".
std::string full_number(double value);

/// What stands in a cell of a text table: in the language in use, in one line without control
/// characters, numbers with the digits of their column, "-" for nothing.
std::string cell_text(const Column& column, const Cell& cell);
/// The name of a column in the language in use.
std::string heading_text(const Column& column);
/// Whether it is a ratio that exceeds 1.
bool is_over(const Column& column, const Cell& cell);

/// Aligned columns; what holds nothing is shown as "-".
std::string to_text(const OutputTable& table, bool colour);
/// Comma-separated values with a header line; texts are quoted where they must be.
std::string to_csv(const OutputTable& table);
/// A list with one object a row; numbers that are not finite are texts.
std::string to_json(const OutputTable& table);

/// A list of one object: the first row of the table, and behind it other tables as lists by their
/// names.
std::string to_json_with(const OutputTable& table,
                         const std::vector<std::pair<std::string, OutputTable>>& lists);

/// The table in one of the three formats.
std::string render(const OutputTable& table, Format format, bool colour);

}  // namespace aluframe::tables

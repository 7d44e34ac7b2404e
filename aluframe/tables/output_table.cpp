#include "aluframe/tables/output_table.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <utility>

#include "aluframe/model/plain_text.h"
#include "aluframe/services/run_monitor.h"
#include "aluframe/services/text.h"
#include "aluframe/texts/sentence.h"
#include "aluframe/texts/text.h"

namespace aluframe::tables {

namespace {

std::string name_of_non_finite(double value) {
  if (std::isnan(value)) return "nan";
  return value > 0 ? "inf" : "-inf";
}

/// What rounds to zero has no sign: "-0.000" would look as if it meant something.
std::string fixed(double value, int decimals) {
  std::string text = fmt::format("{:.{}f}", value, decimals);
  if (text.find_first_of("123456789") == std::string::npos) std::erase(text, '-');
  return text;
}

struct TextOf {
  const Column& column;
  std::string operator()(std::monostate) const { return "-"; }
  /// A name may hold a line break or an escape: neither may break the table or reach the terminal.
  std::string operator()(const std::string& text) const {
    return model::without_control_characters(text);
  }
  std::string operator()(const Phrase& phrase) const {
    return model::without_control_characters(texts::sentence_in_words(phrase.english));
  }
  std::string operator()(std::int64_t value) const { return fmt::format("{}", value); }
  std::string operator()(bool value) const {
    return value ? texts::translated("yes") : texts::translated("no");
  }
  std::string operator()(double value) const {
    if (!std::isfinite(value)) return name_of_non_finite(value);
    return column.is_scientific ? fmt::format("{:.1e}", value) : fixed(value, column.decimals);
  }
};

struct CsvOf {
  std::string operator()(std::monostate) const { return ""; }
  std::string operator()(std::int64_t value) const { return fmt::format("{}", value); }
  std::string operator()(bool value) const { return value ? "true" : "false"; }
  std::string operator()(double value) const { return full_number(value); }
  std::string operator()(const std::string& text) const { return model::for_csv(text); }
  std::string operator()(const Phrase& phrase) const { return model::for_csv(phrase.english); }
};

struct JsonOf {
  nlohmann::ordered_json operator()(std::monostate) const { return nullptr; }
  nlohmann::ordered_json operator()(double value) const {
    if (!std::isfinite(value)) return name_of_non_finite(value);
    return value;
  }
  nlohmann::ordered_json operator()(const Phrase& phrase) const { return phrase.english; }
  template <class Value>
  nlohmann::ordered_json operator()(const Value& value) const {
    return value;
  }
};

/// Characters that take two columns of a terminal: Chinese, Japanese and Korean script, full-width
/// forms, pictographs (Unicode, East Asian width).
constexpr std::pair<char32_t, char32_t> wide_characters[] = {
    {0x1100, 0x115F}, {0x2E80, 0x303E}, {0x3041, 0xA4CF}, {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},
    {0xFE30, 0xFE6F}, {0xFF00, 0xFF60}, {0xFFE0, 0xFFE6}, {0x1F300, 0x1FAFF}, {0x20000, 0x3FFFD},
};

bool is_wide(char32_t character) {
  return std::ranges::any_of(wide_characters, [character](const auto& range) {
    return range.first <= character && character <= range.second;
  });
}

/// Columns of the screen that a UTF-8 text takes.
std::size_t display_width(std::string_view text) {
  std::size_t width = 0;
  for (const char32_t character : services::characters_of(text))
    width += is_wide(character) ? 2 : 1;
  return width;
}

std::string padded(const std::string& text, std::size_t width, bool to_left) {
  const std::string blanks(width - std::min(width, display_width(text)), ' ');
  return to_left ? text + blanks : blanks + text;
}

void trim_right(std::string& line) {
  line.erase(line.find_last_not_of(' ') + 1);
}

std::vector<std::vector<std::string>> texts_of(const OutputTable& table) {
  std::vector<std::vector<std::string>> texts;
  for (const auto& row : table.rows) {
    auto& line = texts.emplace_back();
    for (std::size_t i = 0; i < row.size(); ++i) {
      line.push_back(cell_text(table.columns[i], row[i]));
    }
  }
  return texts;
}

std::vector<std::string> headings_of(const OutputTable& table) {
  std::vector<std::string> headings;
  headings.reserve(table.columns.size());
  for (const Column& column : table.columns) headings.push_back(heading_text(column));
  return headings;
}

std::vector<std::size_t> widths_of(const std::vector<std::string>& headings,
                                   const std::vector<std::vector<std::string>>& texts) {
  std::vector<std::size_t> widths;
  widths.reserve(headings.size());
  for (const std::string& heading : headings) widths.push_back(display_width(heading));
  for (const auto& line : texts) {
    for (std::size_t i = 0; i < line.size(); ++i) {
      widths[i] = std::max(widths[i], display_width(line[i]));
    }
  }
  return widths;
}

/// A column of texts stands to the left, one of numbers to the right.
bool stands_left(const OutputTable& table, std::size_t column) {
  return std::ranges::any_of(table.rows, [column](const auto& row) {
    return std::holds_alternative<std::string>(row[column]) ||
           std::holds_alternative<Phrase>(row[column]);
  });
}

nlohmann::ordered_json object_of(const OutputTable& table, const std::vector<Cell>& row) {
  nlohmann::ordered_json object = nlohmann::ordered_json::object();
  for (std::size_t i = 0; i < row.size(); ++i) {
    object[table.columns[i].key] = std::visit(JsonOf(), row[i]);
  }
  return object;
}

/// In one line; a name that is no UTF-8 has its bytes replaced.
std::string dumped(const nlohmann::ordered_json& value) {
  return model::for_json(
      value.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace));
}

}  // namespace

std::optional<Format> parse_format(std::string_view name) {
  if (name == "table") return Format::table;
  if (name == "json") return Format::json;
  if (name == "csv") return Format::csv;
  return std::nullopt;
}

std::string line_of(std::string_view name, const std::string& value) {
  constexpr std::size_t width = 14, gap = 2;
  const std::string shown(texts::translation_of(name));
  return "  " + padded(shown, std::max(width, display_width(shown) + gap), true) + value + "\n";
}

std::string full_number(double value) {
  return std::isfinite(value) ? fmt::format("{:.17g}", value) : name_of_non_finite(value);
}

std::string cell_text(const Column& column, const Cell& cell) {
  return std::visit(TextOf{column}, cell);
}

std::string heading_text(const Column& column) {
  return texts::sentence_in_words(column.heading);
}

bool is_over(const Column& column, const Cell& cell) {
  const double* ratio = std::get_if<double>(&cell);
  return column.is_ratio && ratio != nullptr && services::exceeds_limit(*ratio);
}

std::string to_text(const OutputTable& table, bool colour) {
  const auto texts = texts_of(table);
  const auto headings = headings_of(table);
  const auto widths = widths_of(headings, texts);
  std::string out;
  const auto add_line = [&](const auto& cell_text) {
    std::string line;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      line += (i == 0 ? "" : "  ") + cell_text(i);
    }
    trim_right(line);
    out += line + "\n";
  };
  std::vector<bool> left(table.columns.size());
  for (std::size_t i = 0; i < left.size(); ++i) left[i] = stands_left(table, i);
  add_line([&](std::size_t i) { return padded(headings[i], widths[i], left[i]); });
  add_line([&](std::size_t i) { return std::string(widths[i], '-'); });
  for (std::size_t r = 0; r < texts.size(); ++r) {
    add_line([&](std::size_t i) {
      const std::string text = padded(texts[r][i], widths[i], left[i]);
      return colour && is_over(table.columns[i], table.rows[r][i])
                 ? std::string(red) + text + std::string(plain)
                 : text;
    });
  }
  return out;
}

std::string to_csv(const OutputTable& table) {
  std::string out;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    out += (i == 0 ? "" : ",") + CsvOf()(table.columns[i].key);
  }
  out += "\n";
  for (const auto& row : table.rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      out += (i == 0 ? "" : ",") + std::visit(CsvOf(), row[i]);
    }
    out += "\n";
  }
  return out;
}

std::string to_json(const OutputTable& table) {
  std::string out = "[";
  for (std::size_t r = 0; r < table.rows.size(); ++r) {
    out += (r == 0 ? "\n  " : ",\n  ") + dumped(object_of(table, table.rows[r]));
  }
  return out + (table.rows.empty() ? "]\n" : "\n]\n");
}

std::string to_json_with(const OutputTable& table,
                         const std::vector<std::pair<std::string, OutputTable>>& lists) {
  nlohmann::ordered_json object = object_of(table, table.rows.front());
  for (const auto& [name, list] : lists) {
    nlohmann::ordered_json& rows = object[name] = nlohmann::ordered_json::array();
    for (const auto& row : list.rows) rows.push_back(object_of(list, row));
  }
  return "[\n  " + dumped(object) + "\n]\n";
}

std::string render(const OutputTable& table, Format format, bool colour) {
  switch (format) {
    case Format::json:
      return to_json(table);
    case Format::csv:
      return to_csv(table);
    case Format::table:
      break;
  }
  return to_text(table, colour);
}

}  // namespace aluframe::tables

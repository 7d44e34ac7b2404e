#include "aluframe/model/plain_text.h"

#include <array>
#include <cstdint>
#include <cstdio>

#include "aluframe/texts/text.h"

namespace aluframe::model {

namespace {

struct Character {
  std::size_t length = 0;  ///< bytes of UTF-8; 0 for none
  std::uint32_t code = 0;
};

/// The control character that the text begins with. None is outside these forms of UTF-8.
Character control_character_at(std::string_view text) {
  const auto byte = [&](std::size_t i) -> std::uint32_t {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U;
  };
  if (byte(0) < 0x20 || byte(0) == 0x7F) return {1, byte(0)};
  if (byte(0) == 0xC2 && byte(1) >= 0x80 && byte(1) <= 0x9F) return {2, byte(1)};
  if (byte(0) == 0xD8 && byte(1) == 0x9C) return {2, 0x061C};
  if (byte(0) != 0xE2) return {};
  const bool is_mark = byte(1) == 0x80 && (byte(2) == 0x8E || byte(2) == 0x8F);
  const bool is_separator_or_turn = byte(1) == 0x80 && byte(2) >= 0xA8 && byte(2) <= 0xAE;
  const bool is_isolate = byte(1) == 0x81 && byte(2) >= 0xA6 && byte(2) <= 0xA9;
  if (!is_mark && !is_separator_or_turn && !is_isolate) return {};
  return {3, 0x2000U + (byte(1) & 0x3FU) * 0x40U + (byte(2) & 0x3FU)};
}

std::string code_text(std::uint32_t code) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "U+%04X", static_cast<unsigned>(code));
  return text.data();
}

/// The end of what stands before a place, so that the user finds it.
std::string place_text(std::string_view before) {
  constexpr std::size_t longest = 20;
  if (before.empty()) return texts::translated(" at the beginning");
  std::size_t start = before.size() > longest ? before.size() - longest : 0;
  while (start < before.size() && (static_cast<unsigned char>(before[start]) & 0xC0U) == 0x80U)
    ++start;
  return texts::translated(" behind \"{}\"", before.substr(start));
}

/// The text with what `replacement` gives for the code of every such character.
template <class Replacement>
std::string with_each_replaced(std::string_view text, const Replacement& replacement) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const Character found = control_character_at(text.substr(i));
    out += found.length > 0 ? replacement(found.code) : std::string(1, text[i]);
    i += found.length > 0 ? found.length : 1;
  }
  return out;
}

}  // namespace

std::optional<std::string> find_control_character(std::string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const Character found = control_character_at(text.substr(i));
    if (found.length > 0) return code_text(found.code) + place_text(text.substr(0, i));
  }
  return std::nullopt;
}

std::string without_control_characters(std::string_view text) {
  return with_each_replaced(text, [](std::uint32_t) { return std::string(" "); });
}

std::string for_terminal(std::string_view text) {
  return with_each_replaced(
      text, [](std::uint32_t code) { return std::string(code == '\n' ? "\n" : " "); });
}

std::string for_csv(std::string_view text) {
  std::string cell = without_control_characters(text);
  constexpr std::string_view formula_starts = "=+-@";
  if (!cell.empty() && formula_starts.find(cell.front()) != std::string_view::npos) {
    cell.insert(cell.begin(), '\'');
  }
  if (cell.find_first_of(",\"") == std::string::npos) return cell;
  std::string quoted = "\"";
  for (const char c : cell) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
  return quoted + "\"";
}

std::string for_json(std::string_view json) {
  return with_each_replaced(json, [](std::uint32_t code) {
    if (code < 0x80) return std::string(1, static_cast<char>(code));  // escaped, or layout
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "\\u%04X", static_cast<unsigned>(code));
    return std::string(text.data());
  });
}

}  // namespace aluframe::model

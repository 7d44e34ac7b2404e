#include "aluframe/model/xml_text.h"

#include <array>
#include <cstdint>
#include <utility>

#include "aluframe/model/plain_text.h"

namespace aluframe::model {

namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";  // U+FFFD

constexpr std::array<std::pair<char, std::string_view>, 5> entities{
    {{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}, {'\'', "&#39;"}}};

unsigned byte_at(std::string_view text, std::size_t place) {
  return place < text.size() ? static_cast<unsigned char>(text[place]) : 0U;
}

/// How many bytes a character takes by its first one; 0: none begins so.
std::size_t length_by(unsigned first) {
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first <= 0xDF) return 2;
  if (first >= 0xE0 && first <= 0xEF) return 3;
  return first >= 0xF0 && first <= 0xF4 ? 4 : 0;
}

/// The length of the character of XML that the text has at a place; 0: there is none.
std::size_t character_at(std::string_view text, std::size_t place) {
  const unsigned first = byte_at(text, place);
  const std::size_t length = length_by(first);
  if (length < 2) return length;
  std::uint32_t code = first & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    const unsigned byte = byte_at(text, place + i);
    if ((byte & 0xC0U) != 0x80U) return 0;
    code = code << 6U | (byte & 0x3FU);
  }
  constexpr std::array<std::uint32_t, 5> least{0, 0, 0x80, 0x800, 0x10000};
  const bool is_surrogate = code >= 0xD800 && code <= 0xDFFF;
  const bool is_excluded = code == 0xFFFE || code == 0xFFFF || code > 0x10FFFF;
  return code < least[length] || is_surrogate || is_excluded ? 0 : length;
}

}  // namespace

std::string for_xml(std::string_view text) {
  const std::string plain = without_control_characters(text);
  std::string out;
  for (std::size_t i = 0; i < plain.size();) {
    const std::size_t length = character_at(plain, i);
    std::string_view written =
        length == 0 ? replacement : std::string_view(plain).substr(i, length);
    for (const auto& [character, entity] : entities) {
      if (plain[i] == character) written = entity;
    }
    out += written;
    i += length == 0 ? 1 : length;
  }
  return out;
}

}  // namespace aluframe::model

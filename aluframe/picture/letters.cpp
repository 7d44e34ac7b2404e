#include "aluframe/picture/letters.h"

#include <algorithm>

namespace aluframe::picture {

namespace {

bool continues(char c) {
  return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

/// Length in bytes of the character that begins at a place.
std::size_t length_at(std::string_view text, std::size_t place) {
  std::size_t length = 1;
  while (place + length < text.size() && continues(text[place + length])) ++length;
  return length;
}

double width_of_character(std::string_view character) {
  const char first = character.front();
  constexpr std::string_view narrow = "ijl.,:;'|!()[]\" ", wide = "mwMW@%";
  // From U+2E80 on, three bytes: ideographs, kana and their marks.
  if (character.size() >= 3) return static_cast<unsigned char>(first) >= 0xE3 ? 1.0 : 0.6;
  if (narrow.find(first) != std::string_view::npos) return 0.32;
  if (wide.find(first) != std::string_view::npos) return 0.88;
  const bool is_capital = first >= 'A' && first <= 'Z';
  return is_capital ? 0.68 : 0.57;
}

}  // namespace

double width_of(std::string_view utf8) {
  double width = 0.0;
  for (std::size_t i = 0; i < utf8.size();) {
    const std::size_t length = length_at(utf8, i);
    width += width_of_character(utf8.substr(i, length));
    i += length;
  }
  return width;
}

std::vector<std::string> wrapped(std::string_view utf8, double width) {
  std::vector<std::string> lines{""};
  double taken = 0.0;
  for (std::size_t i = 0; i < utf8.size();) {
    const std::size_t length = length_at(utf8, i);
    const std::string_view character = utf8.substr(i, length);
    const double needed = width_of_character(character);
    std::string& line = lines.back();
    if (taken + needed > width && !line.empty()) {
      const std::size_t blank = line.rfind(' ');
      std::string rest;
      if (blank != std::string::npos && blank > 0) {
        rest = line.substr(blank + 1);
        line.resize(blank);
      }
      taken = width_of(rest);
      lines.push_back(std::move(rest));
    }
    lines.back() += character;
    taken += needed;
    i += length;
  }
  return lines;
}

}  // namespace aluframe::picture

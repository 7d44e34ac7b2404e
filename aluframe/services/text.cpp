#include "aluframe/services/text.h"

#include <cstdint>
#include <type_traits>

namespace aluframe::services {

namespace {

constexpr std::uint32_t replacement = 0xFFFD;

/// A wide character as a number, whatever its sign on the platform.
using wide_unit = std::make_unsigned_t<wchar_t>;
/// Where wide characters have 16 bits, those beyond are two units: 10 bits each, behind these.
constexpr bool has_pairs = sizeof(wchar_t) == 2;
constexpr std::uint32_t first_half = 0xD800, second_half = 0xDC00, beyond = 0x10000;

bool is_scalar_value(std::uint32_t code) {
  return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

void append_utf8(std::string& out, std::uint32_t code) {
  const auto put = [&out](std::uint32_t byte) { out.push_back(static_cast<char>(byte)); };
  if (code < 0x80) {
    put(code);
  } else if (code < 0x800) {
    put(0xC0 | (code >> 6));
    put(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    put(0xE0 | (code >> 12));
    put(0x80 | ((code >> 6) & 0x3F));
    put(0x80 | (code & 0x3F));
  } else {
    put(0xF0 | (code >> 18));
    put(0x80 | ((code >> 12) & 0x3F));
    put(0x80 | ((code >> 6) & 0x3F));
    put(0x80 | (code & 0x3F));
  }
}

/// How many bytes the sequence that `lead` starts has; 0 when it starts none.
std::size_t sequence_length(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead < 0xE0) return 2;
  if (lead >= 0xE0 && lead < 0xF0) return 3;
  if (lead >= 0xF0 && lead < 0xF5) return 4;
  return 0;
}

/// Takes one code point off the front of `text`.
std::uint32_t take_code_point(std::string_view& text) {
  const auto byte = [&text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const std::size_t length = sequence_length(byte(0));
  constexpr std::uint32_t lead_bits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
  constexpr std::uint32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
  std::uint32_t code = replacement;
  std::size_t used = 1;
  if (length > 0 && length <= text.size()) {
    std::uint32_t value = byte(0) & lead_bits[length];
    while (used < length && (byte(used) & 0xC0) == 0x80)
      value = (value << 6) | (byte(used++) & 0x3F);
    if (used == length && value >= smallest[length] && is_scalar_value(value)) code = value;
  }
  text.remove_prefix(used);
  return code;
}

std::uint32_t unit_at(const CString& text, int i) {
  return static_cast<wide_unit>(text.GetAt(i));
}

/// Whether the unit and the next one are one character.
bool is_pair(const CString& text, int i) {
  const auto is_half = [&text](int at, std::uint32_t half) {
    return (unit_at(text, at) & 0xFFFFFC00) == half;
  };
  return has_pairs && i + 1 < text.GetLength() && is_half(i, first_half) &&
         is_half(i + 1, second_half);
}

std::uint32_t character_of(std::uint32_t first, std::uint32_t second) {
  return beyond + ((first - first_half) << 10) + (second - second_half);
}

void append_wide(std::wstring& out, std::uint32_t code) {
  const auto put = [&out](std::uint32_t unit) { out.push_back(static_cast<wchar_t>(unit)); };
  if (has_pairs && code >= beyond) {
    put(first_half + ((code - beyond) >> 10));
    put(second_half + ((code - beyond) & 0x3FF));
  } else {
    put(code);
  }
}

}  // namespace

std::string to_utf8(const CString& text) {
  std::string out;
  for (int i = 0; i < text.GetLength(); ++i) {
    std::uint32_t code = unit_at(text, i);
    if (is_pair(text, i)) code = character_of(code, unit_at(text, ++i));
    append_utf8(out, is_scalar_value(code) ? code : replacement);
  }
  return out;
}

CString to_wide(std::string_view text) {
  std::wstring out;
  while (!text.empty()) append_wide(out, take_code_point(text));
  return out;
}

std::u32string characters_of(std::string_view text) {
  std::u32string out;
  while (!text.empty()) out.push_back(static_cast<char32_t>(take_code_point(text)));
  return out;
}

}  // namespace aluframe::services

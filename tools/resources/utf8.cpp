#include "tools/resources/utf8.h"

#include <cstddef>

namespace resources {

namespace {

/// How a sequence begins: the first byte under `mask` is `lead`, `following` bytes of six bits come
/// after it, and code points below `smallest` have a shorter form.
struct Form {
  unsigned mask;
  unsigned lead;
  std::size_t following;
  char32_t smallest;
};

constexpr Form forms[] = {
    {0x80, 0x00, 0, 0x0}, {0xE0, 0xC0, 1, 0x80}, {0xF0, 0xE0, 2, 0x800}, {0xF8, 0xF0, 3, 0x10000}};

const Form* form_of(unsigned char first) {
  for (const Form& form : forms) {
    if ((first & form.mask) == form.lead) return &form;
  }
  return nullptr;
}

bool is_character(char32_t code) {
  const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
  return code <= 0x10FFFF && !surrogate;
}

/// Takes one code point off the front of `bytes`.
std::optional<char32_t> take_code_point(std::string_view& bytes) {
  const auto first = static_cast<unsigned char>(bytes.front());
  const Form* form = form_of(first);
  if (form == nullptr || bytes.size() <= form->following) return std::nullopt;
  char32_t code = first & ~form->mask;
  for (std::size_t i = 1; i <= form->following; ++i) {
    const auto next = static_cast<unsigned char>(bytes[i]);
    if ((next & 0xC0U) != 0x80U) return std::nullopt;
    code = (code << 6U) | (next & 0x3FU);
  }
  if (code < form->smallest || !is_character(code)) return std::nullopt;
  bytes.remove_prefix(form->following + 1);
  return code;
}

}  // namespace

std::optional<std::u32string> decode_utf8(std::string_view bytes) {
  std::u32string text;
  while (!bytes.empty()) {
    const std::optional<char32_t> code = take_code_point(bytes);
    if (!code) return std::nullopt;
    text += *code;
  }
  return text;
}

}  // namespace resources

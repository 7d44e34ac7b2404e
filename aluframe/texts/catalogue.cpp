#include "aluframe/texts/catalogue.h"

#include "aluframe/texts/text.h"

#include <stdexcept>

namespace aluframe::texts {

namespace {

constexpr std::uint32_t magic_number = 0x950412de;

// Where the header holds what (GNU gettext manual, "The Format of GNU MO Files").
constexpr std::uint32_t magic_at = 0;
constexpr std::uint32_t count_at = 8;
constexpr std::uint32_t originals_at = 12;
constexpr std::uint32_t translations_at = 16;

constexpr std::uint32_t bytes_of_entry = 8;

[[noreturn]] void refuse() {
  throw std::runtime_error(texts::translated("the catalogue of texts is damaged"));
}

}  // namespace

Catalogue::Catalogue(std::string_view compiled) : compiled_(compiled) {
  if (number(magic_at) != magic_number) refuse();
  count_ = number(count_at);
  originals_ = number(originals_at);
  translations_ = number(translations_at);
}

std::optional<std::string_view> Catalogue::find(std::string_view english) const {
  std::uint32_t first = 0;
  std::uint32_t last = count_;
  while (first < last) {
    const std::uint32_t middle = first + (last - first) / 2;
    const std::string_view found = original(middle);
    if (found == english) return translation(middle);
    if (found < english) {
      first = middle + 1;
    } else {
      last = middle;
    }
  }
  return std::nullopt;
}

std::string_view Catalogue::text(std::uint32_t table, std::uint32_t index) const {
  const std::uint32_t entry = table + index * bytes_of_entry;
  const std::uint32_t length = number(entry);
  const std::uint32_t offset = number(entry + 4);
  if (offset > compiled_.size() || length > compiled_.size() - offset) refuse();
  return compiled_.substr(offset, length);
}

std::uint32_t Catalogue::number(std::uint32_t offset) const {
  if (compiled_.size() < 4 || offset > compiled_.size() - 4) refuse();
  std::uint32_t value = 0;
  for (std::uint32_t i = 4; i-- > 0;) {
    value = value << 8U | static_cast<unsigned char>(compiled_[offset + i]);
  }
  return value;
}

}  // namespace aluframe::texts

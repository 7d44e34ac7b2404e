#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace aluframe::texts {

/// A compiled catalogue of GNU gettext (".mo", little-endian): the translations of English texts.
class Catalogue {
 public:
  /// @param compiled the bytes of the file, which outlive the catalogue
  /// @throws std::runtime_error when they are no such file
  explicit Catalogue(std::string_view compiled);

  /// The translation of a text; nothing when there is none.
  std::optional<std::string_view> find(std::string_view english) const;

  /// All its texts, in the order of their bytes.
  std::uint32_t size() const { return count_; }
  /// @param index below `size()`
  std::string_view original(std::uint32_t index) const { return text(originals_, index); }
  std::string_view translation(std::uint32_t index) const { return text(translations_, index); }

 private:
  std::string_view text(std::uint32_t table, std::uint32_t index) const;
  std::uint32_t number(std::uint32_t offset) const;

  std::string_view compiled_;
  std::uint32_t count_ = 0;
  std::uint32_t originals_ = 0;
  std::uint32_t translations_ = 0;
};

/// That of Simplified Chinese, part of the program.
Catalogue chinese_catalogue();

}  // namespace aluframe::texts

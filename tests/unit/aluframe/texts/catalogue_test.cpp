#include "aluframe/texts/catalogue.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace aluframe::texts {
namespace {

void append(std::string& bytes, std::uint32_t value) {
  for (int i = 0; i < 4; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFFU);
}

/// "no" -> "nein" and "yes" -> "ja", laid out by hand: a header of 28 bytes, two tables of two
/// entries of 8 bytes, the texts from byte 60 on.
std::string two_texts() {
  std::string bytes;
  for (const std::uint32_t value : {0x950412deU, 0U, 2U, 28U, 44U, 0U, 0U}) append(bytes, value);
  for (const std::uint32_t value : {2U, 60U, 3U, 63U}) append(bytes, value);
  for (const std::uint32_t value : {4U, 67U, 2U, 72U}) append(bytes, value);
  return bytes + std::string("no\0yes\0nein\0ja\0", 15);
}

TEST(Catalogue, FindsItsTexts) {
  const std::string bytes = two_texts();
  const Catalogue catalogue(bytes);
  EXPECT_EQ(catalogue.size(), 2U);
  EXPECT_EQ(catalogue.find("no"), "nein");
  EXPECT_EQ(catalogue.find("yes"), "ja");
  for (const char* other : {"", "n", "noo", "yes ", "zzz", "ja"}) {
    EXPECT_EQ(catalogue.find(other), std::nullopt) << other;
  }
}

TEST(Catalogue, DamagedBytesAreRefused) {
  const std::string whole = two_texts();
  for (std::size_t size = 0; size < 20; ++size) {
    EXPECT_THROW(Catalogue(std::string_view(whole).substr(0, size)), std::runtime_error) << size;
  }
  std::string other_file = whole;
  other_file[0] = 'x';
  EXPECT_THROW(Catalogue{other_file}, std::runtime_error);
  std::string text_beyond_the_end = whole;
  text_beyond_the_end[28] = 100;
  const Catalogue catalogue(text_beyond_the_end);
  EXPECT_THROW(catalogue.find("no"), std::runtime_error);
}

}  // namespace
}  // namespace aluframe::texts

#include "tools/resources/symbols.h"

#include <gmock/gmock.h>

#include "tools/resources/source_error.h"

namespace resources {

bool operator==(const Symbol& a, const Symbol& b) {
  return a.name == b.name && a.number == b.number;
}

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string refusal(const std::string& source) {
  try {
    read_symbols("r.h", source);
  } catch (const SourceError& error) {
    return error.what();
  }
  return "accepted";
}

TEST(Symbols, AreReadInTheOrderOfTheHeader) {
  EXPECT_THAT(read_symbols("r.h", "#define B 7963\n#define A 2\n"),
              ElementsAre(Symbol{"B", 7963}, Symbol{"A", 2}));
}

TEST(Symbols, MayBeHexadecimal) {
  EXPECT_THAT(read_symbols("r.h", "#define A 0xFFFF"), ElementsAre(Symbol{"A", 65535}));
}

TEST(Symbols, MayShareANumber) {
  EXPECT_THAT(read_symbols("r.h", "#define A 1\n#define B 1"),
              ElementsAre(Symbol{"A", 1}, Symbol{"B", 1}));
}

TEST(Symbols, StandBesideCommentsAndPragmas) {
  EXPECT_THAT(read_symbols("r.h", "#pragma once\r\n// x\r\n#define A 1 // y\r\n/* z */"),
              ElementsAre(Symbol{"A", 1}));
}

TEST(Symbols, AHeaderMayHaveNone) {
  EXPECT_THAT(read_symbols("r.h", "// nothing\n"), IsEmpty());
}

TEST(Symbols, ANumberOnTheNextLineIsRefused) {
  EXPECT_EQ(refusal("#define A\n5"), "r.h:2: found 5, allowed the number of A on its line");
}

TEST(Symbols, AMissingNumberIsRefused) {
  EXPECT_EQ(refusal("\n#define A"),
            "r.h:2: found the end of the file, allowed the number of A from 0 to 65535");
}

TEST(Symbols, ANumberAbove16BitsIsRefused) {
  EXPECT_EQ(refusal("#define A 65536"),
            "r.h:1: found 65536, allowed the number of A from 0 to 65535");
}

TEST(Symbols, ANegativeNumberIsRefused) {
  EXPECT_EQ(refusal("#define A -1"), "r.h:1: found '-', allowed the number of A from 0 to 65535");
}

TEST(Symbols, ANameThatIsDefinedTwiceIsRefused) {
  EXPECT_EQ(refusal("#define A 1\n#define A 1"),
            "r.h:2: found A, allowed a symbol that is not defined yet");
}

TEST(Symbols, ANumberForANameIsRefused) {
  EXPECT_EQ(refusal("#define 5 5"), "r.h:1: found 5, allowed a symbol");
}

TEST(Symbols, MoreOnTheLineIsRefused) {
  EXPECT_EQ(refusal("#define A 1 + 1"),
            "r.h:1: found '+', allowed a word, a number, a text "
            "in double quotes or one of ,|-{}#<>().");
  EXPECT_EQ(refusal("#define A 1 B"), "r.h:1: found B, allowed the end of the line");
}

TEST(Symbols, OtherDirectivesAreRefused) {
  EXPECT_EQ(refusal("#ifdef A"), "r.h:1: found ifdef, allowed define or pragma");
}

TEST(Symbols, OtherLinesAreRefused) {
  EXPECT_EQ(refusal("int a"), "r.h:1: found int, allowed '#'");
}

// Bytes written out by hand: mark FF FE, then two bytes a character, the low one first.
TEST(HeaderResource, IsUtf16WithMarkAndLineEnds) {
  const std::string expected("\xFF\xFE#\0d\0e\0f\0i\0n\0e\0 \0I\0D\0O\0K\0 \0001\0\r\0\n\0",
                             2 + 2 * 16);
  EXPECT_EQ(header_resource({{"IDOK", 1}}), expected);
}

TEST(HeaderResource, OfNoSymbolsIsTheMark) {
  EXPECT_EQ(header_resource({}), "\xFF\xFE");
}

TEST(HeaderResource, WritesHexadecimalSymbolsAsDecimals) {
  const std::string bytes = header_resource(read_symbols("r.h", "#define A 0x1F1B"));
  std::string ascii;
  for (std::size_t i = 2; i < bytes.size(); i += 2) ascii += bytes[i];
  EXPECT_EQ(ascii, "#define A 7963\r\n");
}

}  // namespace
}  // namespace resources

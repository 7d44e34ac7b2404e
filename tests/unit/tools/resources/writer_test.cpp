#include "tools/resources/writer.h"

#include <gmock/gmock.h>

namespace resources {
namespace {

using testing::HasSubstr;

Dialog dialog_with_caption(const std::u32string& caption) {
  Dialog dialog;
  dialog.id = 7;
  dialog.caption = caption;
  return dialog;
}

std::string source_with_caption(const std::u32string& caption) {
  return cpp_source({{dialog_with_caption(caption)}, {}});
}

TEST(Writer, WritesCharactersOutsideAsciiAsCodePoints) {
  EXPECT_THAT(source_with_caption(U"\u94DDA\u00E9\U0001F600"),
              HasSubstr(R"(L"\u94DDA\u00E9\U0001F600")"));
}

TEST(Writer, EscapesQuotesAndBackslashes) {
  EXPECT_THAT(source_with_caption(U"a\"b\\c"), HasSubstr(R"(L"a\"b\\c")"));
}

// Line feed is 012 in octal, delete 177, U+0085 205; "7" behind it stays a digit of its own.
TEST(Writer, WritesControlCharactersAsOctalNumbers) {
  EXPECT_THAT(source_with_caption(U"\n7\x7F\u0085"), HasSubstr(R"(L"\0127\177\205")"));
}

TEST(Writer, WritesAsciiOnly) {
  for (const char c : source_with_caption(U"\u94DD\u00E9")) {
    EXPECT_TRUE((c >= ' ' && c <= '~') || c == '\n') << "byte " << static_cast<int>(c);
  }
}

TEST(Writer, WritesNoArrayOfNothing) {
  EXPECT_THAT(cpp_source({}), HasSubstr("kModuleResources = {{}, {}};"));
  EXPECT_THAT(source_with_caption(U""), HasSubstr(R"({7, L"", 0, 0, false, false, {}},)"));
  EXPECT_THAT(cpp_source({{}, {{9, "BINARY", ""}}}), HasSubstr(R"({9, L"BINARY", {}},)"));
}

TEST(Writer, WritesAControlWithAllItsFields) {
  Dialog dialog = dialog_with_caption(U"c");
  dialog.controls.push_back({CONTROL_KIND::Edit, 200, U"t", -1, 2, 3, 4,
                             CONTROL_TAB_STOP | CONTROL_HIDDEN | CONTROL_AUTO_SCROLL});
  EXPECT_THAT(cpp_source({{dialog}, {}}),
              HasSubstr("{CONTROL_KIND::Edit, 200, L\"t\", -1, 2, 3, 4, CONTROL_TAB_STOP | "
                        "CONTROL_HIDDEN | CONTROL_AUTO_SCROLL},"));
}

TEST(Writer, WritesBytesFrom0To255) {
  EXPECT_THAT(cpp_source({{}, {{9, "BINARY", std::string("\0\x7F\xFF", 3)}}}),
              HasSubstr("0x00, 0x7F, 0xFF,"));
}

}  // namespace
}  // namespace resources

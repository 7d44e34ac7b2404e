#include "aluframe/model/xml_text.h"

#include <gtest/gtest.h>

namespace aluframe::model {
namespace {

TEST(XmlText, EscapesMarkupAndQuotes) {
  EXPECT_EQ(for_xml("<a b='c'>\"d\" & e</a>"),
            "&lt;a b=&#39;c&#39;&gt;&quot;d&quot; &amp; e&lt;/a&gt;");
}

TEST(XmlText, LeavesLettersOfAnyLanguage) {
  EXPECT_EQ(for_xml("Träger 玻璃幕墙 𝛾 −1"), "Träger 玻璃幕墙 𝛾 −1");
}

TEST(XmlText, HasBlanksForControlCharactersAndMarksOfDirection) {
  EXPECT_EQ(for_xml("a\x01\n\x7F"
                    "b"),
            "a   b");
  EXPECT_EQ(for_xml("a\u202Eb\u200Fc\u2028d"), "a b c d");
}

// Forms that UTF-8 excludes: a byte without a lead, "/" in two bytes, a surrogate, beyond U+10FFFF,
// a character that is cut off; and U+FFFF, which XML excludes.
TEST(XmlText, ReplacesWhatIsNoCharacterOfXml) {
  EXPECT_EQ(for_xml("a\x80"
                    "b"),
            "a\uFFFDb");
  EXPECT_EQ(for_xml("\xC0\xAF"), "\uFFFD\uFFFD");
  EXPECT_EQ(for_xml("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(for_xml("\xF4\x90\x80\x80"), "\uFFFD\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(for_xml("\xE7\x8E"), "\uFFFD\uFFFD");
  EXPECT_EQ(for_xml("\xEF\xBF\xBF<"), "\uFFFD\uFFFD\uFFFD&lt;");
}

}  // namespace
}  // namespace aluframe::model

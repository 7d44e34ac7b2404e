#include "aluframe/services/messages.h"

#include <gtest/gtest.h>

namespace aluframe::services {
namespace {

// Every key that the design module asks for.
constexpr const wchar_t* keys[] = {
    L"IDS_MAIN_RIBBON_MENU_ALU_DGN", L"IDS_DGN_TEXT_READ_CHK_ALU", L"IDS_DGN_COM_ERROR_TITLE",
    L"IDS_ACS_NO_LCOM_GOOD",         L"IDS_ACS_NO_SECT_TYPE_GOOD", L"IDS_DGN_COM_END_DGN",
};

TEST(Messages, EveryKeyHasAnEnglishAndAChineseText) {
  for (const wchar_t* key : keys) {
    const CString english = message_text(key, Language::english);
    const CString chinese = message_text(key, Language::chinese);
    EXPECT_FALSE(english.IsEmpty());
    EXPECT_FALSE(english == key);
    EXPECT_FALSE(chinese == english);
    EXPECT_GE(chinese.GetAt(chinese.GetLength() - 1), L'\u2E80') << "not Chinese";
  }
}

TEST(Messages, AnUnknownKeyIsShownItself) {
  EXPECT_TRUE(message_text(L"IDS_NOTHING", Language::english) == L"IDS_NOTHING");
}

TEST(Messages, LanguagesAreNamedByTheirCodes) {
  EXPECT_EQ(parse_language("en"), Language::english);
  EXPECT_EQ(parse_language("zh"), Language::chinese);
  EXPECT_EQ(parse_language("de"), std::nullopt);
}

}  // namespace
}  // namespace aluframe::services

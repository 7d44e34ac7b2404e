#include "aluframe/services/messages.h"

#include <gtest/gtest.h>

#include <iterator>
#include <set>
#include <string>

namespace aluframe::services {
namespace {

// Every key that the design module asks for.
constexpr const wchar_t* keys[] = {
    L"IDS_MAIN_RIBBON_MENU_ALU_DGN",
    L"IDS_DGN_TEXT_READ_CHK_ALU",
    L"IDS_DGN_COM_ERROR_TITLE",
    L"IDS_ACS_NO_LCOM_GOOD",
    L"IDS_ACS_NO_SECT_TYPE_GOOD",
    L"IDS_DGN_COM_END_DGN",
    L"IDS_DGN_LIST_NAME",
    L"IDS_DGN_TEXT_DB_NAME",
    L"IDS_DGN_TEXT_NAME",
    L"IDS_DGN_COM_NO_SEL_MATL",
    L"IDS_DGN_CHK_TITLE_ERROR",
    L"IDS_DGN_CHK_STL_MATL_NAME_ERROR",
    L"IDS_DGN_CHK_MATL_ES_ERROR",
    L"IDS_DGN_CHK_MATL_PS_ERROR",
    L"IDS_DGN_CHK_MATL_FU_ERROR",
    L"IDS_DGN_CHK_MATL_FY1_ERROR",
    L"IDS_DGN_CHK_MATL_FY2_ERROR",
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

TEST(Messages, NoTwoKeysShareAText) {
  for (const Language language : {Language::english, Language::chinese}) {
    std::set<std::wstring> texts;
    for (const wchar_t* key : keys) texts.insert(message_text(key, language).GetString());
    EXPECT_EQ(texts.size(), std::size(keys));
  }
}

TEST(Messages, AnUnknownKeyIsShownItself) {
  for (const Language language : {Language::english, Language::chinese}) {
    EXPECT_TRUE(message_text(L"IDS_NOTHING", language) == L"IDS_NOTHING");
    EXPECT_TRUE(message_text(L"ids_dgn_com_end_dgn", language) == L"ids_dgn_com_end_dgn");
    EXPECT_TRUE(message_text(L"", language).IsEmpty());
  }
}

TEST(Messages, LanguagesAreNamedByTheirCodes) {
  EXPECT_EQ(parse_language("en"), Language::english);
  EXPECT_EQ(parse_language("zh"), Language::chinese);
  for (const char* other : {"de", "EN", "english", ""}) {
    EXPECT_EQ(parse_language(other), std::nullopt) << other;
  }
}

}  // namespace
}  // namespace aluframe::services

#include "aluframe/services/messages.h"

#include <gtest/gtest.h>

#include <iterator>
#include <set>
#include <string>

#include "tests/support/used_language.h"

namespace aluframe::services {
namespace {

using test_support::UsedLanguage;
using texts::Language;

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
    const CString english = message_text(key);
    const UsedLanguage used(Language::chinese);
    const CString chinese = message_text(key);
    EXPECT_FALSE(english.IsEmpty());
    EXPECT_FALSE(english == key);
    EXPECT_FALSE(chinese == english);
    EXPECT_GE(chinese.GetAt(chinese.GetLength() - 1), L'\u2E80') << "not Chinese";
  }
}

TEST(Messages, NoTwoKeysShareAText) {
  for (const Language language : {Language::english, Language::chinese}) {
    const UsedLanguage used(language);
    std::set<std::wstring> texts;
    for (const wchar_t* key : keys) texts.insert(message_text(key).GetString());
    EXPECT_EQ(texts.size(), std::size(keys));
  }
}

TEST(Messages, AnUnknownKeyIsShownItself) {
  for (const Language language : {Language::english, Language::chinese}) {
    const UsedLanguage used(language);
    EXPECT_TRUE(message_text(L"IDS_NOTHING") == L"IDS_NOTHING");
    EXPECT_TRUE(message_text(L"ids_dgn_com_end_dgn") == L"ids_dgn_com_end_dgn");
    EXPECT_TRUE(message_text(L"").IsEmpty());
  }
}

}  // namespace
}  // namespace aluframe::services

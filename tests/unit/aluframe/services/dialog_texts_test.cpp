// The texts of the design module's dialogs in the user's language.
#include "aluframe/services/dialog_texts.h"

#include <gmock/gmock.h>

#include <cwctype>
#include <set>
#include <string>

#include "aluframe/services/text.h"
#include "aluframe/texts/text.h"
#include "aluframe/toolkit/headless/headless_toolkit.h"
#include "host/framework/extension.h"
#include "host/tz_base/multi_lang.h"
#include "tests/support/used_language.h"
#include "tz_alu/dialogs/resource.h"
#include "tz_alu/module/init_tz_aludll.h"

namespace aluframe::services {
namespace {

using texts::Language;

class NoEvents : public host::DialogEvents {
 public:
  void ButtonClicked(int) override {}
  void ChoiceChanged(int) override {}
  void RowSelected(int, int) override {}
  void RowClicked(int, int) override {}
  void EnterPressed() override {}
  void EscapePressed() override {}
};

class DialogTexts : public testing::TestWithParam<UINT> {
 protected:
  DialogTexts() { Init_tz_aludll(); }

  static const DIALOG_TEMPLATE& dialog() { return *AfxFindDialogTemplate(GetParam()); }
  std::unique_ptr<host::DialogWindow> open(Language language) {
    const test_support::UsedLanguage used(language);
    return TranslatingToolkit(&toolkit_).Open(dialog(), events_);
  }

 private:
  NoEvents events_;
  toolkit::HeadlessToolkit toolkit_;
};

INSTANTIATE_TEST_SUITE_P(OfTheModule, DialogTexts,
                         testing::Values(IDD_DGN_ALU_CODE_DLG, IDD_DGN_ALU_MAT_DLG));

bool has_letters(std::wstring_view text) {
  return std::any_of(text.begin(), text.end(),
                     [](wchar_t c) { return std::iswalpha(static_cast<wint_t>(c)) != 0; });
}

/// Whether a text has a character of the Chinese script, U+4E00 to U+9FFF.
bool is_chinese(const CString& text) {
  const std::wstring letters = text.GetString();
  return std::any_of(letters.begin(), letters.end(),
                     [](wchar_t c) { return c >= 0x4E00 && c <= 0x9FFF; });
}

const CString& caption_of(const host::DialogWindow& window) {
  return dynamic_cast<const toolkit::HeadlessDialog&>(window).caption();
}

// The module itself fills in the labels of the units.
TEST_P(DialogTexts, AreAllChineseInChinese) {
  const auto window = open(Language::chinese);
  EXPECT_TRUE(is_chinese(caption_of(*window)));
  for (const CONTROL_TEMPLATE& control : dialog().controls) {
    if (!has_letters(control.text) || control.text == std::wstring(L"Unit")) continue;
    EXPECT_TRUE(is_chinese(window->Text(control.nId))) << to_utf8(control.text);
  }
}

TEST_P(DialogTexts, AreTheModulesInEnglish) {
  const auto window = open(Language::english);
  EXPECT_EQ(caption_of(*window), dialog().caption);
  for (const CONTROL_TEMPLATE& control : dialog().controls) {
    if (control.nId == kNoControlId) continue;
    EXPECT_EQ(window->Text(control.nId), control.text);
  }
}

// An English text here that is not the module's would translate something else.
TEST_P(DialogTexts, AreTheTranslationsOfTheModulesOwnTexts) {
  const auto window = open(Language::chinese);
  const auto expected = [](const wchar_t* english) {
    return to_wide(texts::translation_of(to_utf8(english), Language::chinese));
  };
  EXPECT_EQ(caption_of(*window), expected(dialog().caption));
  for (const CONTROL_TEMPLATE& control : dialog().controls) {
    if (control.nId == kNoControlId || !has_letters(control.text)) continue;
    if (control.text == std::wstring(L"Unit")) continue;
    EXPECT_EQ(window->Text(control.nId), expected(control.text)) << to_utf8(control.text);
  }
}

// The two dialogs number their controls apart, and one number stands in both.
TEST_P(DialogTexts, OfControlsThatShareANumberAreTheDialogsOwn) {
  EXPECT_EQ(IDC_STATIC_ALU_SAFECLASS, IDC_DGN_ALU_GROUP);
  const auto window = open(Language::chinese);
  const bool is_code = GetParam() == IDD_DGN_ALU_CODE_DLG;
  EXPECT_EQ(window->Text(IDC_DGN_ALU_GROUP),
            to_wide(texts::translation_of(is_code ? "Select safe class" : "Alu Material Select ",
                                          Language::chinese)));
}

TEST(TranslatingToolkit, WithoutToolkitOpensNone) {
  NoEvents events;
  EXPECT_EQ(TranslatingToolkit(nullptr).Open(*AfxFindDialogTemplate(IDD_DGN_ALU_CODE_DLG), events),
            nullptr);
}

}  // namespace
}  // namespace aluframe::services

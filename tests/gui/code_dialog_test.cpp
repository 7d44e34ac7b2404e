// The dialog of the design settings, worked by a user.

#include <gmock/gmock.h>

#include "tests/gui/dialog_user.h"
#include "tests/gui/fit.h"
#include "tests/gui/settings_host.h"
#include "tz_alu/dialogs/dgnalucodedlg.h"
#include "tz_alu/dialogs/resource.h"

namespace gui_test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr int value_edits[] = {IDC_EDIT_ALU_SECTSTENGTH, IDC_EDIT_ALU_SECRIB_RATIO,
                               IDC_EDIT_ALU_GAMARE_STRENGTH, IDC_EDIT_ALU_GAMARE_STABILITY};
constexpr int class_buttons[] = {IDC_STATIC_ALU_SAFECLASS1, IDC_STATIC_ALU_SAFECLASS2,
                                 IDC_STATIC_ALU_SAFECLASS3};

class CodeDialog : public testing::Test {
 protected:
  SettingsHost host;

  int run(const std::function<void(DialogUser&)>& script) {
    return with_user([] { return CDgnAluCodeDlg().DoModal(); }, script);
  }
  /// Settings unlike the defaults, of the second code.
  static T_DALU_D other_settings() {
    T_DALU_D settings;
    settings.strCode = L"code B";
    settings.bRib = 0;
    settings.dRibRatio = 1.1;
    settings.nSafetyClass = 2;
    settings.dStrengthRatio = 0.9;
    settings.bSeismic = 1;
    settings.dGammaREStrength = 0.7;
    settings.dGammaREStability = 0.65;
    return settings;
  }
};

std::vector<bool> checked_classes(const DialogUser& user) {
  std::vector<bool> checked;
  for (const int id : class_buttons) checked.push_back(user.is_checked(id));
  return checked;
}

std::vector<std::wstring> values(const DialogUser& user) {
  std::vector<std::wstring> texts;
  for (const int id : value_edits) texts.push_back(user.text(id));
  return texts;
}

TEST_F(CodeDialog, ANewModelOpensWithTheDefaults) {
  run([](DialogUser& user) {
    EXPECT_TRUE(user.is_checked(IDC_CHECK_ALU_SECT_RIB));
    EXPECT_FALSE(user.is_checked(IDC_CHECK_ALU_CONSIDE_SESI));
    EXPECT_THAT(checked_classes(user), ElementsAre(false, true, false));
    EXPECT_THAT(values(user), ElementsAre(L"0.85", L"1.2", L"0.75", L"0.8"));
    EXPECT_EQ(user.text(IDC_COMB_ALU_CODE), L"shown code B");
  });
}

TEST_F(CodeDialog, AModelOpensWithItsSettings) {
  host.model.settings = other_settings();
  run([](DialogUser& user) {
    EXPECT_FALSE(user.is_checked(IDC_CHECK_ALU_SECT_RIB));
    EXPECT_TRUE(user.is_checked(IDC_CHECK_ALU_CONSIDE_SESI));
    EXPECT_THAT(checked_classes(user), ElementsAre(false, false, true));
    EXPECT_THAT(values(user), ElementsAre(L"0.9", L"1.1", L"0.7", L"0.65"));
    EXPECT_EQ(user.text(IDC_COMB_ALU_CODE), L"shown code B");
  });
}

TEST_F(CodeDialog, TheFirstCodeOfTheListIsSelectedWhenItIsTheModels) {
  host.model.settings = other_settings();
  host.model.settings->strCode = L"code A";
  run([](DialogUser& user) { EXPECT_EQ(user.text(IDC_COMB_ALU_CODE), L"shown code A"); });
}

TEST_F(CodeDialog, TheFirstCodeIsSelectedWhenTheListHasNotTheModels) {
  host.model.settings = other_settings();
  host.model.settings->strCode = L"code X";
  run([](DialogUser& user) { EXPECT_EQ(user.text(IDC_COMB_ALU_CODE), L"shown code A"); });
}

TEST_F(CodeDialog, OneCodeIsNeverOffered) {
  host.codes = {L"code A", L"GB50068-2018", L"code C"};
  run([](DialogUser& user) {
    EXPECT_THAT(user.choices(IDC_COMB_ALU_CODE), ElementsAre(L"shown code A", L"shown code C"));
  });
}

TEST_F(CodeDialog, AZeroInADisabledEditBlocksOkWithTheMessage) {
  const int result = run([this](DialogUser& user) {
    user.click(IDC_CHECK_ALU_CONSIDE_SESI);
    user.type(IDC_EDIT_ALU_GAMARE_STRENGTH, "0");
    user.click(IDC_CHECK_ALU_CONSIDE_SESI);
    EXPECT_FALSE(user.is_enabled(IDC_EDIT_ALU_GAMARE_STRENGTH));
    user.click(IDOK);
    EXPECT_TRUE(user.is_open());
    ASSERT_THAT(host.log.messages, SizeIs(1));
    // Code points of the garbled sentence that the user is shown.
    EXPECT_EQ(host.log.messages[0].text,
              L"\xAF5D\x9452\xE047\x96F6\x5510\x8F4E\xFF0C\xD5DD\xC1F1\xAFF4\x21");
  });
  EXPECT_EQ(result, IDCANCEL);
  EXPECT_THAT(host.stored_settings, IsEmpty());
}

TEST_F(CodeDialog, OkStoresWhatWasEntered) {
  const int result = run([](DialogUser& user) {
    user.choose(IDC_COMB_ALU_CODE, "shown code C");
    user.click(IDC_STATIC_ALU_SAFECLASS3);
    user.click(IDC_CHECK_ALU_CONSIDE_SESI);
    user.type(IDC_EDIT_ALU_SECTSTENGTH, "0.9");
    user.type(IDC_EDIT_ALU_SECRIB_RATIO, "1.1");
    user.type(IDC_EDIT_ALU_GAMARE_STRENGTH, "0.7");
    user.type(IDC_EDIT_ALU_GAMARE_STABILITY, "0.65");
    user.click(IDC_CHECK_ALU_SECT_RIB);
    user.click(IDOK);
    EXPECT_FALSE(user.is_open());
  });
  EXPECT_EQ(result, IDOK);
  ASSERT_THAT(host.stored_settings, SizeIs(1));
  const T_DALU_D& stored = host.stored_settings[0];
  EXPECT_EQ(stored.strCode, L"code C");
  EXPECT_EQ(stored.nSafetyClass, 2);
  EXPECT_EQ(stored.bRib, 0);
  EXPECT_EQ(stored.bSeismic, 1);
  EXPECT_EQ(stored.dStrengthRatio, 0.9);
  EXPECT_EQ(stored.dRibRatio, 1.1);
  EXPECT_EQ(stored.dGammaREStrength, 0.7);
  EXPECT_EQ(stored.dGammaREStability, 0.65);
}

TEST_F(CodeDialog, ARefusedRecordKeepsTheDialogOpenWithoutMessage) {
  host.can_store = false;
  run([this](DialogUser& user) {
    user.click(IDOK);
    EXPECT_TRUE(user.is_open());
    EXPECT_THAT(host.log.messages, IsEmpty());
  });
}

TEST_F(CodeDialog, CloseStoresNothing) {
  const int result = run([](DialogUser& user) {
    user.click(IDC_CHECK_ALU_SECT_RIB);
    user.click(IDCANCEL);
    EXPECT_FALSE(user.is_open());
  });
  EXPECT_EQ(result, IDCANCEL);
  EXPECT_THAT(host.stored_settings, IsEmpty());
}

TEST_F(CodeDialog, EscapeStoresNothing) {
  const int result = run([](DialogUser& user) { user.press(Qt::Key_Escape); });
  EXPECT_EQ(result, IDCANCEL);
  EXPECT_THAT(host.stored_settings, IsEmpty());
}

TEST_F(CodeDialog, TheCloseButtonOfTheWindowStoresNothing) {
  const int result = run([](DialogUser& user) { user.close_window(); });
  EXPECT_EQ(result, IDCANCEL);
  EXPECT_THAT(host.stored_settings, IsEmpty());
}

TEST_F(CodeDialog, EnterInAnEditIsOk) {
  const int result = run([](DialogUser& user) {
    user.type(IDC_EDIT_ALU_SECTSTENGTH, "0.9");
    user.press(Qt::Key_Return);
  });
  EXPECT_EQ(result, IDOK);
  ASSERT_THAT(host.stored_settings, SizeIs(1));
  EXPECT_EQ(host.stored_settings[0].dStrengthRatio, 0.9);
}

TEST_F(CodeDialog, EnterOnCloseStoresNothing) {
  const int result = run([](DialogUser& user) {
    user.widget(IDCANCEL).setFocus();
    user.press(Qt::Key_Return);
  });
  EXPECT_EQ(result, IDCANCEL);
  EXPECT_THAT(host.stored_settings, IsEmpty());
}

TEST_F(CodeDialog, SeismicFactorsAreEnabledExactlyWhileTheyAreAskedFor) {
  run([](DialogUser& user) {
    for (const bool on : {false, true, false}) {
      for (const int id : {IDC_EDIT_ALU_GAMARE_STRENGTH, IDC_STATIC_ALU_GAMARE_STABILITY,
                           IDC_EDIT_ALU_GAMARE_STABILITY, IDC_STATIC_ALU_GAMARE_STRENGTH}) {
        EXPECT_EQ(user.is_enabled(id), on) << id;
      }
      user.click(IDC_CHECK_ALU_CONSIDE_SESI);
    }
  });
}

TEST_F(CodeDialog, TheRibRatioIsEnabledExactlyWhileThereAreRibs) {
  run([](DialogUser& user) {
    EXPECT_TRUE(user.is_enabled(IDC_EDIT_ALU_SECRIB_RATIO));
    user.click(IDC_CHECK_ALU_SECT_RIB);
    EXPECT_FALSE(user.is_enabled(IDC_EDIT_ALU_SECRIB_RATIO));
    EXPECT_TRUE(user.is_enabled(IDC_EDIT_ALU_SECTSTENGTH));
  });
}

TEST_F(CodeDialog, TheClassesExcludeEachOther) {
  run([](DialogUser& user) {
    user.click(IDC_STATIC_ALU_SAFECLASS1);
    EXPECT_THAT(checked_classes(user), ElementsAre(true, false, false));
    user.press(Qt::Key_Up);
    EXPECT_THAT(checked_classes(user), ElementsAre(false, false, true));
  });
}

// The order of the dialog's template; Tab reaches a group of radio buttons once.
TEST_F(CodeDialog, TabFollowsTheTemplate) {
  host.model.settings = other_settings();
  host.model.settings->bRib = 1;
  std::vector<int> stops;
  run([&](DialogUser& user) {
    for (int i = 0; i < 10; ++i) {
      stops.push_back(user.focus());
      user.press(Qt::Key_Tab);
    }
    EXPECT_EQ(user.focus(), IDC_COMB_ALU_CODE);
  });
  EXPECT_THAT(stops, ElementsAre(IDC_COMB_ALU_CODE, IDOK, IDCANCEL, IDC_CHECK_ALU_SECT_RIB,
                                 IDC_STATIC_ALU_SAFECLASS3, IDC_EDIT_ALU_SECTSTENGTH,
                                 IDC_CHECK_ALU_CONSIDE_SESI, IDC_EDIT_ALU_GAMARE_STRENGTH,
                                 IDC_EDIT_ALU_GAMARE_STABILITY, IDC_EDIT_ALU_SECRIB_RATIO));
}

TEST_F(CodeDialog, NoTextIsCut) {
  run([](DialogUser& user) { EXPECT_THAT(cut_texts(user.window()), IsEmpty()); });
}

TEST_F(CodeDialog, NoControlCoversAnother) {
  run([](DialogUser& user) { EXPECT_THAT(overlaps(user.window()), IsEmpty()); });
}

TEST_F(CodeDialog, TheCaptionIsThatOfTheTemplate) {
  run([](DialogUser& user) { EXPECT_EQ(user.window().windowTitle(), "Alu Design Code"); });
}

}  // namespace
}  // namespace gui_test

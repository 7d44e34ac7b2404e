// What OK stores, and what closing the dialog in another way leaves.

#include "tests/unit/tz_alu/dialogs/code_dialog_fixture.h"

namespace {

using dialogs_test::DialogUser;
using testing::ElementsAre;
using testing::IsEmpty;

class CodeDialogOkTest : public dialogs_test::CodeDialogTest {};

void PressOk(DialogUser& user) {
  user.click(IDOK);
}

TEST_F(CodeDialogOkTest, EveryControlGoesIntoItsField) {
  const int result = Run([](DialogUser& user) {
    user.choose(IDC_COMB_ALU_CODE, L"shown C");
    user.click(IDC_STATIC_ALU_SAFECLASS3);
    user.type(IDC_EDIT_ALU_SECRIB_RATIO, L"1.1");
    user.click(IDC_CHECK_ALU_SECT_RIB);
    user.type(IDC_EDIT_ALU_SECTSTENGTH, L"0.9");
    user.click(IDC_CHECK_ALU_CONSIDE_SESI);
    user.type(IDC_EDIT_ALU_GAMARE_STRENGTH, L"0.7");
    user.type(IDC_EDIT_ALU_GAMARE_STABILITY, L"0.65");
    user.click(IDOK);
    EXPECT_FALSE(user.is_open());
  });
  EXPECT_EQ(result, IDOK);
  EXPECT_TRUE(Stored().strCode == L"C");
  EXPECT_EQ(Stored().nSafetyClass, 2);
  EXPECT_EQ(Stored().dRibRatio, 1.1);
  EXPECT_EQ(Stored().bRib, 0);
  EXPECT_EQ(Stored().dStrengthRatio, 0.9);
  EXPECT_EQ(Stored().bSeismic, 1);
  EXPECT_EQ(Stored().dGammaREStrength, 0.7);
  EXPECT_EQ(Stored().dGammaREStability, 0.65);
}

TEST_F(CodeDialogOkTest, ANewModelIsStoredWithTheDefaults) {
  EXPECT_EQ(Run(PressOk), IDOK);
  EXPECT_TRUE(Stored().strCode == L"B");
  EXPECT_EQ(Stored().nSafetyClass, 1);
  EXPECT_EQ(Stored().bRib, 1);
  EXPECT_EQ(Stored().dRibRatio, 1.2);
  EXPECT_EQ(Stored().dStrengthRatio, 0.85);
  EXPECT_EQ(Stored().bSeismic, 0);
  EXPECT_EQ(Stored().dGammaREStrength, 0.75);
  EXPECT_EQ(Stored().dGammaREStability, 0.8);
}

TEST_F(CodeDialogOkTest, SettingsThatNobodyChangesAreStoredUnchanged) {
  host_.model.settings = OtherSettings();
  Run(PressOk);
  EXPECT_TRUE(Stored().strCode == L"B");
  EXPECT_EQ(Stored().nSafetyClass, 2);
  EXPECT_EQ(Stored().bRib, 0);
  EXPECT_EQ(Stored().dRibRatio, 1.1);
  EXPECT_EQ(Stored().dStrengthRatio, 0.9);
  EXPECT_EQ(Stored().bSeismic, 1);
  EXPECT_EQ(Stored().dGammaREStrength, 0.7);
  EXPECT_EQ(Stored().dGammaREStability, 0.65);
}

TEST_F(CodeDialogOkTest, ReservedFieldsKeepWhatIsStored) {
  host_.model.settings = OtherSettings();
  Run(PressOk);
  EXPECT_THAT(Stored().aReservedInt, ElementsAre(1, 2, 3, 4, 5));
  EXPECT_THAT(Stored().aReservedDouble, ElementsAre(1.5, 2.5, 3.5, 4.5, 5.5));
}

TEST_F(CodeDialogOkTest, ReservedFieldsOfANewModelAreZero) {
  Run(PressOk);
  EXPECT_THAT(Stored().aReservedInt, testing::Each(0));
  EXPECT_THAT(Stored().aReservedDouble, testing::Each(0.0));
}

TEST_F(CodeDialogOkTest, ReservedFieldsAreReadWhenOkIsPressed) {
  host_.model.settings = OtherSettings();
  Run([this](DialogUser& user) {
    host_.model.settings->aReservedInt = {9, 8, 7, 6, 5};
    user.click(IDOK);
  });
  EXPECT_THAT(Stored().aReservedInt, ElementsAre(9, 8, 7, 6, 5));
}

TEST_F(CodeDialogOkTest, AModelThatHasNoSettingsIsNotReadForThem) {
  Run([this](DialogUser& user) {
    host_.calls.clear();
    user.click(IDOK);
  });
  EXPECT_THAT(host_.calls, ElementsAre("ExistDalu", "GetConvertCodeName", "AddDalu"));
}

TEST_F(CodeDialogOkTest, EachClassIsStoredByItsNumber) {
  for (int i = 0; i < 3; ++i) {
    host_.stored_settings.clear();
    Run([i](DialogUser& user) {
      user.click(dialogs_test::kClassButtons[i]);
      user.click(IDOK);
    });
    EXPECT_EQ(Stored().nSafetyClass, i);
  }
}

TEST_F(CodeDialogOkTest, WithoutACheckedClassTheStoredOneStays) {
  host_.model.settings = OtherSettings();
  host_.model.settings->nSafetyClass = 7;
  Run(PressOk);
  EXPECT_EQ(Stored().nSafetyClass, 7);
}

TEST_F(CodeDialogOkTest, WithoutACheckedClassANewModelIsOfGradeTwo) {
  Run([](DialogUser& user) {
    user.SetCheck(IDC_STATIC_ALU_SAFECLASS2, false);
    user.click(IDOK);
  });
  EXPECT_EQ(Stored().nSafetyClass, 1);
}

TEST_F(CodeDialogOkTest, TheLowestOfSeveralCheckedClassesIsStored) {
  Run([](DialogUser& user) {
    user.SetCheck(IDC_STATIC_ALU_SAFECLASS3, true);
    user.click(IDOK);
  });
  EXPECT_EQ(Stored().nSafetyClass, 1);
}

TEST_F(CodeDialogOkTest, AnUnlistedCodeIsReplacedByTheFirst) {
  host_.model.settings = OtherSettings();
  host_.model.settings->strCode = L"X";
  Run(PressOk);
  EXPECT_TRUE(Stored().strCode == L"A");
}

TEST_F(CodeDialogOkTest, WithoutASelectedCodeTheCodeIsEmpty) {
  host_.model.settings = OtherSettings();
  host_.model.settings->strCode = L"";
  Run(PressOk);
  EXPECT_TRUE(Stored().strCode.IsEmpty());
}

TEST_F(CodeDialogOkTest, EnterIsOk) {
  EXPECT_EQ(Run([](DialogUser& user) { user.press_enter(); }), IDOK);
  EXPECT_EQ(host_.stored_settings.size(), 1U);
}

TEST_F(CodeDialogOkTest, ARefusedRecordKeepsTheDialogOpenWithoutMessage) {
  host_.can_store = false;
  Run([](DialogUser& user) {
    user.click(IDOK);
    EXPECT_TRUE(user.is_open());
  });
  EXPECT_THAT(host_.log.messages, IsEmpty());
  EXPECT_THAT(host_.calls, testing::Contains("AddDalu"));
}

TEST_F(CodeDialogOkTest, AfterARefusalOkCanBePressedAgain) {
  host_.can_store = false;
  const int result = Run([this](DialogUser& user) {
    user.click(IDOK);
    host_.can_store = true;
    user.click(IDOK);
  });
  EXPECT_EQ(result, IDOK);
  EXPECT_EQ(host_.stored_settings.size(), 1U);
}

/// Changes a setting before the dialog is closed in some way.
void ChangeSomething(DialogUser& user) {
  user.click(IDC_CHECK_ALU_SECT_RIB);
  user.type(IDC_EDIT_ALU_SECTSTENGTH, L"0.5");
}

TEST_F(CodeDialogOkTest, CloseStoresNothing) {
  const int result = Run([](DialogUser& user) {
    ChangeSomething(user);
    user.click(IDCANCEL);
    EXPECT_FALSE(user.is_open());
  });
  EXPECT_EQ(result, IDCANCEL);
  EXPECT_THAT(host_.calls, testing::Not(testing::Contains("AddDalu")));
}

// The window's own close button is Escape to the framework.
TEST_F(CodeDialogOkTest, EscapeStoresNothing) {
  const int result = Run([](DialogUser& user) {
    ChangeSomething(user);
    user.press_escape();
    EXPECT_FALSE(user.is_open());
  });
  EXPECT_EQ(result, IDCANCEL);
  EXPECT_THAT(host_.calls, testing::Not(testing::Contains("AddDalu")));
}

TEST_F(CodeDialogOkTest, CloseAcceptsValuesThatOkRefuses) {
  const int result = Run([](DialogUser& user) {
    user.type(IDC_EDIT_ALU_SECTSTENGTH, L"0");
    user.click(IDCANCEL);
  });
  EXPECT_EQ(result, IDCANCEL);
  EXPECT_THAT(host_.log.messages, IsEmpty());
}

TEST_F(CodeDialogOkTest, WhatIsStoredIsShownNextTime) {
  Run([](DialogUser& user) {
    user.choose(IDC_COMB_ALU_CODE, L"shown C");
    user.type(IDC_EDIT_ALU_SECTSTENGTH, L"0.9");
    user.click(IDOK);
  });
  Run([](DialogUser& user) {
    EXPECT_EQ(dialogs_test::TextOf(user, IDC_COMB_ALU_CODE), L"shown C");
    EXPECT_EQ(dialogs_test::TextOf(user, IDC_EDIT_ALU_SECTSTENGTH), L"0.9");
  });
}

}  // namespace

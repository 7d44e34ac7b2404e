// Which numbers OK refuses, and the message that it shows then.

#include "tests/unit/tz_alu/dialogs/code_dialog_fixture.h"

namespace {

using dialogs_test::DialogUser;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

struct NUMBER_EDIT {
  const char* name;
  int id;
  double T_DALU_D::* field;
};

constexpr NUMBER_EDIT kNumberEdits[] = {
    {"RibRatio", IDC_EDIT_ALU_SECRIB_RATIO, &T_DALU_D::dRibRatio},
    {"StrengthRatio", IDC_EDIT_ALU_SECTSTENGTH, &T_DALU_D::dStrengthRatio},
    {"StabilityFactor", IDC_EDIT_ALU_GAMARE_STABILITY, &T_DALU_D::dGammaREStability},
    {"StrengthFactor", IDC_EDIT_ALU_GAMARE_STRENGTH, &T_DALU_D::dGammaREStrength},
};

class CodeDialogLimitsTest : public dialogs_test::CodeDialogTest,
                             public testing::WithParamInterface<NUMBER_EDIT> {
 protected:
  /// Presses OK with a text in the edit, all edits being enabled.
  void PressOkWith(const wchar_t* text) {
    host_.model.settings = OtherSettings();
    host_.model.settings->bRib = 1;
    Run([text](DialogUser& user) {
      user.type(GetParam().id, text);
      user.click(IDOK);
    });
  }
  void ExpectRefused(const wchar_t* text) {
    PressOkWith(text);
    EXPECT_THAT(host_.stored_settings, IsEmpty());
    EXPECT_THAT(host_.log.messages, SizeIs(1));
    host_.log.messages.clear();
  }
  void ExpectAccepted(const wchar_t* text, double value) {
    PressOkWith(text);
    EXPECT_THAT(host_.log.messages, IsEmpty());
    EXPECT_EQ(Stored().*GetParam().field, value);
    host_.stored_settings.clear();
  }
};

TEST_P(CodeDialogLimitsTest, BelowOneMillionthANumberIsRefused) {
  ExpectRefused(L"9.999999999999998e-7");  // the next double below
  ExpectRefused(L"0.0000009");
  ExpectRefused(L"0");
  ExpectRefused(L"-0.8");
}

TEST_P(CodeDialogLimitsTest, FromOneMillionthOnANumberIsAccepted) {
  ExpectAccepted(L"0.000001", 1e-6);
  ExpectAccepted(L"1.0000000000000002e-6", 1.0000000000000002e-6);  // the next double above
  ExpectAccepted(L"1e9", 1e9);
}

TEST_P(CodeDialogLimitsTest, WhatIsNoNumberIsRefused) {
  for (const wchar_t* text : {L"", L"abc", L"0,8", L"0.8x", L"inf", L"nan"}) ExpectRefused(text);
}

TEST_P(CodeDialogLimitsTest, ADisabledNumberIsRefusedToo) {
  host_.model.settings = OtherSettings();
  host_.model.settings->bSeismic = 0;
  (*host_.model.settings).*GetParam().field = 0.0;
  Run([this](DialogUser& user) {
    EXPECT_EQ(user.IsEnabled(GetParam().id), GetParam().id == IDC_EDIT_ALU_SECTSTENGTH);
    user.click(IDOK);
    EXPECT_TRUE(user.is_open());
    EXPECT_THAT(host_.log.messages, SizeIs(1));
  });
  EXPECT_THAT(host_.stored_settings, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(EachNumber, CodeDialogLimitsTest, testing::ValuesIn(kNumberEdits),
                         [](const auto& test) { return test.param.name; });

class CodeDialogMessageTest : public dialogs_test::CodeDialogTest {
 protected:
  test_support::ShownMessage MessageOfAZero() {
    Run([](DialogUser& user) {
      user.type(IDC_EDIT_ALU_SECTSTENGTH, L"0");
      user.click(IDOK);
    });
    EXPECT_THAT(host_.log.messages, SizeIs(1));
    return host_.log.messages.at(0);
  }
};

// The sentence that the user is shown, character by character.
TEST_F(CodeDialogMessageTest, IsElevenCharacters) {
  std::vector<unsigned> codes;
  for (const wchar_t c : MessageOfAZero().text) codes.push_back(static_cast<unsigned>(c));
  EXPECT_THAT(codes, ElementsAre(0xAF5D, 0x9452, 0xE047, 0x96F6, 0x5510, 0x8F4E, 0xFF0C, 0xD5DD,
                                 0xC1F1, 0xAFF4, 0x0021));
}

TEST_F(CodeDialogMessageTest, HasAnOkButtonOnly) {
  EXPECT_EQ(MessageOfAZero().type, 0U);
}

TEST_F(CodeDialogMessageTest, IsShownOnceWhenEveryNumberIsWrong) {
  Run([this](DialogUser& user) {
    user.click(IDC_CHECK_ALU_CONSIDE_SESI);
    for (const NUMBER_EDIT& edit : kNumberEdits) user.type(edit.id, L"0");
    user.click(IDOK);
    EXPECT_THAT(host_.log.messages, SizeIs(1));
  });
}

TEST_F(CodeDialogMessageTest, LeavesTheDialogAsItWasEntered) {
  const int result = Run([](DialogUser& user) {
    user.click(IDC_STATIC_ALU_SAFECLASS1);
    user.type(IDC_EDIT_ALU_SECTSTENGTH, L"0");
    user.click(IDOK);
    EXPECT_TRUE(user.IsChecked(IDC_STATIC_ALU_SAFECLASS1));
    user.type(IDC_EDIT_ALU_SECTSTENGTH, L"0.9");
    user.click(IDOK);
  });
  EXPECT_EQ(result, IDOK);
  EXPECT_EQ(Stored().nSafetyClass, 0);
  EXPECT_EQ(Stored().dStrengthRatio, 0.9);
}

}  // namespace

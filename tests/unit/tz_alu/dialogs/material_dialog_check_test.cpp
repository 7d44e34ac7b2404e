// Which values Modify refuses, and what it says of them.

#include "tests/unit/tz_alu/dialogs/material_dialog_fixture.h"

namespace {

using namespace dialogs_test;
using testing::IsEmpty;
using testing::SizeIs;

struct VALUE_RULE {
  const char* name;
  int edit;
  const wchar_t* message;
};

constexpr VALUE_RULE kRules[] = {
    {"Es", 6656, L"[IDS_DGN_CHK_MATL_ES_ERROR]"},   {"Ps", 6672, L"[IDS_DGN_CHK_MATL_PS_ERROR]"},
    {"Fu", 7956, L"[IDS_DGN_CHK_MATL_FU_ERROR]"},   {"Fy1", 7957, L"[IDS_DGN_CHK_MATL_FY1_ERROR]"},
    {"Fy2", 7958, L"[IDS_DGN_CHK_MATL_FY2_ERROR]"},
};

class CheckTest : public MaterialDialogTest {
 protected:
  /// Modifies the material of values of the user behind a change. @return the messages shown
  std::vector<test_support::ShownMessage> ModifyAfter(
      const std::function<void(DialogUser&)>& change) {
    Run([&](DialogUser& user) {
      ClickRow(user, kOwnRow);
      change(user);
      user.click(IDC_DGN_STEELMAT_MODIFY);
      EXPECT_TRUE(user.is_open());
    });
    return std::exchange(host_.log.messages, {});
  }
};

class MaterialDialogValueTest : public CheckTest, public testing::WithParamInterface<VALUE_RULE> {
 protected:
  std::vector<test_support::ShownMessage> ModifyWith(const wchar_t* text) {
    return ModifyAfter([text](DialogUser& user) { user.type(GetParam().edit, text); });
  }
};

TEST_P(MaterialDialogValueTest, ZeroAndLessAreRefusedWithItsMessage) {
  for (const wchar_t* text : {L"0", L"-0", L"-1e-300", L"-5"}) {
    const auto messages = ModifyWith(text);
    ASSERT_THAT(messages, SizeIs(1)) << testing::PrintToString(std::wstring(text));
    EXPECT_EQ(messages[0].text, std::wstring(L"[IDS_DGN_CHK_TITLE_ERROR]\n") + GetParam().message);
    EXPECT_EQ(messages[0].type, 0U);  // an OK button
  }
  EXPECT_THAT(host_.stored_materials, IsEmpty());
}

TEST_P(MaterialDialogValueTest, WhatIsNoNumberIsRefused) {
  for (const wchar_t* text : {L"", L"abc", L"1,5", L"nan", L"inf"}) {
    EXPECT_THAT(ModifyWith(text), SizeIs(1)) << testing::PrintToString(std::wstring(text));
  }
  EXPECT_THAT(host_.stored_materials, IsEmpty());
}

TEST_P(MaterialDialogValueTest, EveryPositiveNumberIsAccepted) {
  for (const wchar_t* text : {L"1e-300", L"0.6", L"1e300"}) {
    EXPECT_THAT(ModifyWith(text), IsEmpty()) << testing::PrintToString(std::wstring(text));
  }
  EXPECT_THAT(host_.stored_materials, SizeIs(3));
}

INSTANTIATE_TEST_SUITE_P(EachValue, MaterialDialogValueTest, testing::ValuesIn(kRules),
                         [](const auto& test) { return test.param.name; });

class MaterialDialogCheckTest : public CheckTest {};

TEST_F(MaterialDialogCheckTest, APoissonRatioOfZeroIsRefusedAndOneBeyondOneHalfAccepted) {
  const auto refused = ModifyAfter([](DialogUser& user) { user.type(6672, L"0"); });
  EXPECT_THAT(refused, SizeIs(1));
  EXPECT_THAT(host_.stored_materials, IsEmpty());
  const auto accepted = ModifyAfter([](DialogUser& user) { user.type(6672, L"0.6"); });
  EXPECT_THAT(accepted, IsEmpty());
  ASSERT_THAT(host_.stored_materials, SizeIs(1));
  EXPECT_EQ(host_.stored_materials[0].second.dPoisson, 0.6);
}

TEST_F(MaterialDialogCheckTest, StrengthsAreNotCompared) {
  const auto messages = ModifyAfter([](DialogUser& user) {
    user.type(IDC_DGN_STEEL_MATF, L"1");
    user.type(IDC_DGN_STEEL_MATFV, L"2");
    user.type(IDC_DGN_STEEL_MATF02, L"3");
  });
  EXPECT_THAT(messages, IsEmpty());
  EXPECT_THAT(host_.stored_materials, SizeIs(1));
}

TEST_F(MaterialDialogCheckTest, ValuesOfTheUserNeedAName) {
  host_.model.materials[7].strName = L"";
  const auto messages = ModifyAfter([](DialogUser&) {});
  ASSERT_THAT(messages, SizeIs(1));
  EXPECT_EQ(messages[0].text, L"[IDS_DGN_CHK_TITLE_ERROR]\n[IDS_DGN_CHK_STL_MATL_NAME_ERROR]");
  EXPECT_THAT(host_.stored_materials, IsEmpty());
}

TEST_F(MaterialDialogCheckTest, AMaterialOfAStandardNeedsNone) {
  Run([](DialogUser& user) {
    ClickRow(user, kUnknownGradeRow);
    user.click(IDC_DGN_STEELMAT_MODIFY);
  });
  EXPECT_THAT(host_.log.messages, IsEmpty());
  ASSERT_THAT(host_.stored_materials, SizeIs(1));
  EXPECT_TRUE(host_.stored_materials[0].second.strName.IsEmpty());
}

TEST_F(MaterialDialogCheckTest, EveryProblemHasItsLineInOrder) {
  const auto messages = ModifyAfter([](DialogUser& user) {
    user.choose(IDC_DGN_STEELMAT_CODE, L"None");  // without a name
    for (const int id : kValueEdits) user.type(id, L"-1");
  });
  ASSERT_THAT(messages, SizeIs(1));
  EXPECT_EQ(messages[0].text,
            L"[IDS_DGN_CHK_TITLE_ERROR]\n"
            L"[IDS_DGN_CHK_STL_MATL_NAME_ERROR]\n"
            L"[IDS_DGN_CHK_MATL_ES_ERROR]\n"
            L"[IDS_DGN_CHK_MATL_PS_ERROR]\n"
            L"[IDS_DGN_CHK_MATL_FU_ERROR]\n"
            L"[IDS_DGN_CHK_MATL_FY1_ERROR]\n"
            L"[IDS_DGN_CHK_MATL_FY2_ERROR]");
}

TEST_F(MaterialDialogCheckTest, ProblemsThatLieApartAreBothTold) {
  const auto messages = ModifyAfter([](DialogUser& user) {
    user.type(IDC_DGN_STEEL_MATF02, L"0");
    user.type(IDC_DGN_STEEL_MATES, L"0");
  });
  ASSERT_THAT(messages, SizeIs(1));
  EXPECT_EQ(messages[0].text,
            L"[IDS_DGN_CHK_TITLE_ERROR]\n[IDS_DGN_CHK_MATL_ES_ERROR]\n"
            L"[IDS_DGN_CHK_MATL_FY2_ERROR]");
}

TEST_F(MaterialDialogCheckTest, AStandardWithoutAGradeIsRefusedForItsZeroes) {
  const auto messages =
      ModifyAfter([](DialogUser& user) { user.choose(IDC_DGN_STEELMAT_CODE, L"GB"); });
  ASSERT_THAT(messages, SizeIs(1));
  EXPECT_EQ(messages[0].text,
            L"[IDS_DGN_CHK_TITLE_ERROR]\n"
            L"[IDS_DGN_CHK_MATL_ES_ERROR]\n"
            L"[IDS_DGN_CHK_MATL_PS_ERROR]\n"
            L"[IDS_DGN_CHK_MATL_FU_ERROR]\n"
            L"[IDS_DGN_CHK_MATL_FY1_ERROR]\n"
            L"[IDS_DGN_CHK_MATL_FY2_ERROR]");
}

TEST_F(MaterialDialogCheckTest, ARefusalLeavesRowAndEntries) {
  Run([](DialogUser& user) {
    ClickRow(user, kOwnRow);
    user.type(IDC_DGN_STEEL_MATES, L"-1");
    user.click(IDC_DGN_STEELMAT_MODIFY);
    EXPECT_EQ(Row(user, kOwnRow)[2], L"68000");
    EXPECT_EQ(TextOf(user, IDC_DGN_STEEL_MATES), L"-1");
    user.type(IDC_DGN_STEEL_MATES, L"70000");
    user.click(IDC_DGN_STEELMAT_MODIFY);
    EXPECT_EQ(Row(user, kOwnRow)[2], L"70000");
  });
}

}  // namespace

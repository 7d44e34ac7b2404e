// What the dialog of the design settings shows, and which of its controls are enabled.

#include "tests/unit/tz_alu/dialogs/code_dialog_fixture.h"

namespace {

using dialogs_test::CheckedClasses;
using dialogs_test::DialogUser;
using dialogs_test::TextOf;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class CodeDialogStartTest : public dialogs_test::CodeDialogTest {
 protected:
  /// Identifiers of the controls that are disabled when a model with these checks opens.
  std::vector<int> DisabledWith(int rib, int seismic) {
    host_.model.settings = OtherSettings();
    host_.model.settings->bRib = rib;
    host_.model.settings->bSeismic = seismic;
    std::vector<int> disabled;
    Run([&](DialogUser& user) { disabled = Disabled(user); });
    return disabled;
  }
  static std::vector<int> Disabled(const DialogUser& user) {
    std::vector<int> disabled;
    for (const CONTROL_TEMPLATE& control : user.dialog().controls) {
      if (control.nId != kNoControlId && !user.IsEnabled(control.nId)) {
        disabled.push_back(control.nId);
      }
    }
    return disabled;
  }
};

// Defaults of the record: rib stiffeners 1.2, grade two, 0.85, no earthquake, γRE 0.75 and 0.8.
TEST_F(CodeDialogStartTest, ANewModelHasTheDefaults) {
  Run([](DialogUser& user) {
    EXPECT_TRUE(user.IsChecked(IDC_CHECK_ALU_SECT_RIB));
    EXPECT_EQ(TextOf(user, IDC_EDIT_ALU_SECRIB_RATIO), L"1.2");
    EXPECT_THAT(CheckedClasses(user), ElementsAre(false, true, false));
    EXPECT_EQ(TextOf(user, IDC_EDIT_ALU_SECTSTENGTH), L"0.85");
    EXPECT_FALSE(user.IsChecked(IDC_CHECK_ALU_CONSIDE_SESI));
    EXPECT_EQ(TextOf(user, IDC_EDIT_ALU_GAMARE_STRENGTH), L"0.75");
    EXPECT_EQ(TextOf(user, IDC_EDIT_ALU_GAMARE_STABILITY), L"0.8");
  });
}

TEST_F(CodeDialogStartTest, AModelWithSettingsShowsThem) {
  host_.model.settings = OtherSettings();
  Run([](DialogUser& user) {
    EXPECT_FALSE(user.IsChecked(IDC_CHECK_ALU_SECT_RIB));
    EXPECT_EQ(TextOf(user, IDC_EDIT_ALU_SECRIB_RATIO), L"1.1");
    EXPECT_THAT(CheckedClasses(user), ElementsAre(false, false, true));
    EXPECT_EQ(TextOf(user, IDC_EDIT_ALU_SECTSTENGTH), L"0.9");
    EXPECT_TRUE(user.IsChecked(IDC_CHECK_ALU_CONSIDE_SESI));
    EXPECT_EQ(TextOf(user, IDC_EDIT_ALU_GAMARE_STRENGTH), L"0.7");
    EXPECT_EQ(TextOf(user, IDC_EDIT_ALU_GAMARE_STABILITY), L"0.65");
  });
}

TEST_F(CodeDialogStartTest, EachSafetyClassChecksItsButtonAlone) {
  host_.model.settings = OtherSettings();
  for (int safety_class = 0; safety_class < 3; ++safety_class) {
    host_.model.settings->nSafetyClass = safety_class;
    Run([safety_class](DialogUser& user) {
      for (int i = 0; i < 3; ++i) EXPECT_EQ(CheckedClasses(user)[i], i == safety_class) << i;
    });
  }
}

TEST_F(CodeDialogStartTest, AClassThatNoButtonShowsChecksNone) {
  host_.model.settings = OtherSettings();
  for (const int safety_class : {-1, 3}) {
    host_.model.settings->nSafetyClass = safety_class;
    Run([](DialogUser& user) {
      EXPECT_THAT(CheckedClasses(user), ElementsAre(false, false, false));
    });
  }
}

TEST_F(CodeDialogStartTest, NumbersAreShownWithTheDigitsThatTheyNeed) {
  host_.model.settings = OtherSettings();
  host_.model.settings->dStrengthRatio = 1.0;
  host_.model.settings->dRibRatio = 1.23456789012345;
  host_.model.settings->dGammaREStrength = 0.000001;
  host_.model.settings->dGammaREStability = 1e20;
  Run([](DialogUser& user) {
    EXPECT_EQ(TextOf(user, IDC_EDIT_ALU_SECTSTENGTH), L"1");
    EXPECT_EQ(TextOf(user, IDC_EDIT_ALU_SECRIB_RATIO), L"1.23456789012345");
    EXPECT_EQ(TextOf(user, IDC_EDIT_ALU_GAMARE_STRENGTH), L"1e-06");
    EXPECT_EQ(TextOf(user, IDC_EDIT_ALU_GAMARE_STABILITY), L"1e+20");
  });
}

// Numbers of the controls: 7963 and 7965 label the factors of 7964 and 7966, 1001 is the rib ratio.
TEST_F(CodeDialogStartTest, WithBothChecksEverythingIsEnabled) {
  EXPECT_THAT(DisabledWith(1, 1), IsEmpty());
}

TEST_F(CodeDialogStartTest, WithoutRibsTheRibRatioIsDisabled) {
  EXPECT_THAT(DisabledWith(0, 1), UnorderedElementsAre(1001));
}

TEST_F(CodeDialogStartTest, WithoutEarthquakeFactorsAndTheirLabelsAreDisabled) {
  EXPECT_THAT(DisabledWith(1, 0), UnorderedElementsAre(7963, 7964, 7965, 7966));
}

TEST_F(CodeDialogStartTest, WithNeitherCheckAllOfThemAreDisabled) {
  EXPECT_THAT(DisabledWith(0, 0), UnorderedElementsAre(1001, 7963, 7964, 7965, 7966));
}

TEST_F(CodeDialogStartTest, EachClickOfTheSeismicCheckEnablesAnew) {
  Run([](DialogUser& user) {
    user.click(IDC_CHECK_ALU_CONSIDE_SESI);
    EXPECT_THAT(Disabled(user), IsEmpty());
    user.click(IDC_CHECK_ALU_CONSIDE_SESI);
    EXPECT_THAT(Disabled(user), UnorderedElementsAre(7963, 7964, 7965, 7966));
  });
}

TEST_F(CodeDialogStartTest, EachClickOfTheRibCheckEnablesAnew) {
  host_.model.settings = OtherSettings();
  Run([](DialogUser& user) {
    user.click(IDC_CHECK_ALU_SECT_RIB);
    EXPECT_THAT(Disabled(user), IsEmpty());
    user.click(IDC_CHECK_ALU_SECT_RIB);
    EXPECT_THAT(Disabled(user), UnorderedElementsAre(1001));
  });
}

TEST_F(CodeDialogStartTest, ADisabledNumberKeepsItsText) {
  Run([](DialogUser& user) {
    user.click(IDC_CHECK_ALU_SECT_RIB);
    EXPECT_EQ(TextOf(user, IDC_EDIT_ALU_SECRIB_RATIO), L"1.2");
  });
}

TEST_F(CodeDialogStartTest, EveryControlIsShown) {
  Run([](DialogUser& user) {
    for (const CONTROL_TEMPLATE& control : user.dialog().controls) {
      EXPECT_TRUE(control.nId == kNoControlId || user.IsShown(control.nId)) << control.nId;
    }
  });
}

TEST_F(CodeDialogStartTest, OpeningStoresNothing) {
  Run([](DialogUser&) {});
  EXPECT_THAT(host_.calls, testing::Not(testing::Contains("AddDalu")));
}

}  // namespace

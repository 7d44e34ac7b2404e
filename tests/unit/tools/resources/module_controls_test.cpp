// What the module's dialogs hold. The tables are typed from the list of controls that users and
// host know them by; labels are kept as written ("Conside Sesi", "Tensil", "Yeild").

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/unit/tools/resources/module_dialogs.h"

namespace {

using module_dialogs::Control;
using module_dialogs::DesignCode;
using module_dialogs::Has;
using module_dialogs::Materials;
using testing::ElementsAre;

using enum CONTROL_KIND;

struct EXPECTED_CONTROL {
  int nId;
  CONTROL_KIND kind;
  std::wstring text;
};

const std::vector<EXPECTED_CONTROL> kDesignCodeControls = {
    {7959, Label, L"Design Code:"},
    {7960, DropDownList, L""},
    {1, PushButton, L"Ok"},
    {2, PushButton, L"Close"},
    {3240, CheckBox, L"Section rib stiffener"},
    {7955, GroupBox, L"Select safe class"},
    {7956, RadioButton, L"Grade one"},
    {7957, RadioButton, L"Grade two"},
    {7958, RadioButton, L"Grade three"},
    {7961, Label, L"Adjustment ratio of strength design:"},
    {7962, Edit, L""},
    {-1, GroupBox, L""},
    {3244, CheckBox, L"Conside Sesi"},
    {7963, Label, L"Strength GammaRE:"},
    {7965, Label, L"Stability GammaRE:"},
    {7964, Edit, L""},
    {7966, Edit, L""},
    {1001, Edit, L""},
};

const std::vector<EXPECTED_CONTROL> kMaterialControls = {
    {7834, GroupBox, L"Material list"},
    {6681, List, L""},
    {7955, GroupBox, L"Alu Material Select "},
    {7835, Label, L"Code:"},
    {6680, DropDownList, L""},
    {7678, Label, L"Grade:"},
    {6654, DropDownList, L""},
    {1001, Edit, L""},
    {6564, Label, L"Modulus of Elasticity (Es)"},
    {7857, Label, L":"},
    {6656, Edit, L""},
    {6657, Label, L"Unit"},
    {6601, Label, L"Poisson's Ratio (Ps)"},
    {7846, Label, L":"},
    {6672, Edit, L""},
    {6591, Label, L"Tensil Strength(Fu)"},
    {6518, Label, L":"},
    {7956, Edit, L""},
    {7959, Label, L"Unit"},
    {6592, Label, L"Yeild Strength(Fy1)"},
    {6519, Label, L":"},
    {7957, Edit, L""},
    {7960, Label, L"Unit"},
    {6593, Label, L"Yeild Strength(Fy2)"},
    {6559, Label, L":"},
    {7958, Edit, L""},
    {7961, Label, L"Unit"},
    {6682, PushButton, L"Modify"},
    {2, PushButton, L"Close"},
};

void ExpectControls(const DIALOG_TEMPLATE& dialog, const std::vector<EXPECTED_CONTROL>& expected) {
  ASSERT_EQ(dialog.controls.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    SCOPED_TRACE("control " + std::to_string(i) + ", expected " + std::to_string(expected[i].nId));
    EXPECT_EQ(dialog.controls[i].nId, expected[i].nId);
    EXPECT_EQ(dialog.controls[i].kind, expected[i].kind);
    EXPECT_EQ(std::wstring(dialog.controls[i].text), expected[i].text);
  }
}

std::vector<int> IdsWith(const DIALOG_TEMPLATE& dialog, CONTROL_FLAG flag) {
  std::vector<int> ids;
  for (const CONTROL_TEMPLATE& control : dialog.controls) {
    if (Has(control, flag)) ids.push_back(control.nId);
  }
  return ids;
}

TEST(ModuleDialogs, AreTwo) {
  EXPECT_EQ(kModuleResources.dialogs.size(), 2U);
}

TEST(DesignCodeTemplate, HasItsCaptionSizeAndFrame) {
  EXPECT_EQ(std::wstring(DesignCode().caption), L"Alu Design Code");
  EXPECT_EQ(DesignCode().width, 179);
  EXPECT_EQ(DesignCode().height, 193);
  EXPECT_TRUE(DesignCode().bModalFrame);
  EXPECT_TRUE(DesignCode().bSystemMenu);
}

TEST(DesignCodeTemplate, HasItsControlsInOrder) {
  ExpectControls(DesignCode(), kDesignCodeControls);
}

TEST(DesignCodeTemplate, TheListOfCodesScrolls) {
  EXPECT_TRUE(Has(Control(DesignCode(), 7960), CONTROL_VERTICAL_SCROLL));
}

TEST(DesignCodeTemplate, TheStrengthRatioHasABorderAndScrolls) {
  EXPECT_TRUE(Has(Control(DesignCode(), 7962), CONTROL_BORDER));
  EXPECT_TRUE(Has(Control(DesignCode(), 7962), CONTROL_AUTO_SCROLL));
}

// One radio button takes the Tab key for all three.
TEST(DesignCodeTemplate, TheTabKeyStopsWhereSomethingCanBeDone) {
  EXPECT_THAT(IdsWith(DesignCode(), CONTROL_TAB_STOP),
              ElementsAre(7960, 1, 2, 3240, 7956, 7962, 3244, 7964, 7966, 1001));
}

TEST(DesignCodeTemplate, TheThreeRadioButtonsAreAGroupOfTheirOwn) {
  EXPECT_TRUE(Has(Control(DesignCode(), 7956), CONTROL_GROUP));
  EXPECT_FALSE(Has(Control(DesignCode(), 7957), CONTROL_GROUP));
  EXPECT_FALSE(Has(Control(DesignCode(), 7958), CONTROL_GROUP));
  EXPECT_TRUE(Has(Control(DesignCode(), 7961), CONTROL_GROUP)) << "the control behind the last";
}

TEST(MaterialTemplate, HasItsCaptionSizeAndFrame) {
  EXPECT_EQ(std::wstring(Materials().caption), L"Modify Alu Material ");
  EXPECT_EQ(Materials().width, 255);
  EXPECT_EQ(Materials().height, 239);
  EXPECT_TRUE(Materials().bModalFrame);
  EXPECT_TRUE(Materials().bSystemMenu);
}

TEST(MaterialTemplate, HasItsControlsInOrder) {
  ExpectControls(Materials(), kMaterialControls);
}

TEST(MaterialTemplate, TheListShowsColumnsAndSelectsOneRow) {
  EXPECT_TRUE(Has(Control(Materials(), 6681), CONTROL_REPORT_VIEW));
  EXPECT_TRUE(Has(Control(Materials(), 6681), CONTROL_SINGLE_SELECTION));
}

TEST(MaterialTemplate, TheTabKeyStopsWhereSomethingCanBeDone) {
  EXPECT_THAT(IdsWith(Materials(), CONTROL_TAB_STOP),
              ElementsAre(6681, 6680, 6654, 1001, 6656, 6672, 7956, 7957, 7958, 6682, 2));
}

// Their programs decide what is shown and enabled.
TEST(ModuleDialogs, OpenWithAllControlsShownAndEnabled) {
  for (const DIALOG_TEMPLATE& dialog : kModuleResources.dialogs) {
    EXPECT_THAT(IdsWith(dialog, CONTROL_HIDDEN), ElementsAre());
    EXPECT_THAT(IdsWith(dialog, CONTROL_DISABLED), ElementsAre());
  }
}

TEST(ModuleDialogs, LongNumbersScrollInEveryEdit) {
  for (const DIALOG_TEMPLATE& dialog : kModuleResources.dialogs) {
    for (const CONTROL_TEMPLATE& control : dialog.controls) {
      if (control.kind != Edit) continue;
      EXPECT_TRUE(Has(control, CONTROL_AUTO_SCROLL)) << control.nId;
      EXPECT_TRUE(Has(control, CONTROL_BORDER)) << control.nId;
    }
  }
}

}  // namespace

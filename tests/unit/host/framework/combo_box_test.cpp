// Drop-down lists of an open dialog.

#include <gmock/gmock.h>

#include "tests/unit/host/framework/sample_test.h"

namespace {

using namespace test_support;
using dialog_test::DialogUser;
using dialog_test::SampleDialog;
using testing::ElementsAre;
using testing::IsEmpty;

/// The list has the entries "GB", "EN", "gb", "EN".
class ComboBoxTest : public dialog_test::SampleTest {
 protected:
  void Open(std::function<void(DialogUser&)> script) {
    Run(dialog_, [&](DialogUser& user) {
      for (const wchar_t* text : {L"GB", L"EN", L"gb", L"EN"}) combo_.AddString(text);
      script(user);
    });
  }

  SampleDialog dialog_;
  CComboBox& combo_ = dialog_.code;
};

TEST_F(ComboBoxTest, EntriesAreAppendedAndCounted) {
  Open([this](DialogUser& user) {
    EXPECT_EQ(combo_.AddString(L"last"), 4);
    EXPECT_EQ(combo_.GetCount(), 5);
    EXPECT_THAT(user.choices(code_list), ElementsAre(L"GB", L"EN", L"gb", L"EN", L"last"));
  });
}

TEST_F(ComboBoxTest, ResetTakesEntriesAndSelectionAway) {
  Open([this](DialogUser& user) {
    combo_.SetCurSel(2);
    combo_.ResetContent();
    EXPECT_EQ(combo_.GetCount(), 0);
    EXPECT_EQ(combo_.GetCurSel(), CB_ERR);
    EXPECT_THAT(user.choices(code_list), IsEmpty());
  });
}

TEST_F(ComboBoxTest, AnEntrysTextIsReadByItsIndex) {
  Open([this](DialogUser&) {
    CString text;
    combo_.GetLBText(2, text);
    EXPECT_TRUE(text == L"gb");
  });
}

TEST_F(ComboBoxTest, AnEntryThatIsMissingHasNoText) {
  Open([this](DialogUser&) {
    for (const int index : {-1, 4}) {
      CString text = L"before";
      combo_.GetLBText(index, text);
      EXPECT_TRUE(text.IsEmpty()) << index;
    }
  });
}

TEST_F(ComboBoxTest, TheFirstEqualEntryIsFound) {
  Open([this](DialogUser&) { EXPECT_EQ(combo_.FindStringExact(-1, L"EN"), 1); });
}

TEST_F(ComboBoxTest, TheSearchTellsCaseApartAndTakesWholeTexts) {
  Open([this](DialogUser&) {
    EXPECT_EQ(combo_.FindStringExact(-1, L"gb"), 2);
    EXPECT_EQ(combo_.FindStringExact(-1, L"G"), CB_ERR);
    EXPECT_EQ(combo_.FindStringExact(-1, L"GB "), CB_ERR);
    EXPECT_EQ(combo_.FindStringExact(-1, L""), CB_ERR);
  });
}

TEST_F(ComboBoxTest, TheSearchStartsBehindAnEntryAndGoesOnFromTheStart) {
  Open([this](DialogUser&) {
    EXPECT_EQ(combo_.FindStringExact(1, L"EN"), 3);
    EXPECT_EQ(combo_.FindStringExact(3, L"EN"), 1);
    EXPECT_EQ(combo_.FindStringExact(0, L"GB"), 0);
  });
}

TEST_F(ComboBoxTest, NothingIsFoundInAnEmptyList) {
  Open([this](DialogUser&) {
    combo_.ResetContent();
    EXPECT_EQ(combo_.FindStringExact(-1, L""), CB_ERR);
  });
}

TEST_F(ComboBoxTest, NothingIsSelectedAtFirst) {
  Open([this](DialogUser&) {
    EXPECT_EQ(combo_.GetCurSel(), CB_ERR);
    EXPECT_TRUE(combo_.GetWindowText().IsEmpty());
  });
}

TEST_F(ComboBoxTest, TheTextIsThatOfTheSelectedEntry) {
  Open([this](DialogUser& user) {
    EXPECT_EQ(combo_.SetCurSel(2), 2);
    EXPECT_EQ(user.SelectedChoice(code_list), 2);
    EXPECT_TRUE(combo_.GetWindowText() == L"gb");
    user.choose(code_list, 1);
    EXPECT_EQ(combo_.GetCurSel(), 1);
    EXPECT_TRUE(combo_.GetWindowText() == L"EN");
  });
}

TEST_F(ComboBoxTest, SelectingNoEntryOrAMissingOneSelectsNothing) {
  Open([this](DialogUser&) {
    for (const int index : {-1, 4, 1000}) {
      combo_.SetCurSel(0);
      EXPECT_EQ(combo_.SetCurSel(index), CB_ERR) << index;
      EXPECT_EQ(combo_.GetCurSel(), CB_ERR) << index;
    }
  });
}

TEST_F(ComboBoxTest, ItsTextCannotBeWritten) {
  Open([this](DialogUser&) {
    combo_.SetCurSel(0);
    combo_.SetWindowText(L"other");
    EXPECT_TRUE(combo_.GetWindowText() == L"GB");
  });
}

TEST_F(ComboBoxTest, TheDialogSeesItsTextToo) {
  Open([this](DialogUser&) {
    combo_.SetCurSel(2);
    EXPECT_TRUE(dialog_.GetDlgItemText(code_list) == L"gb");
  });
}

}  // namespace

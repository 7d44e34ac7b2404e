// The list of design codes, and which of them is selected.

#include "tests/unit/tz_alu/dialogs/code_dialog_fixture.h"

namespace {

using dialogs_test::DialogUser;
using dialogs_test::TextOf;
using testing::ElementsAre;
using testing::IsEmpty;

class CodeDialogCodesTest : public dialogs_test::CodeDialogTest {
 protected:
  /// Index of the code that a dialog with a stored code opens with.
  int SelectedFor(const wchar_t* stored) {
    host_.model.settings = T_DALU_D();
    host_.model.settings->strCode = stored;
    int selected = -2;
    Run([&](DialogUser& user) { selected = user.SelectedChoice(IDC_COMB_ALU_CODE); });
    return selected;
  }
  std::vector<std::wstring> Offered() {
    std::vector<std::wstring> offered;
    Run([&](DialogUser& user) { offered = user.choices(IDC_COMB_ALU_CODE); });
    return offered;
  }
};

TEST_F(CodeDialogCodesTest, ShownNamesStandInTheHostsOrder) {
  host_.codes = {L"C", L"A", L"B"};
  EXPECT_THAT(Offered(), ElementsAre(L"shown C", L"shown A", L"shown B"));
}

TEST_F(CodeDialogCodesTest, OneCodeIsNeverOfferedWhereverTheHostListsIt) {
  for (const std::size_t place : {0U, 1U, 3U}) {
    host_.codes = {L"A", L"B", L"C"};
    host_.codes.insert(host_.codes.begin() + static_cast<std::ptrdiff_t>(place), L"GB50068-2018");
    EXPECT_THAT(Offered(), ElementsAre(L"shown A", L"shown B", L"shown C")) << place;
  }
}

TEST_F(CodeDialogCodesTest, NamesLikeTheOneThatIsNotOfferedAreOffered) {
  host_.codes = {L"GB50068-2018", L"GB50068", L"GB50068-2018 "};
  EXPECT_THAT(Offered(), ElementsAre(L"shown GB50068", L"shown GB50068-2018 "));
}

TEST_F(CodeDialogCodesTest, WithoutCodesNothingIsOfferedOrSelected) {
  host_.codes.clear();
  EXPECT_THAT(Offered(), IsEmpty());
  EXPECT_EQ(SelectedFor(L"A"), -1);
}

TEST_F(CodeDialogCodesTest, TheFirstCodeIsSelectedWhenItIsStored) {
  EXPECT_EQ(SelectedFor(L"A"), 0);
}

TEST_F(CodeDialogCodesTest, ALaterCodeIsSelectedWhenItIsStored) {
  EXPECT_EQ(SelectedFor(L"B"), 1);
  EXPECT_EQ(SelectedFor(L"C"), 2);
}

TEST_F(CodeDialogCodesTest, TheFirstCodeIsSelectedWhenTheStoredOneIsNotListed) {
  EXPECT_EQ(SelectedFor(L"X"), 0);
}

TEST_F(CodeDialogCodesTest, TheStoredCodeIsLookedUpExactly) {
  EXPECT_EQ(SelectedFor(L"c"), 0);
  EXPECT_EQ(SelectedFor(L"C "), 0);
}

TEST_F(CodeDialogCodesTest, TheStoredCodeIsLookedUpByItsShownName) {
  EXPECT_EQ(SelectedFor(L"shown C"), 0);
}

TEST_F(CodeDialogCodesTest, TheStoredCodeIsLookedUpAmongThoseOffered) {
  host_.codes = {L"GB50068-2018", L"A", L"B"};
  EXPECT_EQ(SelectedFor(L"B"), 1);
  EXPECT_EQ(SelectedFor(L"GB50068-2018"), 0);
}

TEST_F(CodeDialogCodesTest, AnEmptyStoredCodeSelectsNothing) {
  EXPECT_EQ(SelectedFor(L""), -1);
}

TEST_F(CodeDialogCodesTest, ANewModelHasThePreferredCode) {
  host_.preferred_code = L"C";
  Run([](DialogUser& user) { EXPECT_EQ(TextOf(user, IDC_COMB_ALU_CODE), L"shown C"); });
}

TEST_F(CodeDialogCodesTest, ANewModelWithoutPreferenceHasNoCode) {
  host_.preferred_code = L"";
  Run([](DialogUser& user) { EXPECT_EQ(user.SelectedChoice(IDC_COMB_ALU_CODE), -1); });
}

TEST_F(CodeDialogCodesTest, AModelWithSettingsPassesThePreferenceBy) {
  host_.preferred_code = L"C";
  EXPECT_EQ(SelectedFor(L"B"), 1);
  EXPECT_THAT(host_.calls, testing::Not(testing::Contains("GetPreference")));
}

TEST_F(CodeDialogCodesTest, OpeningASecondTimeOffersEachCodeOnce) {
  CDgnAluCodeDlg dialog;
  for (int i = 0; i < 2; ++i) {
    toolkit_.script([](DialogUser& user) {
      EXPECT_THAT(user.choices(IDC_COMB_ALU_CODE), ElementsAre(L"shown A", L"shown B", L"shown C"));
    });
    dialog.DoModal();
  }
}

}  // namespace

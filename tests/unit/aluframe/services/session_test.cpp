#include "aluframe/services/session.h"

#include <gtest/gtest.h>

#include "tests/support/used_language.h"
#include "tests/unit/aluframe/services/sample_model.h"

namespace aluframe::services {
namespace {

/// Notes what it is told, and asks to stop at `stop_at`.
struct Listener : ProgressListener {
  void started(const std::string& text) override { calls.push_back("started " + text); }
  bool advanced(int done, int total) override {
    calls.push_back(std::to_string(done) + " of " + std::to_string(total));
    return done == stop_at;
  }
  void ended() override { calls.emplace_back("ended"); }

  std::vector<std::string> calls;
  int stop_at = 0;
};

class SessionTest : public testing::Test {
 protected:
  SessionOptions options() {
    SessionOptions options;
    options.progress = &listener_;
    options.message = [this](const std::string& text) { messages_.push_back(text); };
    return options;
  }

  const model::Model model_ = sample_model();
  Listener listener_;
  std::vector<std::string> messages_;
  Session session_{model_, options()};
};

TEST_F(SessionTest, StartsInTheUnitsOfTheModel) {
  EXPECT_EQ(session_.DocPoint()->GetUnitCtrl().GetUnitIndexCurrent(), (T_UNIT_INDEX{1, 0}));
  T_NODE_D node;
  session_.DocPoint()->GetAttrCtrl().GetNode(4, node);
  EXPECT_DOUBLE_EQ(node.dX, 5.0);
}

TEST_F(SessionTest, AllServicesFollowTheUnits) {
  CDBDoc& document = *session_.DocPoint();
  document.GetUnitCtrl().SetUnitIndexCurrent({0, 2}, 0);
  T_NODE_D node;
  document.GetAttrCtrl().GetNode(4, node);
  EXPECT_EQ(node.dX, 5000.0);
  T_ALU_FORCE_D forces;
  document.GetPostCtrl().AluDgnMgr().GetElementForce(1, 1, forces, false);
  EXPECT_EQ(forces.aForce[0][0], 2000.0F);
  EXPECT_EQ(document.GetAttrCtrl2().GetMembTotalLength(7), 5000.0);
}

TEST_F(SessionTest, NobodyCanAnswerABox) {
  EXPECT_TRUE(session_.DocPoint()->IsRegTestMode());
}

TEST_F(SessionTest, ABoxAndTheHistoryReachTheUserAsUtf8) {
  EXPECT_EQ(session_.ShowMessageBox(L"\u94DD", 0), 1);
  session_.SaveHistory(L"second", 0, nullptr);
  EXPECT_EQ(messages_, (std::vector<std::string>{"\xE9\x93\x9D", "second"}));
  EXPECT_TRUE(session_.had_message());
}

TEST_F(SessionTest, AStatusLineIsNoMessage) {
  session_.DisplayAnalString(L"Finished", 0);
  EXPECT_EQ(messages_, std::vector<std::string>{"Finished"});
  EXPECT_FALSE(session_.had_message());
}

TEST_F(SessionTest, MessagesAreNotedAlsoWhenNobodyReadsThem) {
  Session silent(model_, {});
  silent.DisplayAnalString(L"status", 0);
  EXPECT_FALSE(silent.had_message());
  silent.SaveHistory(L"history", 0, nullptr);
  EXPECT_TRUE(silent.had_message());
}

TEST_F(SessionTest, TextsAreInTheUsersLanguage) {
  const CString key(L"IDS_DGN_COM_END_DGN");
  EXPECT_TRUE(session_.MessageText(key) == L"Finished: ");
  const test_support::UsedLanguage used(texts::Language::chinese);
  EXPECT_TRUE(session_.MessageText(key) == L"\u5DF2\u5B8C\u6210\uFF1A");
}

TEST_F(SessionTest, AssertionsAreOnAndCountedByPlace) {
  EXPECT_NE(session_.IsReleaseAssert(), 0);
  session_.ReleaseAssertion(L"one", 7);
  session_.ReleaseAssertion(L"one", 8);
  session_.ReleaseAssertion(L"one", 7);
  EXPECT_EQ(session_.monitor().assertions(),
            (std::map<std::string, std::uint64_t>{{"one:7", 2}, {"one:8", 1}}));
}

TEST_F(SessionTest, ProgressReachesItsListenerUntilTheEnd) {
  const auto dialog = session_.CreateProgressDlg();
  dialog->Create_ProgressDlg(L"Title", L"Checking", 1);
  EXPECT_EQ(dialog->Update_ProgressDlg(1, 2), 0);
  EXPECT_EQ(dialog->Update_ProgressDlg(2, 2), 0);
  dialog->Delete_ProgressDlg();
  EXPECT_EQ(listener_.calls,
            (std::vector<std::string>{"started Checking", "1 of 2", "2 of 2", "ended"}));
}

TEST_F(SessionTest, ProgressEndsOnceHoweverItsDialogIsClosed) {
  {
    const auto closed_twice = session_.CreateProgressDlg();
    closed_twice->Create_ProgressDlg(L"", L"a", 1);
    closed_twice->Delete_ProgressDlg();
  }
  {
    const auto left_open = session_.CreateProgressDlg();
    left_open->Create_ProgressDlg(L"", L"b", 1);
  }
  session_.CreateProgressDlg().reset();  // never shown
  EXPECT_EQ(listener_.calls,
            (std::vector<std::string>{"started a", "ended", "started b", "ended"}));
}

TEST_F(SessionTest, OnceTheListenerAsksToStopEveryUpdateSaysSo) {
  listener_.stop_at = 2;
  const auto dialog = session_.CreateProgressDlg();
  dialog->Create_ProgressDlg(L"", L"", 1);
  EXPECT_EQ(dialog->Update_ProgressDlg(1, 4), 0);
  EXPECT_FALSE(session_.was_cancelled());
  EXPECT_NE(dialog->Update_ProgressDlg(2, 4), 0);
  EXPECT_NE(dialog->Update_ProgressDlg(3, 4), 0);
  EXPECT_TRUE(session_.was_cancelled());
}

TEST_F(SessionTest, ARunThatNobodyWatchesGoesOn) {
  Session unwatched(model_, {});
  const auto dialog = unwatched.CreateProgressDlg();
  dialog->Create_ProgressDlg(L"", L"", 1);
  EXPECT_EQ(dialog->Update_ProgressDlg(1, 2), 0);
  EXPECT_FALSE(unwatched.was_cancelled());
}

// An element that is done without a governing record could not be assembled.
TEST_F(SessionTest, ProgressTellsTheMonitorWhatIsDone) {
  session_.monitor().set_elements({4, 1});
  const auto dialog = session_.CreateProgressDlg();
  dialog->Update_ProgressDlg(1, 2);
  ASSERT_EQ(session_.monitor().not_checked().size(), 1U);
  EXPECT_EQ(session_.monitor().not_checked()[0].element, 4U);
}

TEST_F(SessionTest, LengthFactorsThatTheModelGivesGoFirst) {
  CArray<UINT> elems;
  elems.Add(3);
  ASSERT_EQ(session_.CreateKFactor()->Calc_KFactor(elems, 0, 0, 0, *session_.DgnDynData()), 1);
  T_KFAC_D factors;
  ASSERT_EQ(session_.DgnDynData()->GetKFactor(2, factors), 1);
  EXPECT_EQ(factors.dKy, 0.8);
}

/// What the result file of a run with these options would say about it.
store::RunInfo info_of_run(const model::Model& model, SessionOptions options) {
  store::RunInfo info;
  options.create_writer = [&info](const auto&, const store::RunInfo& given) {
    info = given;
    return std::unique_ptr<store::ResultWriter>();
  };
  Session session(model, std::move(options));
  session.manager().CreateDesignResultFile();
  return info;
}

// Of the sample, 4 is not for design, 3 is an envelope, 5 contains the seismic 4.
TEST_F(SessionTest, TheResultFileListsTheDesignCombinations) {
  const store::RunInfo info = info_of_run(model_, {});
  EXPECT_EQ(info.model_title, "Sample");
  EXPECT_EQ(info.code, "GB 50429-2007");
  std::vector<std::uint32_t> numbers;
  for (const store::CombinationRow& row : info.combinations) {
    numbers.push_back(row.number);
    EXPECT_EQ(row.two_sides, row.number == 3) << row.number;
    EXPECT_EQ(row.seismic, row.number == 5) << row.number;
  }
  EXPECT_EQ(numbers, (std::vector<std::uint32_t>{1, 2, 3, 5}));
}

TEST_F(SessionTest, TheResultFileOfALimitedRunListsItsCombinations) {
  SessionOptions limited;
  limited.combinations = {2, 4};
  const store::RunInfo info = info_of_run(model_, limited);
  ASSERT_EQ(info.combinations.size(), 1U);
  EXPECT_EQ(info.combinations[0].number, 2U);
}

}  // namespace
}  // namespace aluframe::services

// A whole report: its file, its blocks in order, the editor, the user's units and what comes back.

#include "tests/unit/tz_alu/manager/report_test.h"

namespace {

using namespace manager_test;
using testing::ElementsAre;
using testing::Gt;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::Pair;
using testing::SizeIs;

constexpr T_UNIT_INDEX kUserUnits{1, 0};

TEST_F(ReportOfOneElement, ItReturnsOneAfterTheEditorWasStarted) {
  Store(1, {{RALU_STRENGTH}});
  EXPECT_EQ(Report(), 1);
  EXPECT_THAT(host_.log.edited, SizeIs(1));
}

TEST_F(ReportOfOneElement, TheEditorGetsThePathAndTheNameOfTheDesign) {
  Report();
  EXPECT_THAT(host_.log.edited,
              ElementsAre(Pair(file_.path().wstring(), L"[IDS_MAIN_RIBBON_MENU_ALU_DGN]")));
}

TEST_F(ReportOfOneElement, WithoutAPathItIsTheDocumentsFileWithItsOwnExtension) {
  host_.model.document_path = (file_.path().parent_path() / "tower").wstring();
  EXPECT_EQ(manager_.MakeReport(nullptr, L""), 1);
  const std::wstring path = host_.model.document_path + L".alu";
  ASSERT_THAT(host_.log.edited, SizeIs(1));
  EXPECT_EQ(host_.log.edited.front().first, path);
  EXPECT_TRUE(std::filesystem::exists(path));
}

TEST_F(ReportOfOneElement, AGivenPathGoesBeforeThatOfTheDocument) {
  host_.model.document_path = (file_.path().parent_path() / "tower").wstring();
  Report();
  EXPECT_TRUE(file_.exists());
  EXPECT_FALSE(std::filesystem::exists(host_.model.document_path + L".alu"));
}

// U+5E55 U+5899 and U+1F3D7, a character beyond 16 bits.
TEST_F(ReportOfOneElement, APathMayBeInAnyScript) {
  const auto folder = file_.path().parent_path();
  EXPECT_EQ(manager_.MakeReport(nullptr, folder.wstring() + L"/\u5E55\u5899 \U0001F3D7.alu"), 1);
  EXPECT_TRUE(std::filesystem::exists(folder / "\xE5\xB9\x95\xE5\xA2\x99 \xF0\x9F\x8F\x97.alu"));
}

TEST_F(ReportOfOneElement, AnEarlierReportAtThePathIsReplaced) {
  file_.fill("an earlier report\n");
  Report();
  EXPECT_THAT(file_.text(), Not(HasSubstr("an earlier report")));
  EXPECT_THAT(Blocks(), testing::Contains("header"));
}

TEST_F(ReportOfOneElement, TwoReportsInARowToOnePathAreTheSame) {
  Store(1, {{RALU_STRENGTH}});
  Report();
  const std::string first = file_.text();
  Report();
  EXPECT_EQ(file_.text(), first);
}

TEST_F(ReportOfThreeElements, HeaderMembersAndChecksComeInAFixedOrder) {
  Store(1, {{RALU_SHEAR_Z}, {RALU_STRENGTH}, {RALU_SLENDERNESS_Y}});
  Store(2, {{RALU_SHEAR_Y}});
  Store(3, {{RALU_SLENDERNESS_Z}, {RALU_STABILITY}});
  Report();
  EXPECT_THAT(Blocks(), ElementsAre("header", "member 1", "strength", "shear z", "slenderness",
                                    "member 2", "shear y", "member 3", "stability", "slenderness"));
}

TEST_F(ReportOfOneElement, TheHeaderListsTheDesignCombinationsAndNoOthers) {
  host_.model.combinations = {4, 2, MakeLcombKey(2, 1)};
  for (const UINT number : {1U, 2U, 4U}) {
    host_.model.combination_records[number].strName = L"LC" + std::to_wstring(number);
    host_.model.combination_records[number].aEntry.Add({LCOM_ENTRY_STATIC, 1, 1.5});
  }
  Report();
  EXPECT_THAT(LinesWith(file_.text(), "       LC"),
              ElementsAre(HasSubstr("LC4  0"), HasSubstr("LC2  0")));
}

/// Notes what the report's file holds when the editor is started.
struct EditingHost : FakeHost {
  EditingHost(FakeModel tables, const ReportFile& report)
      : FakeHost(std::move(tables)), file(report) {}
  int RunTextEditor(const CString& path, const CString& title) override {
    seen = file.text();
    units_at_start = units;
    return FakeHost::RunTextEditor(path, title) * answer;
  }

  const ReportFile& file;
  std::string seen;
  T_UNIT_INDEX units_at_start;
  int answer = 1;
};

class EditedReport : public testing::Test {
 protected:
  EditedReport() { host::Bind(host_); }
  ~EditedReport() override { host::Unbind(); }

  int Report() { return IAluDgnDataMgr::Instance()->MakeReport(nullptr, file_.path().wstring()); }

  const ReportFile file_;
  EditingHost host_{test_support::one_element_model(), file_};
};

TEST_F(EditedReport, TheEditorFindsTheWholeReport) {
  Report();
  EXPECT_THAT(BlocksOf(host_.seen), ElementsAre("header", "member 1", "strength", "slenderness"));
  EXPECT_EQ(host_.seen, file_.text());
}

TEST_F(EditedReport, AnEditorThatDoesNotStartLeavesTheReportMade) {
  host_.answer = 0;
  EXPECT_EQ(Report(), 1);
}

TEST_F(EditedReport, TheUnitsAreThoseOfTheDesignUntilTheEditorHasBeenStarted) {
  Report();
  EXPECT_EQ(host_.units_at_start, (T_UNIT_INDEX{0, 2}));
  EXPECT_EQ(host_.units, kUserUnits);
}

/// Loses the report's file when an element turns out to have no stored results.
struct LosingHost : FakeHost {
  LosingHost(FakeModel tables, const ReportFile& report)
      : FakeHost(std::move(tables)), file(report) {}
  void ReleaseAssertion(const wchar_t*, int) override { std::filesystem::remove(file.path()); }

  const ReportFile& file;
};

TEST(ReportWithoutBlocks, TheEditorFindsAFileEvenWhenItWasTakenAwayMeanwhile) {
  const ReportFile file;
  LosingHost host(test_support::one_element_model(), file);
  host.model.forces.clear();  // checked now, without a result: no block follows
  host::Bind(host);
  EXPECT_EQ(IAluDgnDataMgr::Instance()->MakeReport(nullptr, file.path().wstring()), 1);
  host::Unbind();
  EXPECT_TRUE(file.exists());
  EXPECT_EQ(file.text(), "");
}

TEST_F(ReportOfOneElement, TheUnitsAreThoseOfTheDesignMeanwhileAndTheUsersAfterwards) {
  Report();
  const auto& events = host_.log.events;
  const auto design = std::find(events.begin(), events.end(), "units 0,2");
  const auto user = std::find(events.begin(), events.end(), "units 1,0");
  ASSERT_NE(design, events.end());
  ASSERT_NE(user, events.end());
  EXPECT_LT(design, std::find(events.begin(), events.end(), "section 1 read"));
  EXPECT_LT(std::find(events.begin(), events.end(), "editor started"), user);
  EXPECT_EQ(host_.units, kUserUnits);
}

TEST_F(ReportOfOneElement, ValuesAreInTheUsersUnits) {
  Store(1, {{RALU_STRENGTH}});
  Report();
  // 10 kN pull, 100 mm pipe.
  EXPECT_THAT(LinesWith(file_.text(), "   N="), ElementsAre("   N=    10.000"));
  EXPECT_THAT(LinesWith(file_.text(), "   D="), ElementsAre("   D=1.00000e-01, tw=5.00000e-03"));
  EXPECT_THAT(LinesWith(file_.text(), "   UNIT"), ElementsAre("   UNIT SYSTEM : m, kN"));
}

TEST_F(ReportOfOneElement, ChangedUnitsShowInTheNextReport) {
  Report();
  host_.model.length_unit = L"mm";
  host_.model.force_unit = L"N";
  Report();
  EXPECT_THAT(LinesWith(file_.text(), "   UNIT"), ElementsAre("   UNIT SYSTEM : mm, N"));
}

// --- nothing to report ---

class NoReport : public ReportOfOneElement {
 protected:
  void ExpectNothingDone() {
    file_.fill("an earlier report\n");
    EXPECT_EQ(Report(), 0);
    EXPECT_EQ(file_.text(), "an earlier report\n");
    EXPECT_THAT(host_.log.edited, IsEmpty());
    EXPECT_THAT(host_.log.events, Not(testing::Contains(HasSubstr("units"))));
    EXPECT_EQ(host_.units, kUserUnits);
  }
};

TEST_F(NoReport, IsMadeWhenTheDesignIsNotInUse) {
  host_.model.is_use_alu = 0;
  ExpectNothingDone();
  EXPECT_THAT(host_.log.history, IsEmpty());
}

TEST_F(NoReport, IsMadeWithoutElementsAndTheUserIsTold) {
  host_.model.other_metals = {1};
  ExpectNothingDone();
  EXPECT_THAT(host_.log.history,
              ElementsAre(L"[IDS_DGN_COM_ERROR_TITLE]\n\t[IDS_ACS_NO_SECT_TYPE_GOOD]"));
}

TEST_F(NoReport, IsMadeWithoutCombinationsAndTheUserIsTold) {
  host_.model.combinations.clear();
  ExpectNothingDone();
  EXPECT_THAT(host_.log.history,
              ElementsAre(L"[IDS_DGN_COM_ERROR_TITLE]\n\t[IDS_ACS_NO_LCOM_GOOD]"));
}

TEST_F(NoReport, MeansNoFileWhereThereWasNone) {
  host_.model.combinations.clear();
  Report();
  EXPECT_FALSE(file_.exists());
}

TEST_F(ReportOfOneElement, APathThatCannotBeWrittenEndsTheReportAsUsual) {
  const std::wstring path = (file_.path().parent_path() / "missing" / "frame.alu").wstring();
  EXPECT_EQ(manager_.MakeReport(nullptr, path), 1);
  EXPECT_EQ(host_.units, kUserUnits);
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(ReportOfOneElement, NoResultFileIsStartedAndNoProgressShown) {
  Report();
  for (const char* event : {"result file created", "progress opened", "result file checked",
                            "design flag 1", "status line written"}) {
    EXPECT_THAT(host_.log.events, Not(testing::Contains(event)));
  }
}

}  // namespace

// What a report calls of its host: the file's name, the editor, and the units that it prints in.

#include <gmock/gmock.h>
#include <stdlib.h>

#include <fstream>
#include <iterator>

#include "aluframe/services/binding.h"
#include "aluframe/services/session.h"
#include "tests/unit/aluframe/services/columns_run.h"
#include "tz_alu/manager/dgnaludatamgr.h"

namespace aluframe::services {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Pair;

class ReportSession : public ColumnsRun {
 protected:
  ReportSession() { setenv("LC_ALL", "C.UTF-8", 1); }

  SessionOptions editing() {
    SessionOptions options = ColumnsRun::options();
    options.open_text = [this](const fs::path& path, const std::string& title) {
      opened_.emplace_back(path, title);
      return editor_starts_;
    };
    return options;
  }
  /// The report of element 1 as a session's module makes it, to the document's own file.
  std::string report(SessionOptions options) {
    options.selected = {1};
    Session session(model_, std::move(options));
    const Binding binding(session);
    session.manager().use_stored_results();
    EXPECT_EQ(IAluDgnDataMgr::Instance()->MakeReport(nullptr, L""), 1);
    session.manager().close_stored_results(nullptr);
    std::ifstream file(folder_.path() / "columns.alu", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  bool editor_starts_ = true;
  std::vector<std::pair<fs::path, std::string>> opened_;
};

TEST_F(ReportSession, TheDocumentsFileChangesItsExtensionAlone) {
  SessionOptions options;
  options.result_path = "/some/folder.d/tower.v2.aluresult";
  Session session(model_, options);
  EXPECT_EQ(session.FileNameWithNewExt(L".alu"), CString(L"/some/folder.d/tower.v2.alu"));
}

TEST_F(ReportSession, TheDocumentsFileKeepsItsOwnCharacters) {
  SessionOptions options;
  options.result_path = "/Projekt/幕墙.aluresult";
  Session session(model_, options);
  EXPECT_EQ(session.FileNameWithNewExt(L".alu"), CString(L"/Projekt/幕墙.alu"));
}

TEST_F(ReportSession, AReportWithoutPathStandsBesideTheResults) {
  run({1});
  EXPECT_THAT(report(options()), HasSubstr("  MEMBER NO = 1,"));
}

TEST_F(ReportSession, TheEditorIsTheOneOfTheOptions) {
  run({1});
  report(editing());
  EXPECT_THAT(opened_, ElementsAre(Pair(folder_.path() / "columns.alu", "Aluminium design")));
}

TEST_F(ReportSession, AnEditorThatDoesNotStartIsAnAnswerOfZero) {
  editor_starts_ = false;
  Session session(model_, editing());
  EXPECT_EQ(session.RunTextEditor(L"frame.alu", L"title"), 0);
}

TEST_F(ReportSession, AnEditorThatStartsIsAnAnswerOfOne) {
  Session session(model_, editing());
  EXPECT_EQ(session.RunTextEditor(L"frame.alu", L"title"), 1);
}

TEST_F(ReportSession, WithoutAnEditorTheFileIsNotShown) {
  Session session(model_, options());
  EXPECT_EQ(session.RunTextEditor(L"frame.alu", L"title"), 0);
}

// --- units ---

// 48 kN pull, or 24 kN push with 100/150 of the slenderness, at a round of 40 mm: element 1 of 1.
TEST_F(ReportSession, UnitsAreThoseOfTheModel) {
  run({1});
  const std::string text = report(options());
  EXPECT_THAT(text, HasSubstr("\n   UNIT SYSTEM : m, kN\n"));
  EXPECT_THAT(text, HasSubstr("\n   D=4.00000e-02\n"));
  EXPECT_THAT(text, HasSubstr("\n   N=    48.000\n"));
}

TEST_F(ReportSession, UnitsOfTheOptionsGoBeforeThoseOfTheModel) {
  run({1});
  SessionOptions pounds = options();
  pounds.units = T_UNIT_INDEX{4, 4};
  const std::string text = report(pounds);
  EXPECT_THAT(text, HasSubstr("\n   UNIT SYSTEM : in, lbf\n"));
  EXPECT_THAT(text, HasSubstr("\n   D=1.57480e+00\n"));  // 40 / 25.4
  EXPECT_THAT(text, HasSubstr("\n   N= 10790.829\n"));   // 48000 / 4.4482216152605
}

TEST_F(ReportSession, UnitsOfTheSessionAreRestored) {
  run({1});
  Session session(model_, options());
  const Binding binding(session);
  session.manager().use_stored_results();
  IAluDgnDataMgr::Instance()->MakeReport(nullptr, L"");
  EXPECT_EQ(session.DocPoint()->GetUnitCtrl().GetUnitIndexCurrent(), (T_UNIT_INDEX{1, 0}));
  session.manager().close_stored_results(nullptr);
}

}  // namespace
}  // namespace aluframe::services

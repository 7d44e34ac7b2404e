// The calls of the host's file helpers with all their arguments. The helpers stand in for those of
// the contract's library here, which drop what our host has no use for.

#include <tuple>

#include "tests/unit/tz_alu/manager/report_test.h"

namespace {

using Placement = std::tuple<int, int, int, int, int, int>;

std::vector<std::pair<std::wstring, int>> asked_names;
std::vector<Placement> placements;

}  // namespace

CString CDBLib::MakeFileNameWithNewExt(const CString& extension, int option) {
  asked_names.emplace_back(extension.GetString(), option);
  return host::Bound().FileNameWithNewExt(extension);
}

int CDBLib::RunTextEditor(const CString& path, const CString& title, int mode, int x, int y,
                          int width, int height, int option) {
  placements.emplace_back(mode, x, y, width, height, option);
  return host::Bound().RunTextEditor(path, title);
}

namespace {

using namespace manager_test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class ReportHostCalls : public ReportOfOneElement {
 protected:
  ReportHostCalls() {
    asked_names.clear();
    placements.clear();
  }
};

TEST_F(ReportHostCalls, TheEditorIsStartedOnceWithTheArgumentsOfAReport) {
  Report();
  EXPECT_THAT(placements, ElementsAre(Placement{1, 1800, 900, 1500, 1000, 0}));
}

TEST_F(ReportHostCalls, TheNameOfTheReportIsAskedForWithItsExtension) {
  host_.model.document_path = (file_.path().parent_path() / "tower").wstring();
  manager_.MakeReport(nullptr, L"");
  EXPECT_THAT(asked_names, ElementsAre(Pair(L".alu", 0)));
}

TEST_F(ReportHostCalls, NoNameIsAskedForWhenAPathIsGiven) {
  Report();
  EXPECT_THAT(asked_names, IsEmpty());
}

}  // namespace

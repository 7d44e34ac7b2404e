#include "aluframe/services/report_file.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

#include "tests/unit/aluframe/services/limited_process.h"
#include "tests/unit/aluframe/services/temporary_folder.h"

namespace aluframe::services {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

class ReportFileTest : public testing::Test {
 protected:
  void fill(const std::string& bytes) const { std::ofstream(path_, std::ios::binary) << bytes; }
  std::string bytes() const {
    std::ifstream file(path_, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  const TemporaryFolder folder_;
  const fs::path path_ = folder_.path() / "frame.alu";
};

// --- before the report ---

TEST_F(ReportFileTest, ANewFileIsNoProblemAndIsNotLeftBehind) {
  EXPECT_EQ(report_problem(path_), std::nullopt);
  EXPECT_FALSE(fs::exists(path_));
}

TEST_F(ReportFileTest, AnExistingFileIsNoProblemAndKeepsItsBytes) {
  fill("an earlier report\n");
  EXPECT_EQ(report_problem(path_), std::nullopt);
  EXPECT_EQ(bytes(), "an earlier report\n");
}

TEST_F(ReportFileTest, AFolderIsAProblem) {
  EXPECT_EQ(report_problem(folder_.path()), folder_.path().string() + ": is a folder");
}

TEST_F(ReportFileTest, AFileInAMissingFolderIsAProblemWithItsReason) {
  const fs::path lost = folder_.path() / "missing" / "frame.alu";
  EXPECT_EQ(report_problem(lost), lost.string() + ": cannot be written: No such file or directory");
}

TEST_F(ReportFileTest, AFileBelowAFileIsAProblemWithItsReason) {
  fill("");
  const fs::path below = path_ / "frame.alu";
  EXPECT_EQ(report_problem(below), below.string() + ": cannot be written: Not a directory");
}

// A file of the kernel, which not even the administrator may write.
TEST_F(ReportFileTest, AFileThatTheSystemProtectsIsAProblem) {
  EXPECT_THAT(report_problem("/proc/version"),
              testing::Optional(testing::StartsWith("/proc/version: cannot be written: ")));
}

TEST_F(ReportFileTest, ADeviceIsAProblem) {
  EXPECT_EQ(report_problem("/dev/null"), "/dev/null: is no ordinary file");
}

TEST_F(ReportFileTest, ALinkToNothingIsNoProblemAndStaysALink) {
  fs::create_symlink("target.alu", path_);
  EXPECT_EQ(report_problem(path_), std::nullopt);
  EXPECT_TRUE(fs::is_symlink(path_));
}

// --- after it ---

TEST_F(ReportFileTest, AFileThatTakesMoreLacksACharacterAndKeepsItsBytes) {
  fill("a report\n");
  const std::string reason =
      ": the report is incomplete: a character that the environment's "
      "character set lacks, in ";
  EXPECT_EQ(incomplete_report_text(path_, 1),
            path_.string() + reason + "1 block; what it holds is as written");
  EXPECT_EQ(incomplete_report_text(path_, 3),
            path_.string() + reason + "3 blocks; what it holds is as written");
  EXPECT_EQ(bytes(), "a report\n");
}

TEST_F(ReportFileTest, AFileThatTakesNoMoreIsIncompleteAndKeepsItsBytes) {
  fill(std::string(5000, 'x'));
  std::string problem;
  ASSERT_EQ(in_child([&] {
              limit_files(6000);
              const auto found = incomplete_report_text(path_, 1);
              return found == path_.string() +
                                  ": the report is incomplete: File too large; what it holds is "
                                  "as written"
                         ? 0
                         : 1;
            }),
            0);
  EXPECT_EQ(bytes(), std::string(5000, 'x'));
}

TEST_F(ReportFileTest, AMissingFileIsAProblemWithItsReason) {
  EXPECT_EQ(incomplete_report_text(path_, 1),
            path_.string() + ": cannot be read: No such file or directory");
}

// --- its elements ---

TEST_F(ReportFileTest, ElementsAreThoseOfTheMemberBlocksInOrder) {
  fill(
      "=====\n  MEMBER NO = 12,   ELEMENT TYPE = Beam\n  MATERIAL NO = 1,   SECTION NO = 1\n=====\n"
      "=====\n  MEMBER NO = 3,   ELEMENT TYPE = Column\n");
  EXPECT_THAT(reported_elements(path_).numbers, ElementsAre(12, 3));
}

TEST_F(ReportFileTest, AMemberBlockAloneIsWithoutChecks) {
  fill(
      "  [[[*]]]   A\n  MEMBER NO = 12,   ELEMENT TYPE = Beam\n"
      "  MEMBER NO = 3,   ELEMENT TYPE = Column\n  [[[*]]]   B\n  [[[*]]]   C\n"
      "  MEMBER NO = 4,   ELEMENT TYPE = Column\n");
  EXPECT_THAT(reported_elements(path_).numbers, ElementsAre(12, 3, 4));
  EXPECT_THAT(reported_elements(path_).without_checks, ElementsAre(12, 4));
}

TEST_F(ReportFileTest, ALargeElementNumberIsReadWhole) {
  fill("  MEMBER NO = 4294967295,   ELEMENT TYPE = --\n");
  EXPECT_THAT(reported_elements(path_).numbers, ElementsAre(4294967295U));
}

TEST_F(ReportFileTest, ACombinationNamedLikeAMemberIsNoElement) {
  fill("     MEMBER NO = 5,  0\n   MEMBER NO = 6\n MEMBER NO = 7\n");
  EXPECT_THAT(reported_elements(path_).numbers, IsEmpty());
}

TEST_F(ReportFileTest, AMissingFileHasNoElements) {
  EXPECT_THAT(reported_elements(path_).numbers, IsEmpty());
}

}  // namespace
}  // namespace aluframe::services

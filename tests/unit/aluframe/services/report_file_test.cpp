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
using testing::StartsWith;

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

// --- when it has lost blocks ---

TEST_F(ReportFileTest, AFileThatTakesMoreNowHadAFailureOfAMomentAndKeepsItsBytes) {
  fill("a report\n");
  ASSERT_EQ(setenv("LC_ALL", "C.UTF-8", 1), 0);
  EXPECT_EQ(reason_of_lost_blocks(path_, 1), "writing failed for a moment, in 1 block; try again");
  EXPECT_EQ(reason_of_lost_blocks(path_, 3), "writing failed for a moment, in 3 blocks; try again");
  EXPECT_EQ(bytes(), "a report\n");
}

TEST_F(ReportFileTest, AFileThatTakesNoMoreSaysWhyAndKeepsItsBytes) {
  fill(std::string(5000, 'x'));
  ASSERT_EQ(in_child([&] {
              limit_files(6000);
              return reason_of_lost_blocks(path_, 1) == "File too large" ? 0 : 1;
            }),
            0);
  EXPECT_EQ(bytes(), std::string(5000, 'x'));
}

TEST_F(ReportFileTest, AMissingFileHasItsReason) {
  EXPECT_EQ(reason_of_lost_blocks(path_, 1), "cannot be read: No such file or directory");
}

// --- its elements ---

TEST_F(ReportFileTest, ElementsAreThoseOfTheMemberBlocksInOrder) {
  const std::string text(
      "=====\n  MEMBER NO = 12,   ELEMENT TYPE = Beam\n  MATERIAL NO = 1,   SECTION NO = 1\n=====\n"
      "=====\n  MEMBER NO = 3,   ELEMENT TYPE = Column\n");
  EXPECT_THAT(reported_elements(text).numbers, ElementsAre(12, 3));
}

TEST_F(ReportFileTest, AMemberBlockAloneIsWithoutChecks) {
  const std::string text(
      "  [[[*]]]   A\n  MEMBER NO = 12,   ELEMENT TYPE = Beam\n"
      "  MEMBER NO = 3,   ELEMENT TYPE = Column\n  [[[*]]]   B\n  [[[*]]]   C\n"
      "  MEMBER NO = 4,   ELEMENT TYPE = Column\n");
  EXPECT_THAT(reported_elements(text).numbers, ElementsAre(12, 3, 4));
  EXPECT_THAT(reported_elements(text).verdicts,
              ElementsAre(IsEmpty(), ElementsAre(Verdict::none, Verdict::none), IsEmpty()));
}

TEST_F(ReportFileTest, TheVerdictOfACheckIsTheOneInItsBlock) {
  const std::string text(
      "  MEMBER NO = 12,   ELEMENT TYPE = Beam\n"
      "  [[[*]]]   A\n   R=     1.248>1.00 ----> Not Acceptable!\n"
      "  [[[*]]]   B\n   R=     0.313<1.00 ----> OK\n"
      "  [[[*]]]   C\n"
      "  [[[*]]]   D\n   kl/i=   200.000>   150.000---->Not Acceptable!\n");
  EXPECT_THAT(
      reported_elements(text).verdicts,
      ElementsAre(ElementsAre(Verdict::fails, Verdict::passes, Verdict::none, Verdict::fails)));
}

TEST_F(ReportFileTest, ALargeElementNumberIsReadWhole) {
  const std::string text("  MEMBER NO = 4294967295,   ELEMENT TYPE = --\n");
  EXPECT_THAT(reported_elements(text).numbers, ElementsAre(4294967295U));
}

TEST_F(ReportFileTest, ACombinationNamedLikeAMemberIsNoElement) {
  const std::string text("     MEMBER NO = 5,  0\n   MEMBER NO = 6\n MEMBER NO = 7\n");
  EXPECT_THAT(reported_elements(text).numbers, IsEmpty());
}

TEST_F(ReportFileTest, AnEmptyReportHasNoElements) {
  EXPECT_THAT(reported_elements("").numbers, IsEmpty());
}

}  // namespace
}  // namespace aluframe::services

#include <gtest/gtest.h>

#include "apps/cli/progress_bar.h"

namespace aluframe::cli {
namespace {

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

// 500 of 2000 in 2 s: 25 %, 6 of 24 marks, 250/s, 1500/250 = 6 s left.
TEST(ProgressLine, ShowsShareRateAndRemainingTime) {
  EXPECT_EQ(progress_line("Checking", 500, 2000, 2.0),
            "Checking [######..................]  25 %  500/2000  250/s  0:06 left");
}

TEST(ProgressLine, IsFullAtTheEnd) {
  EXPECT_EQ(progress_line("Checking", 4, 4, 2.0),
            "Checking [########################] 100 %  4/4  2/s  0:00 left");
}

// 1999 of 2000 are 23.99 marks and 99.95 %.
TEST(ProgressLine, IsNotFullBeforeTheEnd) {
  EXPECT_NE(progress_line("", 1999, 2000, 1.0).find("[#######################.]"),
            std::string::npos);
}

// 1 of 1000 in 1 s: 999 s = 16:39 left; 1 of 10000: 9999 s = 166:39.
TEST(ProgressLine, CountsMinutes) {
  EXPECT_NE(progress_line("", 1, 1000, 1.0).find("16:39 left"), std::string::npos);
  EXPECT_NE(progress_line("", 1, 10000, 1.0).find("166:39 left"), std::string::npos);
}

// 500 of 1000 that were left are done in 2 s: 250/s, 500/250 = 2 s left.
TEST(ProgressLine, GoesByWhatThisRunHasChecked) {
  EXPECT_EQ(progress_line("Checking", 1500, 2000, 2.0, 1000),
            "Checking [##################......]  75 %  1500/2000  250/s  0:02 left");
}

TEST(ProgressLine, PromisesNothingBeforeTheFirstElement) {
  EXPECT_EQ(progress_line("", 0, 10, 0.0).find("left"), std::string::npos);
  EXPECT_EQ(progress_line("", 0, 10, 5.0).find("left"), std::string::npos);
}

TEST(ProgressLine, IsFullWhenThereIsNothingToDo) {
  EXPECT_NE(progress_line("", 0, 0, 0.0).find("########################] 100 %  0/0"),
            std::string::npos);
}

TEST(ProgressMode, IsNamed) {
  EXPECT_EQ(parse_progress_mode("auto"), ProgressMode::automatic);
  EXPECT_EQ(parse_progress_mode("always"), ProgressMode::always);
  EXPECT_EQ(parse_progress_mode("never"), ProgressMode::never);
  EXPECT_EQ(parse_progress_mode("sometimes"), std::nullopt);
}

TEST(ProgressBar, DrawsOverItsLineAndErasesItAtTheEnd) {
  ProgressBar bar(true);
  CaptureStderr();
  bar.started("Checking");
  EXPECT_FALSE(bar.advanced(2, 2));
  bar.ended();
  const std::string drawn = GetCapturedStderr();
  EXPECT_EQ(drawn.find("\r\x1b[KChecking [####"), 0U) << drawn;
  EXPECT_EQ(drawn.substr(drawn.size() - 4), "\r\x1b[K");
}

TEST(ProgressBar, DrawsNothingWhenNotWanted) {
  ProgressBar bar(false);
  CaptureStderr();
  bar.started("Checking");
  bar.advanced(2, 2);
  bar.ended();
  EXPECT_EQ(GetCapturedStderr(), "");
}

}  // namespace
}  // namespace aluframe::cli

#include <gtest/gtest.h>

#include "apps/cli/progress_bar.h"

namespace aluframe::cli {
namespace {

// 500 of 2000 in 2 s: 25 %, 6 of 24 marks, 250/s, 1500/250 = 6 s left.
TEST(ProgressLine, ShowsShareRateAndRemainingTime) {
  EXPECT_EQ(progress_line("Checking", 500, 2000, 2.0),
            "Checking [######..................]  25 %  500/2000  250/s  0:06 left");
}

TEST(ProgressLine, IsFullAtTheEnd) {
  EXPECT_EQ(progress_line("Checking", 4, 4, 2.0),
            "Checking [########################] 100 %  4/4  2/s  0:00 left");
}

// 1 of 1000 in 1 s: 999 s = 16:39 left.
TEST(ProgressLine, CountsMinutes) {
  EXPECT_NE(progress_line("", 1, 1000, 1.0).find("16:39 left"), std::string::npos);
}

TEST(ProgressLine, PromisesNothingBeforeTheFirstElement) {
  EXPECT_EQ(progress_line("", 0, 10, 0.0).find("left"), std::string::npos);
}

}  // namespace
}  // namespace aluframe::cli

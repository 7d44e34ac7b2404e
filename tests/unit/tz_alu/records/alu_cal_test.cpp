#include "tz_alu/records/alu_cal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::Each;

namespace {

TEST(AluCalSectpara, StartsWithZeros) {
  const ALU_CAL_SECTPARA para;
  const double values[] = {para.dA, para.dW1, para.dW2, para.dWz, para.dR1, para.dR2, para.dRw};
  EXPECT_THAT(values, Each(0.0));
}

TEST(AluCalSectpara, InitializeClearsEveryValue) {
  ALU_CAL_SECTPARA para;
  para.dA = para.dW1 = para.dW2 = para.dWz = para.dR1 = para.dR2 = para.dRw = 7.0;
  para.Initialize();
  const double values[] = {para.dA, para.dW1, para.dW2, para.dWz, para.dR1, para.dR2, para.dRw};
  EXPECT_THAT(values, Each(0.0));
}

TEST(AluCalReport, HasTwentyThreeValuesAllZero) {
  const ALU_CAL_REPORT report;
  EXPECT_EQ(std::size(report.dValue), 23U);
  EXPECT_THAT(report.dValue, Each(0.0));
}

TEST(AluCalReport, CopiesEveryValue) {
  ALU_CAL_REPORT report;
  for (int i = 0; i < 23; ++i) report.dValue[i] = i + 0.5;
  const ALU_CAL_REPORT copy = report;
  EXPECT_THAT(copy.dValue, testing::ElementsAreArray(report.dValue));
}

TEST(AluCalBuff, OwnsAZeroedReportFromTheStart) {
  const ALU_CAL_BUFF buffer;
  ASSERT_NE(buffer.report, nullptr);
  EXPECT_THAT(buffer.report->dValue, Each(0.0));
}

TEST(AluCalBuff, InitialClearsBothParts) {
  ALU_CAL_BUFF buffer;
  buffer.sectpara.dWz = 3.0;
  buffer.report->dValue[22] = 4.0;
  buffer.Initial();
  EXPECT_EQ(buffer.sectpara.dWz, 0.0);
  EXPECT_THAT(buffer.report->dValue, Each(0.0));
}

TEST(AluCalBuff, InitialKeepsItsReportRecord) {
  ALU_CAL_BUFF buffer;
  const ALU_CAL_REPORT* report = buffer.report.get();
  buffer.Initial();
  EXPECT_EQ(buffer.report.get(), report);
}

}  // namespace

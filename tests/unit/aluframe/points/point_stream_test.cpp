#include "aluframe/points/point_stream.h"

#include <gtest/gtest.h>

#include <sstream>

#include "aluframe/points/point_writer.h"

namespace {

using namespace aluframe::points;

struct Checked {
  std::string out;
  StreamSummary summary;
};

Checked check(const std::string& text) {
  std::istringstream in(text);
  std::ostringstream out;
  const StreamSummary summary = check_points(in, out);
  return {out.str(), summary};
}

/// A round bar of 20 mm, strength alone: A 314.159 given as 400 for round numbers, ηA 0.5.
std::string bar(const std::string& id, double newtons, const std::string& grade = "6061-T6") {
  return R"({"id": )" + id +
         R"(, "data": {"nCheckFlag": [1, 0, 0, 0, 0, 0, 0, 0], "code": {"sect": {"nShape": 6, )"
         R"("dSize": [20, 20, 0, 0, 0, 0, 0, 0], "dArea": 400, "dIyy": 1e4, "dIzz": 1e4, )"
         R"("dPtY": [10, 10, -10, -10], "dPtZ": [10, 10, -10, -10], "bWelded": 0}, )"
         R"json("matl": {"strStandard": "GB50429-07(A)", "strGrade": ")json" +
         grade + R"(", "dF02Thin": 120}, "para": {"dCoef085": 0.5}}}, "force": {"dForce": [)" +
         std::to_string(newtons) + ", 0, 0, 0, 0, 0]}}\n";
}

// Demand 10,000/(400·0.5) = 50, capacity 200; W = 1e4/10 = 1000.
TEST(CheckPoints, AnswersEveryPointWithItsResults) {
  EXPECT_EQ(check(bar("7", 10000)).out,
            R"({"id":7,"ret":1,"items":[[50,200],[0,0],[0,0],[0,0],[0,0],[0,0],[0,0],[0,0]],)"
            R"("sectpara":[400,1000,1000,1000,0,0,0],)"
            R"("report":[0,200,200,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]})"
            "\n");
}

TEST(CheckPoints, NothingRemainsFromThePointBefore) {
  const std::string alone = check(bar("1", 5000)).out;
  const Checked both = check(bar("0", 10000) + bar("1", 5000));
  EXPECT_TRUE(both.out.ends_with(alone)) << both.out;
}

TEST(CheckPoints, ABadLineIsAnsweredAndTheOthersAreStillChecked) {
  const Checked checked = check(bar("1", 1000) + "\n{\"x\": 1}\n" + bar("2", 1000));
  EXPECT_NE(checked.out.find(R"({"line":3,"error":"/x: unknown field)"), std::string::npos)
      << checked.out;
  EXPECT_NE(checked.out.find(R"({"id":2,"ret":1)"), std::string::npos);
  EXPECT_EQ(checked.summary.checked, 2U);
  EXPECT_EQ(checked.summary.bad_lines, 1U);
}

TEST(CheckPoints, BlankLinesAreSkipped) {
  const Checked checked = check("\n  \t\n\r\n");
  EXPECT_EQ(checked.out, "");
  EXPECT_EQ(checked.summary.bad_lines, 0U);
}

TEST(CheckPoints, ALineBeyondTheLimitIsAnError) {
  const Checked text = check(std::string((std::size_t{1} << 20) + 1, 'x') + "\n{}\n");
  EXPECT_TRUE(text.out.starts_with(R"({"line":1,"error":"the line is longer than 1048576 bytes"})"))
      << text.out;
  EXPECT_EQ(text.summary.checked, 1U);
}

TEST(CheckPoints, ALineBeyondTheLimitThatBeginsWithBlanksIsNotTakenForABlankOne) {
  const Checked checked = check(std::string(std::size_t{1} << 20, ' ') + "{}\n");
  EXPECT_EQ(checked.summary.bad_lines, 1U);
}

TEST(CheckPoints, InconsistenciesOfTheEngineAreCounted) {
  const Checked checked = check(bar("1", 1000, "unknown") + bar("2", 1000, "unknown"));
  ASSERT_EQ(checked.summary.assertions.size(), 1U);
  EXPECT_TRUE(
      checked.summary.assertions.begin()->first.starts_with("src\\tz_alu\\alucode_gb50429_07:"));
  EXPECT_EQ(checked.summary.assertions.begin()->second, 2U);
}

/// Takes a few bytes and then no more, as a full disk.
class FullBuffer : public std::stringbuf {
  std::streamsize xsputn(const char* text, std::streamsize size) override {
    left_ -= size;
    return left_ < 0 ? 0 : std::stringbuf::xsputn(text, size);
  }
  std::streamsize left_ = 300;
};

TEST(CheckPoints, StopsWhenTheOutputTakesNoMore) {
  FullBuffer buffer;
  std::ostream out(&buffer);
  std::istringstream in(bar("1", 1) + bar("2", 1) + bar("3", 1) + bar("4", 1));
  const StreamSummary summary = check_points(in, out);
  EXPECT_TRUE(summary.write_failed);
  EXPECT_LT(summary.checked, 4U);
}

TEST(PointLine, HasTheSectionParametersInTheOrderOfTheirNames) {
  ALU_CAL_BUFF buffer;
  buffer.sectpara.dA = 1;
  buffer.sectpara.dW1 = 2;
  buffer.sectpara.dW2 = 3;
  buffer.sectpara.dWz = 4;
  buffer.sectpara.dR1 = 5;
  buffer.sectpara.dR2 = 6;
  buffer.sectpara.dRw = 7;
  EXPECT_NE(point_line("1", 1, T_RALU_SECT(), buffer).find(R"("sectpara":[1,2,3,4,5,6,7])"),
            std::string::npos);
}

TEST(PointLine, WritesWhatIsNotFiniteAsText) {
  T_RALU_SECT result;
  result.aItem[3].dDemand = std::numeric_limits<double>::quiet_NaN();
  result.aItem[3].dCapacity = -std::numeric_limits<double>::infinity();
  result.aItem[4].dDemand = std::numeric_limits<double>::infinity();
  result.aItem[4].dCapacity = 0.1;
  EXPECT_NE(point_line("1", 1, result, ALU_CAL_BUFF())
                .find(R"(["nan","-inf"],["inf",0.10000000000000001])"),
            std::string::npos);
}

}  // namespace

// The lines that all detail blocks share: combination and position, ratio and verdict.

#include <cmath>
#include <limits>

#include "tests/unit/tz_alu/report/detail_sample.h"

namespace {

using namespace report_test;
using testing::HasSubstr;

class VerdictLine : public DetailBlockTest {
 protected:
  /// The last line of the strength block of a pulled member, from the formula on.
  std::string Verdict(double demand, double capacity) {
    SetForces(11.0, 0.0, 0.0);
    SetItem(RALU_STRENGTH, demand, capacity);
    const std::string text = Print(&CALU_GB50429_07Print::PrintStrength);
    return text.substr(text.find("Rmax1="));
  }
};

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST_F(VerdictLine, ARatioOfOnePasses) {
  EXPECT_EQ(Verdict(200.0, 200.0), "Rmax1=N/(f*Aen)=     1.000<1.00 ----> OK\n");
}

TEST_F(VerdictLine, ARatioWithinTheTolerancePasses) {
  EXPECT_EQ(Verdict(1.00000000005, 1.0), "Rmax1=N/(f*Aen)=     1.000<1.00 ----> OK\n");
}

// 1.0000000001 is stored as 1 + 1.0000000827e-10, the double before it as 1 + 0.9999998607e-10.
TEST_F(VerdictLine, TheBorderIsTheToleranceBeyondOne) {
  const double beyond = 1.0000000001;
  EXPECT_EQ(Verdict(std::nextafter(beyond, 0.0), 1.0),
            "Rmax1=N/(f*Aen)=     1.000<1.00 ----> OK\n");
  EXPECT_EQ(Verdict(beyond, 1.0), "Rmax1=N/(f*Aen)=     1.000>1.00 ----> Not Acceptable!\n");
}

TEST_F(VerdictLine, ARatioBeyondTheToleranceFails) {
  EXPECT_EQ(Verdict(1.0000001, 1.0), "Rmax1=N/(f*Aen)=     1.000>1.00 ----> Not Acceptable!\n");
  EXPECT_EQ(Verdict(250.0, 200.0), "Rmax1=N/(f*Aen)=     1.250>1.00 ----> Not Acceptable!\n");
}

TEST_F(VerdictLine, ANegativeRatioPasses) {
  EXPECT_EQ(Verdict(-500.0, 200.0), "Rmax1=N/(f*Aen)=    -2.500<1.00 ----> OK\n");
}

TEST_F(VerdictLine, TheRatioHasAnExponentWhereTheNumberRuleSaysSo) {
  EXPECT_EQ(Verdict(0.0001, 1.0), "Rmax1=N/(f*Aen)= 1.000e-04<1.00 ----> OK\n");
  EXPECT_EQ(Verdict(2e6, 1.0), "Rmax1=N/(f*Aen)= 2.000e+06>1.00 ----> Not Acceptable!\n");
  EXPECT_EQ(Verdict(0.0, 1.0), "Rmax1=N/(f*Aen)=     0.000<1.00 ----> OK\n");
}

TEST_F(VerdictLine, AnInfiniteRatioFails) {
  EXPECT_EQ(Verdict(kInfinity, 1.0), "Rmax1=N/(f*Aen)=       inf>1.00 ----> Not Acceptable!\n");
  EXPECT_EQ(Verdict(1.0, 0.0), "Rmax1=N/(f*Aen)=       inf>1.00 ----> Not Acceptable!\n");
}

TEST_F(VerdictLine, ANegativeInfiniteRatioPasses) {
  EXPECT_EQ(Verdict(-1.0, 0.0), "Rmax1=N/(f*Aen)=      -inf<1.00 ----> OK\n");
}

// The sign of 0/0 is the processor's.
TEST_F(VerdictLine, AnUndefinedRatioFails) {
  const auto fails =
      testing::MatchesRegex("Rmax1=N/\\(f\\*Aen\\)=      (-| )nan>1\\.00 ----> Not Acceptable!\n");
  EXPECT_THAT(Verdict(0.0, 0.0), fails);
  EXPECT_THAT(Verdict(std::numeric_limits<double>::quiet_NaN(), 1.0), fails);
}

TEST_F(VerdictLine, TheCapacityAlreadyHoldsItsUnits) {
  SetUnits(1e-3, 1e-3);
  EXPECT_EQ(Verdict(150.0, 200.0), "Rmax1=N/(f*Aen)=     0.750<1.00 ----> OK\n");
}

// --- combination and position ---

class LoadLine : public DetailBlockTest {
 protected:
  std::string Load(UINT key, std::int32_t nPos) {
    SetForces(11.0, 0.0, 0.0);
    force_.nLComb = key;
    force_.nPos = nPos;
    const std::string text = Print(&CALU_GB50429_07Print::PrintStrength);
    const std::size_t begin = text.find("   (LCB=");
    return text.substr(begin, text.find('\n', begin) - begin);
  }
};

TEST_F(LoadLine, NamesThePositionsFromStartToEnd) {
  EXPECT_EQ(Load(1, 0), "   (LCB=1, POS=I)");
  EXPECT_EQ(Load(1, 1), "   (LCB=1, POS=1/4)");
  EXPECT_EQ(Load(1, 2), "   (LCB=1, POS=1/2)");
  EXPECT_EQ(Load(1, 3), "   (LCB=1, POS=3/4)");
  EXPECT_EQ(Load(1, 4), "   (LCB=1, POS=J)");
}

TEST_F(LoadLine, AnyOtherPositionIsADash) {
  for (const std::int32_t nPos : {-1, 5, 100}) {
    EXPECT_EQ(Load(1, nPos), "   (LCB=1, POS=--)") << nPos;
  }
}

TEST_F(LoadLine, TheNumberHasPlainDigits) {
  EXPECT_EQ(Load(0, 0), "   (LCB=0, POS=I)");
  EXPECT_EQ(Load(1234567, 0), "   (LCB=1234567, POS=I)");
}

// Bit 27 is the side of an envelope.
TEST_F(LoadLine, TheSideOfAnEnvelopeIsNotPartOfTheNumber) {
  EXPECT_EQ(Load(0x8000000 + 42, 0), "   (LCB=42, POS=I)");
  EXPECT_EQ(Load(0xFFFFFFF, 4), "   (LCB=134217727, POS=J)");
}

}  // namespace

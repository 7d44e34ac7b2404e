// The terms of a combination: factors, and where lines end. Texts are typed by hand.

#include "tests/unit/tz_alu/report/combination_list.h"

namespace {

using namespace report_test;

class CombinationRow : public CombinationListTest {
 protected:
  // A term that is dropped: a moving load (code 1) that the host lacks.
  CombinationRow() { host_.model.moving_load_code = 1; }
  static constexpr T_LCOM_ENTRY_D kDropped{4, 99, 1.0};
};

// --- factors ---

TEST_F(CombinationRow, APositiveFactorHasABlankForItsSign) {
  EXPECT_EQ(Row({{1, 1, 1.2}}), "       LC1  0                DL( 1.200)\n");
}

TEST_F(CombinationRow, ANegativeFactorHasItsSignInPlaceOfTheBlank) {
  EXPECT_EQ(Row({{1, 1, -1.2}}), "       LC1  0                DL(-1.200)\n");
}

TEST_F(CombinationRow, AFactorHasThreeDecimalsWhateverItsSize) {
  EXPECT_EQ(Row({{1, 1, 1234567.8916}, {1, 2, 0.0004}, {1, 3, -0.0004}}),
            "       LC1  0                DL( 1234567.892)"
            " +            LL( 0.000)"
            " +            WX(-0.000)\n");
}

TEST_F(CombinationRow, ATermWithFactorZeroIsNotPrinted) {
  EXPECT_EQ(Row({{1, 1, 1.2}, {1, 2, 0.0}, {1, 3, -1.0}}),
            "       LC1  0                DL( 1.200) +            WX(-1.000)\n");
}

TEST_F(CombinationRow, ANegativeZeroIsAZero) {
  EXPECT_EQ(Row({{1, 1, 1.2}, {1, 2, -0.0}}), "       LC1  0                DL( 1.200)\n");
}

TEST_F(CombinationRow, TheFirstPrintedTermHasNoPlusEvenAfterAZero) {
  EXPECT_EQ(Row({{1, 1, 0.0}, {1, 2, 1.4}}), "       LC1  0                LL( 1.400)\n");
}

TEST_F(CombinationRow, ALastTermWithFactorZeroEndsTheRow) {
  EXPECT_EQ(Row({{1, 1, 1.2}, {1, 2, 0.0}}), "       LC1  0                DL( 1.200)\n");
}

TEST_F(CombinationRow, ARowOfZerosIsEndedWithoutTerms) {
  EXPECT_EQ(Row({{1, 1, 0.0}, {1, 2, 0.0}}), "       LC1  0 \n");
}

// --- lines of three terms ---

TEST_F(CombinationRow, ThreeTermsStandOnOneLine) {
  EXPECT_EQ(Row({{1, 1, 1.2}, {1, 2, 1.4}, {1, 3, -0.6}}),
            "       LC1  0                DL( 1.200) +            LL( 1.400)"
            " +            WX(-0.600)\n");
}

TEST_F(CombinationRow, TheFourthTermStandsOnASecondLineBehindAPlus) {
  EXPECT_EQ(Row({{1, 1, 1.2}, {1, 2, 1.4}, {1, 3, -0.6}, {1, 4, 0.7}}),
            "       LC1  0                DL( 1.200) +            LL( 1.400)"
            " +            WX(-0.600)\n"
            "                +          TEMP( 0.700)\n");
}

TEST_F(CombinationRow, SixTermsFillTwoLinesAndNoThird) {
  EXPECT_EQ(Row({{1, 1, 1}, {1, 2, 2}, {1, 3, 3}, {1, 4, 4}, {1, 1, 5}, {1, 2, 6}}),
            "       LC1  0                DL( 1.000) +            LL( 2.000)"
            " +            WX( 3.000)\n"
            "                +          TEMP( 4.000) +            DL( 5.000)"
            " +            LL( 6.000)\n");
}

TEST_F(CombinationRow, TheSeventhTermStandsOnAThirdLine) {
  EXPECT_EQ(Row({{1, 1, 1}, {1, 2, 2}, {1, 3, 3}, {1, 4, 4}, {1, 1, 5}, {1, 2, 6}, {1, 3, 7}}),
            "       LC1  0                DL( 1.000) +            LL( 2.000)"
            " +            WX( 3.000)\n"
            "                +          TEMP( 4.000) +            DL( 5.000)"
            " +            LL( 6.000)\n"
            "                +            WX( 7.000)\n");
}

TEST_F(CombinationRow, TermsWithFactorZeroDoNotFillALine) {
  EXPECT_EQ(Row({{1, 1, 1}, {1, 2, 0}, {1, 2, 2}, {1, 2, 0}, {1, 3, 3}, {1, 4, 4}}),
            "       LC1  0                DL( 1.000) +            LL( 2.000)"
            " +            WX( 3.000)\n"
            "                +          TEMP( 4.000)\n");
}

TEST_F(CombinationRow, AZeroAfterThreeTermsLeavesALineOfBlanks) {
  EXPECT_EQ(Row({{1, 1, 1}, {1, 2, 2}, {1, 3, 3}, {1, 4, 0}}),
            "       LC1  0                DL( 1.000) +            LL( 2.000)"
            " +            WX( 3.000)\n"
            "               \n");
}

TEST_F(CombinationRow, EveryCombinationCountsItsTermsAnew) {
  SetTerms({{1, 1, 1}, {1, 2, 2}});
  Combination(2, L"LC2").aEntry.Add({1, 3, 3});
  Combination(2).aEntry.Add({1, 4, 4});
  EXPECT_EQ(List({1, 2}),
            "       LC1  0                DL( 1.000) +            LL( 2.000)\n"
            "       LC2  0                WX( 3.000) +          TEMP( 4.000)\n");
}

// --- terms that are dropped ---

TEST_F(CombinationRow, ADroppedTermLeavesNoTrace) {
  EXPECT_EQ(Row({{1, 1, 1}, kDropped, {1, 2, 2}}),
            "       LC1  0                DL( 1.000) +            LL( 2.000)\n");
}

TEST_F(CombinationRow, ADroppedFirstTermLeavesTheNextWithoutAPlus) {
  EXPECT_EQ(Row({kDropped, {1, 2, 2}}), "       LC1  0                LL( 2.000)\n");
}

TEST_F(CombinationRow, ADroppedTermDoesNotFillALine) {
  EXPECT_EQ(Row({{1, 1, 1}, {1, 2, 2}, kDropped, {1, 3, 3}, {1, 4, 4}}),
            "       LC1  0                DL( 1.000) +            LL( 2.000)"
            " +            WX( 3.000)\n"
            "                +          TEMP( 4.000)\n");
}

// Terms are written when their line ends, which a dropped last term prevents.
TEST_F(CombinationRow, ADroppedLastTermTakesItsLineWithIt) {
  SetTerms({{1, 1, 1}, {1, 2, 2}, kDropped});
  Combination(2, L"LC2").aEntry.Add({1, 3, 3});
  EXPECT_EQ(List({1, 2}), "       LC1  0        LC2  0                WX( 3.000)\n");
}

TEST_F(CombinationRow, ADroppedLastTermAfterThreeLeavesTheIndentOfALine) {
  SetTerms({{1, 1, 1}, {1, 2, 2}, {1, 3, 3}, kDropped});
  Combination(2, L"LC2").aEntry.Add({1, 4, 4});
  EXPECT_EQ(List({1, 2}),
            "       LC1  0                DL( 1.000) +            LL( 2.000)"
            " +            WX( 3.000)\n"
            "                      LC2  0              TEMP( 4.000)\n");
}

TEST_F(CombinationRow, ADroppedTermIsDroppedWhateverItsFactor) {
  T_LCOM_ENTRY_D zero = kDropped;
  zero.dFactor = 0.0;
  EXPECT_EQ(Row({{1, 1, 1}, zero}), "       LC1  0 ");
}

}  // namespace

// The report's title and the rows of its combinations. Texts are typed by hand.

#include "tests/unit/tz_alu/report/combination_list.h"

namespace {

using namespace report_test;

TEST_F(CombinationListTest, TheHeaderIsATitleAndTheHeadings) {
  print_.PrintHeader({});
  EXPECT_EQ(Text(), Lines({
                        Rule(),
                        "  Aluminum Alloy Code Checking [ GB 50429 \uCB6F 2007 ]",
                        Rule(),
                        "  [[[*]]]   \uBD50\u6F7C\u8389\uBD81",
                        Rule(),
                        "     LCB    C      Loadcase Name(Factor)+  Loadcase Name(Factor)+  "
                        "Loadcase Name(Factor)",
                    }));
}

// --- which combinations ---

TEST_F(CombinationListTest, CombinationsComeInTheOrderOfTheList) {
  for (const UINT number : {1U, 2U, 3U}) {
    Combination(number, L"LC" + std::to_wstring(number)).aEntry.Add({1, 1, 1.5});
  }
  EXPECT_EQ(List({3, 1, 2}),
            "       LC3  0                DL( 1.500)\n"
            "       LC1  0                DL( 1.500)\n"
            "       LC2  0                DL( 1.500)\n");
}

TEST_F(CombinationListTest, AKeyOfTheMinimumSideIsPassedOver) {
  Combination(1, L"LC1").aEntry.Add({1, 1, 1.5});
  EXPECT_EQ(List({0x8000001}), "");
  EXPECT_EQ(List({1, 0x8000001}), "       LC1  0                DL( 1.500)\n");
}

TEST_F(CombinationListTest, TheNumberIsTheLow27BitsOfTheKey) {
  Combination(0x7FFFFFF, L"LAST").aEntry.Add({1, 1, 1.5});
  EXPECT_EQ(List({0x17FFFFFF}), "      LAST  0                DL( 1.500)\n");
}

TEST_F(CombinationListTest, ACombinationThatTheHostLacksIsLeftOut) {
  Combination(1, L"LC1").aEntry.Add({1, 1, 1.5});
  EXPECT_EQ(List({2, 1, 3}), "       LC1  0                DL( 1.500)\n");
  EXPECT_TRUE(host_.log.assertions.empty());
  EXPECT_TRUE(host_.log.history.empty());
}

TEST_F(CombinationListTest, DesignCombinationsAreAskedForAsThoseOfAluminium) {
  Combination(7, L"LC7").aEntry.Add({1, 1, 1.5});
  List({7, 9});
  EXPECT_THAT(host_.log.combination_reads,
              testing::ElementsAre(std::pair(6, 7U), std::pair(6, 9U)));
}

// --- the beginning of a row ---

TEST_F(CombinationListTest, ARowStartsWithNameAndType) {
  Combination(1, L"ENV").nType = 1;
  Combination(1).aEntry.Add({1, 1, 1.5});
  EXPECT_EQ(List({1}), "       ENV  1                DL( 1.500)\n");
}

TEST_F(CombinationListTest, ATypeOfThreeCharactersFillsItsColumn) {
  Combination(1, L"LC1").nType = -12;
  Combination(1).aEntry.Add({1, 1, 1.5});
  EXPECT_EQ(List({1}), "       LC1-12                DL( 1.500)\n");
}

TEST_F(CombinationListTest, ALongCombinationNameIsNotCut) {
  Combination(1, L"LCB123456789").aEntry.Add({1, 1, 1.5});
  EXPECT_EQ(List({1}), "   LCB123456789  0                DL( 1.500)\n");
}

TEST_F(CombinationListTest, ACombinationNameOfSevenCharactersHasNoPadding) {
  Combination(1, L"LCB1234").aEntry.Add({1, 1, 1.5});
  EXPECT_EQ(List({1}), "   LCB1234  0                DL( 1.500)\n");
}

TEST_F(CombinationListTest, NamesArePaddedByCharactersAndNotByBytes) {
  Combination(1, L"\u7EC4\u5408").aEntry.Add({1, 2, 1.5});
  SetCase(1, 2, L"\u6052\u8F7D");
  EXPECT_EQ(List({1}), "        \u7EC4\u5408  0                \u6052\u8F7D( 1.500)\n");
}

TEST_F(CombinationListTest, ALongCaseNameIsNotCut) {
  SetCase(1, 2, L"DEAD LOAD OF THE ROOF");
  Combination(1, L"LC1").aEntry.Add({1, 2, 1.5});
  EXPECT_EQ(List({1}), "       LC1  0    DEAD LOAD OF THE ROOF( 1.500)\n");
}

TEST_F(CombinationListTest, ACombinationWithoutTermsLeavesItsRowOpen) {
  Combination(1, L"LC1");
  Combination(2, L"LC2").aEntry.Add({1, 1, 1.5});
  EXPECT_EQ(List({1, 2}), "       LC1  0        LC2  0                DL( 1.500)\n");
}

TEST_F(CombinationListTest, ALastCombinationWithoutTermsLeavesTheFileOpen) {
  Combination(1, L"LC1");
  EXPECT_EQ(List({1}), "       LC1  0 ");
}

}  // namespace

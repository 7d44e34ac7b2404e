// Names of a combination's terms, by the kind of the load case. The numbers of the kinds are the
// host's.

#include "tests/unit/tz_alu/report/combination_list.h"

namespace {

using namespace report_test;
using testing::ElementsAre;
using testing::IsEmpty;

const RaisedAssertion kUnknownMovingLoad{L"aluprint", 216};
const RaisedAssertion kUnknownKind{L"aluprint", 251};

class CaseName : public CombinationListTest {
 protected:
  CaseName() {
    for (const int kind : {1, 2, 3, 5, 13, 19}) SetCase(kind, 7, L"K" + std::to_wstring(kind));
    for (const int code : {1, 3, 5, 7, 10, 18, 100}) {
      SetCase(4, 7, L"M" + std::to_wstring(code), code);
    }
    Combination(7, L"PART");
  }

  /// What stands between the row's beginning and the line's end for a term of this kind.
  std::string Term(int kind, UINT number = 7) {
    const std::string row = Row({{kind, number, 1.5}});
    EXPECT_TRUE(row.starts_with("       LC1  0 ")) << row;
    return row.substr(14);
  }
  std::string MovingTerm(int code, UINT number = 7) {
    host_.model.moving_load_code = code;
    return Term(4, number);
  }
};

TEST_F(CaseName, AStaticCaseHasItsName) {
  EXPECT_EQ(Term(1), "               K1( 1.500)\n");
}

TEST_F(CaseName, AResponseSpectrumCaseHasAnEnding) {
  EXPECT_EQ(Term(2), "           K2(RS)( 1.500)\n");
}

TEST_F(CaseName, ASpectrumCaseWithEccentricityHasAnEndingOfItsOwn) {
  EXPECT_EQ(Term(14), "           K2(ES)( 1.500)\n");
}

TEST_F(CaseName, ATimeHistoryCaseHasItsName) {
  EXPECT_EQ(Term(3), "               K3( 1.500)\n");
}

TEST_F(CaseName, ASettlementCaseHasItsName) {
  EXPECT_EQ(Term(5), "               K5( 1.500)\n");
}

TEST_F(CaseName, ASeismicStaticCaseHasItsName) {
  EXPECT_EQ(Term(13), "              K13( 1.500)\n");
}

TEST_F(CaseName, ACraneCaseHasItsName) {
  EXPECT_EQ(Term(19), "              K19( 1.500)\n");
}

TEST_F(CaseName, ACombinationInACombinationHasItsName) {
  EXPECT_EQ(Term(8), "             PART( 1.500)\n");
}

TEST_F(CaseName, ACombinationInACombinationIsAskedForAsAPart) {
  Term(8);
  EXPECT_THAT(host_.log.combination_reads, ElementsAre(std::pair(6, 1U), std::pair(2, 7U)));
}

TEST_F(CaseName, AMissingCaseHasAnEmptyName) {
  for (const int kind : {1, 3, 5, 8, 13, 19}) {
    EXPECT_EQ(Term(kind, 99), "                 ( 1.500)\n") << kind;
  }
  EXPECT_EQ(Term(2, 99), "             (RS)( 1.500)\n");
  EXPECT_EQ(Term(14, 99), "             (ES)( 1.500)\n");
  EXPECT_THAT(host_.log.assertions, IsEmpty());
}

// --- moving loads ---

TEST_F(CaseName, MovingLoadsOfTheGeneralCodesShareTheirCases) {
  for (const int code : {1, 2, 4, 6, 8, 9, 11, 12, 13, 14, 15, 16}) {
    EXPECT_EQ(MovingTerm(code), "               M1( 1.500)\n") << code;
  }
  EXPECT_THAT(host_.log.assertions, IsEmpty());
}

TEST_F(CaseName, MovingLoadsOfTheOtherCodesHaveCasesOfTheirOwn) {
  EXPECT_EQ(MovingTerm(3), "               M3( 1.500)\n");
  EXPECT_EQ(MovingTerm(5), "               M5( 1.500)\n");
  EXPECT_EQ(MovingTerm(7), "               M7( 1.500)\n");
  EXPECT_EQ(MovingTerm(10), "              M10( 1.500)\n");
  EXPECT_EQ(MovingTerm(18), "              M18( 1.500)\n");
  EXPECT_EQ(MovingTerm(100), "             M100( 1.500)\n");
  EXPECT_THAT(host_.log.assertions, IsEmpty());
}

TEST_F(CaseName, WithoutAMovingLoadCodeTheNameIsEmpty) {
  EXPECT_EQ(MovingTerm(0), "                 ( 1.500)\n");
  EXPECT_THAT(host_.log.assertions, IsEmpty());
}

TEST_F(CaseName, AMovingLoadCodeThatTheHostLacksIsNone) {
  host_.model.moving_load_code.reset();
  EXPECT_EQ(Term(4), "                 ( 1.500)\n");
  EXPECT_THAT(host_.log.assertions, IsEmpty());
}

TEST_F(CaseName, AMissingMovingLoadCaseIsDroppedUnderEveryCode) {
  for (const int code : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 18, 100}) {
    EXPECT_EQ(MovingTerm(code, 99), "") << code;
  }
  EXPECT_THAT(host_.log.assertions, IsEmpty());
}

TEST_F(CaseName, AnUnknownMovingLoadCodeIsAnInconsistencyWithAnEmptyName) {
  for (const int code : {17, 19, 99, 101, -1}) {
    host_.log.assertions.clear();
    EXPECT_EQ(MovingTerm(code), "                 ( 1.500)\n") << code;
    EXPECT_THAT(host_.log.assertions, ElementsAre(kUnknownMovingLoad)) << code;
  }
}

TEST_F(CaseName, AnUnknownMovingLoadCodePassesInSilenceWhenAssertionsAreOff) {
  host_.model.is_release_assert = 0;
  EXPECT_EQ(MovingTerm(17), "                 ( 1.500)\n");
  EXPECT_THAT(host_.log.assertions, IsEmpty());
}

// --- unknown kinds ---

TEST_F(CaseName, AnUnknownKindIsAnInconsistencyWithANameThatIsNotPadded) {
  for (const int kind : {0, 6, 7, 9, 10, 11, 12, 15, 16, 17, 18, 20, 100, -1}) {
    host_.log.assertions.clear();
    EXPECT_EQ(Term(kind), "   ( 1.500)\n") << kind;
    EXPECT_THAT(host_.log.assertions, ElementsAre(kUnknownKind)) << kind;
  }
}

TEST_F(CaseName, AnUnknownKindPassesInSilenceWhenAssertionsAreOff) {
  host_.model.is_release_assert = 0;
  EXPECT_EQ(Term(6), "   ( 1.500)\n");
  EXPECT_THAT(host_.log.assertions, IsEmpty());
}

TEST_F(CaseName, TheNextTermsFollowAnUnknownOne) {
  EXPECT_EQ(Row({{6, 1, 1.0}, {1, 1, 2.0}}), "       LC1  0    ( 1.000) +            DL( 2.000)\n");
}

// The name is sought before the factor is looked at.
TEST_F(CaseName, AnUnknownKindWithFactorZeroIsAnInconsistencyToo) {
  EXPECT_EQ(Row({{6, 1, 0.0}}), "       LC1  0 \n");
  EXPECT_THAT(host_.log.assertions, ElementsAre(kUnknownKind));
}

}  // namespace

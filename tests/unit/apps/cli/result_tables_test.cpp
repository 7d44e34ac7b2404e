#include "apps/cli/result_tables.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

#include "tests/unit/apps/cli/result_samples.h"

namespace aluframe::cli {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();

TEST(ByElement, RowsOfAnElementArePutTogetherInTheOrderOfTheRows) {
  const auto elements = by_element({row(5, RALU_STRENGTH, 50, 100), row(5, RALU_SHEAR_Y, 90, 100),
                                    row(2, RALU_STRENGTH, 10, 100)});
  ASSERT_EQ(elements.size(), 2U);
  EXPECT_EQ(elements[0].element, 5U);
  EXPECT_EQ(elements[0].member_type, 2);
  EXPECT_EQ(elements[0].items.size(), 2U);
  EXPECT_EQ(elements[1].element, 2U);
}

TEST(ByElement, NoRowsAreNoElements) {
  EXPECT_TRUE(by_element({}).empty());
}

TEST(ElementResult, FindsACheckByItsItem) {
  const auto elements = by_element({row(5, RALU_STRENGTH, 50, 100), row(5, RALU_SHEAR_Y, 90, 100)});
  ASSERT_NE(elements[0].find(RALU_SHEAR_Y), nullptr);
  EXPECT_EQ(elements[0].find(RALU_SHEAR_Y)->governing.dDemand, 90.0);
  EXPECT_EQ(elements[0].find(RALU_SHEAR_Z), nullptr);
}

/// Item of the worst of some checks of an element.
int worst_of(std::vector<store::GoverningRow> rows) {
  return by_element(rows)[0].worst().item;
}

TEST(ElementResult, TheLargestRatioIsTheWorst) {
  EXPECT_EQ(worst_of({row(5, RALU_STRENGTH, 50, 100), row(5, RALU_SHEAR_Y, 45, 50),
                      row(5, RALU_SLENDERNESS_Y, 80, 150)}),
            RALU_SHEAR_Y);
}

TEST(ElementResult, AmongEqualRatiosTheFirstIsTheWorst) {
  EXPECT_EQ(worst_of({row(5, RALU_STRENGTH, 50, 100), row(5, RALU_SHEAR_Y, 25, 50)}),
            RALU_STRENGTH);
}

TEST(ElementResult, ARatioThatIsNoNumberIsTheWorst) {
  EXPECT_EQ(
      worst_of({row(5, RALU_STRENGTH, 500, 100), row(5, RALU_SLENDERNESS_Z, not_a_number, 100)}),
      RALU_SLENDERNESS_Z);
}

TEST(ElementResult, SlendernessWithoutALimitIsTheWorstOnlyWhenAlone) {
  EXPECT_EQ(worst_of({row(5, RALU_SLENDERNESS_Y, 80, 0), row(5, RALU_SLENDERNESS_Z, 0, 400)}),
            RALU_SLENDERNESS_Z);
  EXPECT_EQ(worst_of({row(5, RALU_SLENDERNESS_Y, 80, 0)}), RALU_SLENDERNESS_Y);
}

TEST(NotCheckedText, ElementsAreGroupedByReasonAndCombination) {
  EXPECT_EQ(not_checked_text({{4, std::nullopt, "no forces"},
                              {2, std::nullopt, "no forces"},
                              {3, std::nullopt, "no forces"},
                              {3, 7, "no forces"}}),
            "  not checked\n"
            "    element 2-4: no forces\n"
            "    element 3, combination 7: no forces\n");
}

TEST(NotCheckedText, ReasonsStandInOrderAndElementsThatLieApartAreListed) {
  EXPECT_EQ(not_checked_text({{9, std::nullopt, "torsion"},
                              {1, std::nullopt, "no forces"},
                              {5, std::nullopt, "torsion"}}),
            "  not checked\n"
            "    element 1: no forces\n"
            "    element 5, 9: torsion\n");
}

TEST(NotCheckedText, AnElementIsNamedOncePerReason) {
  EXPECT_EQ(not_checked_text({{1, std::nullopt, "torsion"}, {1, std::nullopt, "torsion"}}),
            "  not checked\n    element 1: torsion\n");
}

TEST(ResultNames, CheckItemsHaveNames) {
  const char* const names[] = {"strength",           "shear y", "shear z",       "stability",
                               "combined stability", "unused",  "slenderness y", "slenderness z"};
  for (int item = 0; item < kResultItems; ++item) EXPECT_EQ(item_name(item), names[item]);
  EXPECT_THROW(item_name(8), std::out_of_range);
  EXPECT_THROW(item_name(-1), std::out_of_range);
}

TEST(ResultNames, PositionsRunFromStartToEndInQuarters) {
  const char* const names[] = {"I", "1/4", "1/2", "3/4", "J"};
  for (int p = 0; p < kCheckPositions; ++p) EXPECT_EQ(position_name(p), names[p]);
  EXPECT_EQ(position_name(-1), "-");
  EXPECT_EQ(position_name(5), "-");
}

TEST(ResultNames, MemberTypesHaveNames) {
  const char* const names[] = {"-", "column", "beam", "brace", "-", "truss", "-"};
  for (int type = 0; type < 7; ++type) EXPECT_EQ(member_type_name(type), names[type]) << type;
}

TEST(ResultNames, OutcomesHaveNames) {
  EXPECT_EQ(outcome_name(services::RunOutcome::complete), "complete");
  EXPECT_EQ(outcome_name(services::RunOutcome::nothing_to_check), "nothing to check");
  EXPECT_EQ(outcome_name(services::RunOutcome::cancelled), "cancelled");
  EXPECT_EQ(outcome_name(services::RunOutcome::failed), "failed");
}

TEST(ResultNames, ShortNumbersHaveFourDecimals) {
  EXPECT_EQ(short_number(0.98765432), "0.9877");
  EXPECT_EQ(short_number(12.0), "12.0000");
  EXPECT_EQ(short_number(infinity), "inf");
  EXPECT_EQ(short_number(-infinity), "-inf");
  EXPECT_EQ(short_number(not_a_number), "nan");
}

}  // namespace
}  // namespace aluframe::cli

#include "aluframe/run/element_result.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/unit/aluframe/run/governing_row.h"

namespace aluframe::run {
namespace {

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

}  // namespace
}  // namespace aluframe::run

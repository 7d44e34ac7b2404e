#include "apps/cli/result_tables.h"

#include <gtest/gtest.h>

#include <limits>

namespace aluframe::cli {
namespace {

store::GoverningRow row(std::uint32_t element, int item, double demand, double capacity) {
  return {element, 2, item, {.nPos = 0, .dDemand = demand, .dCapacity = capacity, .nLComb = 3}};
}

const store::RunInfo info{.model_title = "",
                          .code = "",
                          .program = "",
                          .combinations = {{3, "ULS", false, false}, {4, "ENV", true, false}}};

TEST(ResultTables, RowsOfAnElementArePutTogether) {
  const auto elements = by_element({row(5, RALU_STRENGTH, 50, 100), row(5, RALU_SHEAR_Y, 90, 100),
                                    row(2, RALU_STRENGTH, 10, 100)});
  ASSERT_EQ(elements.size(), 2U);
  EXPECT_EQ(elements[0].worst().item, RALU_SHEAR_Y);
  EXPECT_EQ(elements[0].find(RALU_SHEAR_Z), nullptr);
  EXPECT_EQ(elements[1].element, 2U);
}

TEST(ResultTables, ARatioThatIsNoNumberIsTheWorst) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const auto elements =
      by_element({row(5, RALU_STRENGTH, 500, 100), row(5, RALU_SLENDERNESS_Z, nan, 100)});
  EXPECT_EQ(elements[0].worst().item, RALU_SLENDERNESS_Z);
}

TEST(ResultTables, NotCheckedElementsAreGroupedByReasonAndCombination) {
  EXPECT_EQ(not_checked_text({{4, std::nullopt, "no forces"},
                              {2, std::nullopt, "no forces"},
                              {3, std::nullopt, "no forces"},
                              {3, 7, "no forces"}}),
            "  not checked\n"
            "    element 2-4: no forces\n"
            "    element 3, combination 7: no forces\n");
}

TEST(ResultTables, SidesAreNamedForCombinationsWithTwoOnly) {
  store::StoredRecord plain{.combination = 3, .min_side = 0, .record = {}};
  plain.record.aSect[0].aItem[RALU_STRENGTH] = {50, 100, 0};
  store::StoredRecord minimum = plain;
  minimum.combination = 4;
  minimum.min_side = 1;
  const OutputTable table = position_ratios_table({plain, minimum}, info);
  ASSERT_EQ(table.rows.size(), 2U);
  EXPECT_TRUE(std::holds_alternative<std::monostate>(table.rows[0][2]));
  EXPECT_EQ(std::get<std::string>(table.rows[1][2]), "min");
}

TEST(ResultTables, SlendernessIsNotScaledWithTheStresses) {
  const auto elements =
      by_element({row(5, RALU_STRENGTH, 50, 100), row(5, RALU_SLENDERNESS_Y, 80, 150)});
  const OutputTable table = governing_table(elements, info, {1000.0, "kN/m²"});
  constexpr std::size_t demand = 3;
  ASSERT_EQ(table.columns[demand].key, "demand");
  EXPECT_EQ(std::get<double>(table.rows[0][demand]), 50e3);
  EXPECT_EQ(std::get<double>(table.rows[1][demand]), 80.0);
}

TEST(ResultTables, NumbersThatAreNotFiniteAreNamed) {
  EXPECT_EQ(short_number(0.98765432), "0.9877");
  EXPECT_EQ(short_number(-std::numeric_limits<double>::infinity()), "-inf");
}

}  // namespace
}  // namespace aluframe::cli

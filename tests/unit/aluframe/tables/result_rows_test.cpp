// What stands in the rows of the result tables.

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "aluframe/tables/result_tables.h"
#include "tests/unit/aluframe/tables/cells.h"
#include "tests/unit/aluframe/tables/result_samples.h"

namespace aluframe::tables {
namespace {

using Row = std::vector<Cell>;
using Keys = std::vector<std::string>;

constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();

/// A record of a combination with one strength check in the middle.
store::StoredRecord record(std::uint32_t combination, int min_side) {
  store::StoredRecord stored{.combination = combination, .min_side = min_side, .record = {}};
  stored.record.aSect[2].aItem[RALU_STRENGTH] = {50, 100, 0};
  return stored;
}

TEST(OverviewTable, HasOneLineAnElementWithAllRatiosAndTheWorst) {
  const OutputTable table = overview_table(
      run::by_element({row(5, RALU_STRENGTH, 50, 100), row(5, RALU_SLENDERNESS_Y, 120, 150),
                       row(2, RALU_SHEAR_Z, 11, 55)}),
      sample_info());
  EXPECT_EQ(keys_of(table), (Keys{"element", "type", "strength ratio", "shear y ratio",
                                  "shear z ratio", "stability ratio", "combined stability ratio",
                                  "slenderness y ratio", "slenderness z ratio", "ratio", "item",
                                  "position", "combination", "name", "side"}));
  ASSERT_EQ(table.rows.size(), 2U);
  EXPECT_EQ(table.rows[0],
            (Row{whole(5), phrase("beam"), 0.5, none, none, none, none, 0.8, none, 0.8,
                 phrase("slenderness y"), text("I"), whole(3), text("ULS"), none}));
  EXPECT_EQ(table.rows[1], (Row{whole(2), phrase("beam"), none, none, 0.2, none, none, none, none,
                                0.2, phrase("shear z"), text("I"), whole(3), text("ULS"), none}));
}

TEST(OverviewTable, SlendernessWithoutALimitHasNoRatio) {
  const OutputTable table =
      overview_table(run::by_element({row(5, RALU_SLENDERNESS_Y, 120, 0)}), sample_info());
  constexpr std::size_t slenderness_y = 7, worst = 9;
  EXPECT_TRUE(is_empty(table.rows[0][slenderness_y]));
  EXPECT_TRUE(is_empty(table.rows[0][worst]));
}

TEST(GoverningTable, HasOneLineACheck) {
  const OutputTable table = governing_table(
      run::by_element({row(5, RALU_STRENGTH, 50, 100), row(5, RALU_SLENDERNESS_Y, 120, 150)}),
      sample_info(), {});
  EXPECT_EQ(keys_of(table), (Keys{"element", "member_type", "item", "demand", "capacity", "unit",
                                  "ratio", "position", "combination", "combination_name", "side"}));
  ASSERT_EQ(table.rows.size(), 2U);
  EXPECT_EQ(table.rows[0], (Row{whole(5), phrase("beam"), phrase("strength"), 50.0, 100.0,
                                text("N/mm²"), 0.5, text("I"), whole(3), text("ULS"), none}));
  EXPECT_EQ(table.rows[1], (Row{whole(5), phrase("beam"), phrase("slenderness y"), 120.0, 150.0,
                                none, 0.8, text("I"), whole(3), text("ULS"), none}));
}

// 1 N/mm² = 1000 kN/m²; a slenderness is a number.
TEST(GoverningTable, OnlyStressesAreScaled) {
  const OutputTable table = governing_table(
      run::by_element({row(5, RALU_STRENGTH, 50, 100), row(5, RALU_SLENDERNESS_Y, 120, 150)}),
      sample_info(), {1000.0, "kN/m²"});
  constexpr std::size_t demand = 3, capacity = 4, unit = 5, ratio = 6;
  EXPECT_EQ(table.rows[0][demand], Cell(50e3));
  EXPECT_EQ(table.rows[0][capacity], Cell(100e3));
  EXPECT_EQ(table.rows[0][unit], text("kN/m²"));
  EXPECT_EQ(table.rows[0][ratio], Cell(0.5));
  EXPECT_EQ(table.rows[1][demand], Cell(120.0));
  EXPECT_EQ(table.rows[1][capacity], Cell(150.0));
}

TEST(GoverningTable, SlendernessWithoutALimitHasADemandOnly) {
  const OutputTable table =
      governing_table(run::by_element({row(5, RALU_SLENDERNESS_Y, 120, 0)}), sample_info(), {});
  constexpr std::size_t demand = 3, capacity = 4, ratio = 6;
  EXPECT_EQ(table.rows[0][demand], Cell(120.0));
  EXPECT_TRUE(is_empty(table.rows[0][capacity]));
  EXPECT_TRUE(is_empty(table.rows[0][ratio]));
}

TEST(GoverningTable, ADemandThatIsNoNumberIsShown) {
  const OutputTable table = governing_table(
      run::by_element({row(5, RALU_STRENGTH, not_a_number, 100)}), sample_info(), {});
  EXPECT_NE(to_csv(table).find("strength,nan,100,N/mm²,nan"), std::string::npos);
}

TEST(GoverningTable, ACombinationThatTheRunDoesNotListHasNoName) {
  const OutputTable table =
      governing_table(run::by_element({row(5, RALU_STRENGTH, 50, 100)}), store::RunInfo(), {});
  EXPECT_EQ(table.rows[0][9], text(""));
  EXPECT_TRUE(is_empty(table.rows[0][10]));
}

TEST(GoverningTable, TheSafeRatioOfAStateHasItsEnvelopesNumberAndItsOwnName) {
  store::RunInfo info;
  info.combinations = {{3, "ULS", false, false}, {7001, "Extremes: G", false, false, 7}};
  store::SafeRow safe;
  safe.combination = 7001;
  const OutputTable table =
      governing_table(run::by_element({row(5, RALU_STRENGTH, 50, 100)}), info, {}, {{5, safe}});
  const Keys keys = keys_of(table);
  const auto at =
      static_cast<std::size_t>(std::ranges::find(keys, "safe_combination") - keys.begin());
  ASSERT_EQ(table.rows.at(0).size(), keys.size());
  EXPECT_EQ(keys.at(at + 1), "safe_combination_name");
  EXPECT_EQ(table.rows[0].at(at), whole(7));
  EXPECT_EQ(table.rows[0].at(at + 1), text("Extremes: G"));
}

TEST(PositionRatiosTable, HasOneLineACombinationSideAndPosition) {
  store::StoredRecord stored = record(3, 0);
  stored.record.aSect[4].aItem[RALU_SHEAR_Z] = {11, 55, 0};
  const OutputTable table = position_ratios_table({stored}, sample_info());
  ASSERT_EQ(table.rows.size(), 2U);
  EXPECT_EQ(table.rows[0], (Row{whole(3), text("ULS"), none, text("1/2"), 0.5, none, none, none,
                                none, none, none}));
  EXPECT_EQ(table.rows[1],
            (Row{whole(3), text("ULS"), none, text("J"), none, none, 0.2, none, none, none, none}));
}

TEST(PositionRatiosTable, SidesAreNamedForCombinationsWithTwoOnly) {
  const OutputTable table =
      position_ratios_table({record(3, 0), record(4, 0), record(4, 1)}, sample_info());
  constexpr std::size_t side = 2;
  ASSERT_EQ(table.rows.size(), 3U);
  EXPECT_TRUE(is_empty(table.rows[0][side]));
  EXPECT_EQ(table.rows[1][side], text("max"));
  EXPECT_EQ(table.rows[2][side], text("min"));
}

TEST(PositionRatiosTable, AStateHasTheNumberOfItsEnvelopeAndItsOwnName) {
  store::RunInfo info;
  info.combinations = {{7001, "Extremes: G", false, false, 7},
                       {7002, "Extremes: W", false, false, 7}};
  const OutputTable table = position_ratios_table({record(7001, 0), record(7002, 0)}, info);
  ASSERT_EQ(table.rows.size(), 2U);
  for (const Row& found : table.rows) EXPECT_EQ(found[0], whole(7));
  EXPECT_EQ(table.rows[0][1], text("Extremes: G"));
  EXPECT_EQ(table.rows[1][1], text("Extremes: W"));
}

TEST(PositionRatiosTable, LeavesOutTheGoverningRecordAndPositionsWithoutARatio) {
  store::StoredRecord no_limit{.combination = 3, .min_side = 0, .record = {}};
  no_limit.record.aSect[0].aItem[RALU_SLENDERNESS_Y] = {120, 0, 0};
  EXPECT_TRUE(position_ratios_table({record(0, 0), no_limit}, sample_info()).rows.empty());
}

TEST(AllChecksTable, HasOneLineACheckOfEveryCombinationSideAndPosition) {
  store::StoredRecord stored = record(4, 1);
  stored.record.aSect[2].aItem[RALU_SLENDERNESS_Z] = {120, 150, 0};
  const OutputTable table =
      all_checks_table(5, {stored, record(0, 0)}, sample_info(), {1000.0, "kN/m²"});
  EXPECT_EQ(keys_of(table), (Keys{"element", "combination", "combination_name", "side", "position",
                                  "item", "demand", "capacity", "unit", "ratio"}));
  ASSERT_EQ(table.rows.size(), 2U);
  EXPECT_EQ(table.rows[0], (Row{whole(5), whole(4), text("ENV"), text("min"), text("1/2"),
                                phrase("strength"), 50e3, 100e3, text("kN/m²"), 0.5}));
  EXPECT_EQ(table.rows[1], (Row{whole(5), whole(4), text("ENV"), text("min"), text("1/2"),
                                phrase("slenderness z"), 120.0, 150.0, none, 0.8}));
}

// The item that no check fills has no place in the tables.
TEST(AllChecksTable, TheUnusedItemIsNotShown) {
  store::StoredRecord stored{.combination = 3, .min_side = 0, .record = {}};
  stored.record.aSect[0].aItem[RALU_UNUSED] = {50, 100, 0};
  EXPECT_TRUE(all_checks_table(5, {stored}, sample_info(), {}).rows.empty());
  EXPECT_TRUE(position_ratios_table({stored}, sample_info()).rows.empty());
}

}  // namespace
}  // namespace aluframe::tables

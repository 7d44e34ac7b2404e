#include "aluframe/tables/not_checked_tables.h"

#include <gmock/gmock.h>

#include <limits>

namespace aluframe::tables {
namespace {

/// Torsion of this much at the end of an element, in combination 3.
store::NotChecked twisted(std::uint32_t element, double magnitude) {
  return {element, std::nullopt, "torsion", store::LargestForce{"Mx", magnitude, 4, 3, 0}};
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

TEST(NotCheckedText, CombinationsOfAReasonArePutTogether) {
  EXPECT_EQ(
      not_checked_text(
          {{1, 5, "no forces"}, {2, 5, "no forces"}, {1, 6, "no forces"}, {2, 6, "no forces"}}),
      "  not checked\n    element 1-2, combination 5-6: no forces\n");
}

TEST(NotCheckedText, TheLargestForceOfAllElementsStandsWithItsPlace) {
  EXPECT_EQ(not_checked_text({twisted(1, 2e6), twisted(2, 7.5e6), twisted(3, 1e6)}),
            "  not checked\n    element 1-3: torsion\n      largest Mx 7.5 kN·m at element 2, "
            "combination 3, position J\n");
}

TEST(NotCheckedText, EveryForceOfAReasonHasItsLargest) {
  const std::string text =
      not_checked_text({{4, std::nullopt, "shear", store::LargestForce{"Fy", 500.0, 0, 1, 1}},
                        {5, std::nullopt, "shear", store::LargestForce{"Fz", 2500.0, 2, 2, 0}}});
  EXPECT_EQ(
      text,
      "  not checked\n    element 4-5: shear\n      largest Fy 0.5 kN at element 4, combination 1 "
      "(minimum side), position I\n      largest Fz 2.5 kN at element 5, combination 2, position "
      "1/2\n");
}

TEST(NotCheckedText, AForceBetweenPositionsSaysSo) {
  store::NotChecked item = twisted(1, 2e6);
  item.largest->position = -1;
  EXPECT_EQ(not_checked_text({item}),
            "  not checked\n    element 1: torsion\n      largest Mx 2 kN·m at element 1, "
            "combination 3, between positions\n");
  EXPECT_EQ(std::get<std::string>(not_checked_table({item}).rows[0][9]), "between");
}

store::RemarkRow remark_about(const char* kind, const char* elements, double ratio) {
  store::RemarkRow row;
  row.kind = kind;
  row.elements = elements;
  row.ratio = ratio;
  return row;
}

TEST(NotCheckedText, TheWorstSecondOpinionOfAForceStandsWithIt) {
  // What was added to the results for a report is a remark of its own.
  const double infinite = std::numeric_limits<double>::infinity();
  const std::vector<store::RemarkRow> remarks{remark_about("C6", "1", 0.06),
                                              remark_about("C5", "2", infinite),
                                              remark_about("C6", "2", 2.714)};
  const std::vector<store::NotChecked> items{twisted(1, 2e6), twisted(2, 3e6)};
  EXPECT_THAT(not_checked_text(items, remarks), testing::HasSubstr("second opinion 2.7140"));
  EXPECT_EQ(std::get<double>(not_checked_table(items, remarks).rows[0][10]), 2.714);
}

TEST(NotCheckedText, AnInfiniteSecondOpinionIsTheWorst) {
  const double infinite = std::numeric_limits<double>::infinity();
  for (const auto& remarks :
       {std::vector{remark_about("C6", "1", infinite), remark_about("C6", "2", 2.714)},
        std::vector{remark_about("C6", "2", 2.714), remark_about("C6", "1", infinite)}}) {
    EXPECT_THAT(not_checked_text({twisted(1, 2e6)}, remarks),
                testing::HasSubstr("second opinion inf"));
  }
}

TEST(NotCheckedTable, HasOneLineAReasonAndForce) {
  const OutputTable table =
      not_checked_table({twisted(1, 2e6), {7, std::nullopt, "no forces"}, twisted(2, 7.5e6)});
  ASSERT_EQ(table.rows.size(), 2U);
  EXPECT_EQ(std::get<Phrase>(table.rows[0][0]).english, "no forces");
  EXPECT_TRUE(std::holds_alternative<std::monostate>(table.rows[0][3]));
  EXPECT_EQ(std::get<std::string>(table.rows[1][1]), "1-2");
  EXPECT_EQ(std::get<double>(table.rows[1][4]), 7.5e6);
  EXPECT_EQ(std::get<std::int64_t>(table.rows[1][6]), 2);
}

}  // namespace
}  // namespace aluframe::tables

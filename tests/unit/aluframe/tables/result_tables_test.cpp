#include "aluframe/tables/result_tables.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

#include "tests/unit/aluframe/tables/result_samples.h"

namespace aluframe::tables {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();

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
}  // namespace aluframe::tables

#include "aluframe/run/not_checked.h"

#include <gtest/gtest.h>

namespace aluframe::run {
namespace {

using Numbers = std::vector<model::Number>;

TEST(GroupNotChecked, ElementsThatLackTheSameCombinationsStandTogether) {
  const auto groups = group_not_checked(
      {{2, 7, "no forces"}, {1, 6, "no forces"}, {1, 7, "no forces"}, {3, 7, "no forces"}});
  ASSERT_EQ(groups.size(), 2U);
  EXPECT_EQ(groups[0].elements, Numbers{1});
  EXPECT_EQ(groups[0].combinations, (Numbers{6, 7}));
  EXPECT_EQ(groups[1].elements, (Numbers{2, 3}));
  EXPECT_EQ(groups[1].combinations, Numbers{7});
}

TEST(GroupNotChecked, OfEveryForceTheLargestIsKept) {
  const auto groups =
      group_not_checked({{1, std::nullopt, "shear", store::LargestForce{"Fy", 3.0, 0, 1, 0}},
                         {1, std::nullopt, "shear", store::LargestForce{"Fz", 9.0, 0, 1, 0}},
                         {2, std::nullopt, "shear", store::LargestForce{"Fy", 5.0, 4, 2, 0}}});
  ASSERT_EQ(groups.size(), 1U);
  ASSERT_EQ(groups[0].largest.size(), 2U);
  EXPECT_EQ(groups[0].largest[0].element, 2U);
  EXPECT_EQ(groups[0].largest[0].force.magnitude, 5.0);
  EXPECT_EQ(groups[0].largest[1].element, 1U);
}

TEST(GroupNotChecked, ASmallerForceOfALaterElementDoesNotTakeItsPlace) {
  const auto groups =
      group_not_checked({{1, std::nullopt, "shear", store::LargestForce{"Fy", 5.0, 0, 1, 0}},
                         {2, std::nullopt, "shear", store::LargestForce{"Fy", 3.0, 4, 2, 0}}});
  ASSERT_EQ(groups.size(), 1U);
  ASSERT_EQ(groups[0].largest.size(), 1U);
  EXPECT_EQ(groups[0].largest[0].element, 1U);
  EXPECT_EQ(groups[0].largest[0].force.magnitude, 5.0);
}

TEST(GroupNotChecked, NothingMakesNoGroup) {
  EXPECT_TRUE(group_not_checked({}).empty());
}

}  // namespace
}  // namespace aluframe::run

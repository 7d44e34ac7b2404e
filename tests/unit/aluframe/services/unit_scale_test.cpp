#include "aluframe/services/unit_scale.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace aluframe::services {
namespace {

TEST(UnitScale, NewtonAndMillimetreReturnTheSameNumbers) {
  const UnitScale scale({0, 2});
  EXPECT_TRUE(scale.is_identity());
  const double value = 0.1 + 0.2;
  EXPECT_EQ(scale.length(value), value);
  EXPECT_EQ(scale.stress(value), value);
  EXPECT_EQ(scale.warping_constant(value), value);
}

// By hand: 1 m = 1e3 mm, 1 kN = 1e3 N; so mm⁴ → m⁴ is 1e-12, N/mm² → kN/m² is 1e3.
TEST(UnitScale, KilonewtonAndMetreScaleEveryQuantity) {
  const UnitScale scale({1, 0});
  EXPECT_DOUBLE_EQ(scale.length(2500.0), 2.5);
  EXPECT_DOUBLE_EQ(scale.area(1e6), 1.0);
  EXPECT_DOUBLE_EQ(scale.inertia(3e12), 3.0);
  EXPECT_DOUBLE_EQ(scale.warping_constant(4e18), 4.0);
  EXPECT_DOUBLE_EQ(scale.force(1500.0), 1.5);
  EXPECT_DOUBLE_EQ(scale.moment(2e6), 2.0);
  EXPECT_DOUBLE_EQ(scale.stress(90.0), 90e3);
}

// 1 kip = 4448.2216152605 N, 1 in = 25.4 mm: 1 ksi = 6.894757293168 N/mm².
TEST(UnitScale, KipAndInchGiveKsi) {
  const UnitScale scale({5, 4});
  EXPECT_NEAR(scale.stress(6.894757293168361), 1.0, 1e-12);
  EXPECT_NEAR(scale.force(4448.2216152605), 1.0, 1e-12);
}

TEST(UnitScale, AnIndexOutsideTheTablesIsRefused) {
  EXPECT_THROW(UnitScale({6, 2}), std::out_of_range);
  EXPECT_THROW(UnitScale({0, 5}), std::out_of_range);
  EXPECT_THROW(UnitScale({-1, 2}), std::out_of_range);
}

}  // namespace
}  // namespace aluframe::services

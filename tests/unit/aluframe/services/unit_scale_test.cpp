#include "aluframe/services/unit_scale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <stdexcept>

namespace aluframe::services {
namespace {

std::uint64_t bits_of(double value) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &value, sizeof bits);
  return bits;
}

TEST(UnitScale, NewtonAndMillimetreReturnTheSameBits) {
  for (const UnitScale& scale : {UnitScale(), UnitScale({0, 2})}) {
    EXPECT_TRUE(scale.is_identity());
    for (const double value :
         {0.1 + 0.2, -0.0, 1e308, 5e-324, std::numeric_limits<double>::infinity()}) {
      for (const double scaled : {scale.length(value), scale.area(value), scale.inertia(value),
                                  scale.warping_constant(value), scale.force(value),
                                  scale.moment(value), scale.stress(value)}) {
        EXPECT_EQ(bits_of(scaled), bits_of(value)) << value;
      }
    }
  }
}

// By definition: standard gravity 9.80665 m/s², 1 lb = 0.45359237 kg, so 1 lbf = 4.4482216152605 N.
TEST(UnitScale, EveryForceUnitHoldsItsNewtons) {
  const double newtons[] = {1.0, 1000.0, 9.80665, 9806.65, 4.4482216152605, 4448.2216152605};
  for (int unit = 0; unit < 6; ++unit) {
    EXPECT_DOUBLE_EQ(UnitScale({unit, 2}).force(3.0 * newtons[unit]), 3.0) << unit;
  }
}

TEST(UnitScale, EveryLengthUnitHoldsItsMillimetres) {
  const double millimetres[] = {1000.0, 10.0, 1.0, 304.8, 25.4};
  for (int unit = 0; unit < 5; ++unit) {
    EXPECT_DOUBLE_EQ(UnitScale({0, unit}).length(3.0 * millimetres[unit]), 3.0) << unit;
  }
}

// By hand: 1 m = 1e3 mm, 1 kN = 1e3 N; so mm⁴ → m⁴ is 1e-12, N/mm² → kN/m² is 1e3.
TEST(UnitScale, KilonewtonAndMetreScaleEveryQuantity) {
  const UnitScale scale({1, 0});
  EXPECT_FALSE(scale.is_identity());
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
  EXPECT_NEAR(UnitScale({5, 4}).stress(6.894757293168361), 1.0, 1e-12);
}

// By definition of the units; 1 kgf/cm² = 9.80665/100 N/mm².
TEST(UnitScale, StressesComeBackInNewtonsAndMillimetres) {
  EXPECT_EQ(UnitScale({1, 0}).stress_in_newtons(7e7), 70000.0);
  EXPECT_EQ(UnitScale({1, 1}).stress_in_newtons(26.5), 265.0);
  EXPECT_DOUBLE_EQ(UnitScale({2, 1}).stress_in_newtons(1000.0), 98.0665);
  EXPECT_DOUBLE_EQ(UnitScale({5, 4}).stress_in_newtons(1.0), 6.894757293168361);
  EXPECT_EQ(UnitScale().stress_in_newtons(0.1 + 0.2), 0.1 + 0.2);
}

TEST(UnitScale, AStressWithFewDigitsComesBackAsItWas) {
  for (int unit = 0; unit < 30; ++unit) {
    const UnitScale scale({unit / 5, unit % 5});
    for (const double value : {70000.0, 240.0, 0.3, 172.5, 1e-6, 123456.789, 9999.99}) {
      EXPECT_EQ(scale.stress_in_newtons(scale.stress(value)), value) << unit;
    }
  }
}

TEST(UnitScale, StressesThatAreNoNumbersStayNone) {
  const UnitScale scale({1, 0});
  EXPECT_EQ(scale.stress_in_newtons(0.0), 0.0);
  EXPECT_EQ(scale.stress_in_newtons(std::numeric_limits<double>::infinity()),
            std::numeric_limits<double>::infinity());
  EXPECT_TRUE(std::isnan(scale.stress_in_newtons(std::numeric_limits<double>::quiet_NaN())));
}

TEST(UnitScale, ItsIndexIsTheOneItWasMadeWith) {
  EXPECT_EQ(UnitScale({4, 3}).index(), (T_UNIT_INDEX{4, 3}));
  EXPECT_EQ(UnitScale().index(), (T_UNIT_INDEX{0, 2}));
}

TEST(UnitScale, AnIndexOutsideTheTablesIsRefused) {
  EXPECT_THROW(UnitScale({6, 2}), std::out_of_range);
  EXPECT_THROW(UnitScale({0, 5}), std::out_of_range);
  EXPECT_THROW(UnitScale({-1, 2}), std::out_of_range);
  EXPECT_THROW(UnitScale({0, -1}), std::out_of_range);
}

}  // namespace
}  // namespace aluframe::services

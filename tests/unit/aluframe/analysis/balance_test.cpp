#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "aluframe/analysis/equilibrium.h"
#include "frames.h"

namespace aluframe::analysis {
namespace {

/// A cantilever of 1 m with 100 N upwards at its tip: the balance of given forces and reactions.
class BalanceOfCantilever : public testing::Test {
 protected:
  Equilibrium check(double internal_at_tip, const Vector6& reaction,
                    Order order = Order::first) const {
    NodeValues nodal(12, 0.0), internal(12, 0.0);
    nodal[6 + dz] = 100.0;
    internal[6 + dz] = internal_at_tip;
    const std::vector<Reaction> reactions{{0, reaction}};
    return check_equilibrium(
        {frame_, equations_, geometry_, nodal, {100.0, 0.0}, internal, NodeValues(12, 0.0)},
        LoadsByElement(frame_, geometry_, {}), reactions, order);
  }

  Frame frame_ = cantilever(1000);
  Equations equations_{frame_};
  std::vector<Geometry> geometry_ = element_geometry(frame_);
};

TEST_F(BalanceOfCantilever, OfFittingForcesIsPerfect) {
  const Equilibrium e = check(100, {0, 0, -100, 0, 1e5, 0});
  EXPECT_EQ(e.nodes, 0.0);
  EXPECT_EQ(e.whole, 0.0);
}

TEST_F(BalanceOfCantilever, MissesWhatTheElementDoesNotTake) {
  EXPECT_NEAR(check(90, {0, 0, -100, 0, 1e5, 0}).nodes, 0.1, 1e-12);
}

TEST_F(BalanceOfCantilever, MissesWhatTheReactionLacks) {
  // 5 N of 100 N and 95 N together; the moments about the middle balance.
  EXPECT_NEAR(check(100, {0, 0, -95, 0, 97500, 0}).whole, 5.0 / 195, 1e-12);
}

TEST_F(BalanceOfCantilever, MissesAMomentThroughTheSizeOfTheFrame) {
  // 10 N·m of 200 N times 1 m.
  EXPECT_NEAR(check(100, {0, 0, -100, 0, 90000, 0}).whole, 0.05, 1e-12);
}

TEST_F(BalanceOfCantilever, LeavesMomentsOutInSecondOrder) {
  EXPECT_EQ(check(100, {0, 0, -100, 0, 90000, 0}, Order::second).whole, 0.0);
}

TEST(Balance, IsTheWorstWhereItIsNoNumber) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const Lengths lengths{1000.0, 2000.0};
  EXPECT_TRUE(std::isnan(share({nan, 0.0}, {100.0, 1e5}, lengths)));
  EXPECT_TRUE(std::isnan(share({0.0, nan}, {100.0, 1e5}, lengths)));
  EXPECT_DOUBLE_EQ(share({1.0, 0.0}, {100.0, 1e5}, lengths), 0.01);
}

TEST(Noise, ForceTenPowersBelowTheLargestOfItsElementIsZero) {
  LoadCase loads;
  loads.nodal.push_back({1, {1e6, 5e-5, 2e-4}});
  const SectionForces f = solved(cantilever(1000), loads).forces[0][2];
  EXPECT_EQ(f[fy], 0.0F);
  EXPECT_THAT(f[fz], float_near(-2e-4, 2e-4));
}

TEST(Noise, ChainThatItsFootTurnsHasNoForceAtAll) {
  // Determinate: a settlement moves it without resistance, however far rounding travels.
  Frame frame;
  for (int i = 0; i <= 40; ++i) {
    add_node(frame, 1500.0 * i, 900.0 * std::sin(1.0 * i), 1200.0 * std::cos(2.0 * i));
  }
  for (std::size_t i = 0; i < 40; ++i) {
    add_element(frame, i, i + 1).beta = 17.0 * static_cast<double>(i);
  }
  frame.supports.push_back({0, clamped});
  LoadCase loads;
  loads.settlements = {{0, dx, 7.0}, {0, ry, 0.01}, {0, rz, -0.008}};
  for (const ElementForces& element : solved(frame, loads).forces) {
    EXPECT_EQ(element, ElementForces{});
  }
}

}  // namespace
}  // namespace aluframe::analysis

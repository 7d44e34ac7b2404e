#include "aluframe/combinations/extreme_points.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace aluframe::combinations {
namespace {

using testing::ElementsAre;

/// Points without a hint, so that all but the first are decided by linear programming.
std::vector<FactorPoint> points(const std::vector<std::vector<double>>& factors) {
  std::vector<FactorPoint> out;
  for (const auto& each : factors) out.push_back({each, std::vector<double>(each.size(), 0.0)});
  return out;
}

TEST(ExtremePoints, CornersOfASquareAreExtremeAndItsMiddleIsNot) {
  EXPECT_THAT(are_extreme(points({{0, 0}, {1, 0}, {0.5, 0.5}, {1, 1}, {0, 1}})),
              ElementsAre(true, true, false, true, true));
}

TEST(ExtremePoints, APointOnAnEdgeIsNotExtreme) {
  EXPECT_THAT(are_extreme(points({{0, 0}, {0.3, 0}, {1, 0}})), ElementsAre(true, false, true));
}

TEST(ExtremePoints, APointJustOutsideIsExtreme) {
  EXPECT_THAT(are_extreme(points({{0, 0}, {0.5, -1e-6}, {1, 0}, {0.5, 1}})),
              ElementsAre(true, true, true, true));
}

TEST(ExtremePoints, ASinglePointIsExtreme) {
  EXPECT_THAT(are_extreme(points({{1.3}})), ElementsAre(true));
}

TEST(ExtremePoints, APointInsideACubeIsFoundFromItsCornersAlone) {
  EXPECT_THAT(are_extreme(points({{0, 0, 0},
                                  {1, 0, 0},
                                  {0, 1, 0},
                                  {0, 0, 1},
                                  {1, 1, 0},
                                  {1, 0, 1},
                                  {0, 1, 1},
                                  {1, 1, 1},
                                  {0.2, 0.7, 0.4}})),
              ElementsAre(true, true, true, true, true, true, true, true, false));
}

TEST(ExtremePoints, LikelyEffectsThatDoNotHoldDoNotDecide) {
  // Under them the second point only equals the first, though it governs under others.
  std::vector<FactorPoint> two = points({{1, 0}, {1, 1}});
  two[1].likely_effects = {1, 0};
  EXPECT_THAT(are_extreme(two), ElementsAre(true, true));
}

}  // namespace
}  // namespace aluframe::combinations

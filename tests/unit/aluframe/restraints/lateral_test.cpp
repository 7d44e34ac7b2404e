// Critical moments and φb of pieces of members, against numbers that were worked out by hand
// (docs/verification/restraints.md has the steps).
#include <gtest/gtest.h>

#include <array>

#include "aluframe/restraints/lateral.h"

namespace aluframe::restraints {
namespace {

/// The page has 12 digits.
constexpr double by_hand = 1e-9;

/// H 240x120x6x10 of 6061-T6, thin walls: a beam of 6 m on pinned supports.
ALU_DGN_DATA rafter() {
  ALU_DGN_DATA data;
  ALU_SECT_DATA& sect = data.code.sect;
  sect.nShape = ALU_SHAPE_H;
  constexpr std::array<double, 6> sizes{240, 6, 120, 10, 120, 10};
  std::copy(sizes.begin(), sizes.end(), sect.dSize);
  sect.dArea = 3720;
  sect.dIyy = 37084000;
  sect.dIzz = 2883960;
  sect.dIxx = 95840;
  sect.dIw = 38140371000;
  constexpr std::array<double, 4> y{60, -60, -60, 60}, z{120, 120, -120, -120};
  std::copy(y.begin(), y.end(), sect.dPtY);
  std::copy(z.begin(), z.end(), sect.dPtZ);
  sect.bWelded = 0;
  data.code.matl.strStandard = L"GB50429-07(A)";
  data.code.matl.strGrade = L"6061-T6";
  data.code.matl.nElast = 70000;
  data.code.matl.dPoisson = 0.3;
  data.code.matl.dF02Thin = data.code.matl.dF02Thick = 240;
  data.code.para.bRib = 1;
  data.code.para.dRibRatio = 4.0;
  data.nMembType = ALU_MEMBER_BEAM;
  data.dMembLength = 6000;
  for (auto& end : data.nEndCond) end[0] = end[1] = ALU_END_PINNED;
  return data;
}

TEST(LateralCoefficient, OfARafterBetweenPurlinsIsThatByHand) {
  const auto found = unrestrained_coefficient(rafter());
  ASSERT_TRUE(found);
  EXPECT_NEAR(found->section.modulus[0], 309033.333333, 309033 * by_hand);
  for (const Flange flange : {Flange::top, Flange::bottom}) {
    const LateralCoefficient of = lateral_coefficient(found->section, flange, 1500);
    EXPECT_NEAR(of.moments.uniform, 112525969.168, 112525969.168 * by_hand);
    EXPECT_NEAR(of.moments.loaded, 83617513.5151, 83617513.5151 * by_hand);
    EXPECT_NEAR(of.slenderness, 0.859743768079, by_hand);
    EXPECT_NEAR(of.phi_b, 0.802712976594, by_hand);
  }
}

TEST(LateralCoefficient, OfTheWholeRafterIsThatOfTheChecks) {
  const auto found = unrestrained_coefficient(rafter());
  ASSERT_TRUE(found);
  EXPECT_NEAR(found->largest_phi_b, 0.181975910982, by_hand);
  EXPECT_NEAR(lateral_coefficient(found->section, Flange::top, 6000).phi_b, 0.181975910982,
              by_hand);
}

TEST(LateralCoefficient, OfTheChecksTakesSupportsBetweenTheEnds) {
  ALU_DGN_DATA data = rafter();
  data.code.para.bMidSupport = 1;
  EXPECT_GT(unrestrained_coefficient(data)->largest_phi_b, 0.5);
}

TEST(LateralCoefficient, DependsOnNoLengthInClosedSections) {
  ALU_DGN_DATA data = rafter();
  data.code.sect.nShape = ALU_SHAPE_B;
  EXPECT_FALSE(unrestrained_coefficient(data));
}

TEST(LateralCoefficient, OfTheElementItselfStays) {
  ALU_DGN_DATA data = rafter();
  data.code.para.bUserPhi = 1;
  EXPECT_FALSE(unrestrained_coefficient(data));
}

TEST(LateralCoefficient, OfATrussIsNone) {
  ALU_DGN_DATA data = rafter();
  data.nMembType = ALU_MEMBER_TRUSS;
  EXPECT_FALSE(unrestrained_coefficient(data));
}

TEST(LateralCoefficient, OfAChannelWithUnequalFlangesIsNone) {
  ALU_DGN_DATA data = rafter();
  data.code.sect.nShape = ALU_SHAPE_C;
  EXPECT_TRUE(unrestrained_coefficient(data));
  data.code.sect.dSize[4] = 100;
  EXPECT_FALSE(unrestrained_coefficient(data));
}

/// H 200, web 8, flanges 120x10 on top and 60x10: with the centroid 117.592592593 above the lower
/// edge, arms of 77.4074074074 and 112.592592593, Iyy 19145222.2222 and the shear
/// centre 56.2962962963 above the centroid, ∫z·(y² + z²)dA = 1200·77.407·(1200 + 77.407²) −
/// 600·112.593·(300 + 112.593²)
///   + 8·(72.407⁴ − 107.593⁴)/4 = −421667078.189
/// βy = 56.2962962963 + 421667078.189/(2·19145222.2222) = 67.3086280753.
TEST(Monosymmetry, OfUnequalFlangesIsTheIntegralByHand) {
  ALU_SECT_DATA sect = rafter().code.sect;
  constexpr std::array<double, 6> sizes{200, 8, 120, 10, 60, 10};
  std::copy(sizes.begin(), sizes.end(), sect.dSize);
  sect.dIyy = 19145222.2222222;
  sect.dShearCtr = 56.2962962962963;
  constexpr double above = 82.4074074074074, below = -117.592592592593;
  constexpr std::array<double, 4> z{above, above, below, below};
  std::copy(z.begin(), z.end(), sect.dPtZ);
  EXPECT_NEAR(monosymmetry(sect), 67.3086280753, 1e-8);
}

/// Tee 100x100, web 6, flange 8: centroid 75.5857988166 above the foot, arm of the flange and shear
/// centre 20.4142011834, Iyy 1210178.714,
/// ∫z·(y² + z²)dA = 800·20.414·(833.333 + 20.414²) + 6·(16.414⁴ − 75.586⁴)/4 = −28436925.8779
/// βy = 20.4142011834 + 28436925.8779/(2·1210178.714) = 32.1632616936.
TEST(Monosymmetry, OfATeeIsTheIntegralByHand) {
  ALU_SECT_DATA sect = rafter().code.sect;
  sect.nShape = ALU_SHAPE_T;
  constexpr std::array<double, 6> sizes{100, 6, 100, 8, 0, 0};
  std::copy(sizes.begin(), sizes.end(), sect.dSize);
  sect.dIyy = 1210178.7140039448;
  sect.dShearCtr = 20.414201183431956;
  constexpr double above = 24.414201183431956, below = -75.58579881656804;
  constexpr std::array<double, 4> z{above, above, below, below};
  std::copy(z.begin(), z.end(), sect.dPtZ);
  EXPECT_NEAR(monosymmetry(sect), 32.1632616936, 1e-8);
}

TEST(CriticalMoments, FavourTheLargerFlange) {
  LateralSection section = unrestrained_coefficient(rafter())->section;
  section.beta_y = 60;
  section.load_height = {-60, -150};
  const CriticalMoments top = critical_moments(section, Flange::top, 3000);
  const CriticalMoments bottom = critical_moments(section, Flange::bottom, 3000);
  EXPECT_GT(top.uniform, bottom.uniform);
  EXPECT_GT(top.loaded, bottom.loaded);
}

/// A solid round without warping: with βy and the load's height 0 the formula is
/// π/l·√(E·Izz·G·It), the classical solution of a strip in uniform bending.
/// π/3000·√(70000·2883960·27000·95840) = 23934675.226.
TEST(CriticalMoments, WithoutWarpingAreThoseOfAStrip) {
  LateralSection section = unrestrained_coefficient(rafter())->section;
  section.iw = 0;
  EXPECT_NEAR(critical_moments(section, Flange::top, 3000).uniform, 23934675.226, 1.0);
}

}  // namespace
}  // namespace aluframe::restraints

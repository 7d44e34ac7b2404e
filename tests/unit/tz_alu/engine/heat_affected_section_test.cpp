#include "tz_alu/engine/heat_affected_section.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>

namespace {

using namespace alu_engine;

// Sums of about ten terms: rounding stays far below this share of the sum.
constexpr double kRounding = 1e-13;

ALU_SECT_DATA Section(std::int32_t nShape, std::initializer_list<double> size, double z1,
                      double z3) {
  ALU_SECT_DATA sect;
  sect.nShape = nShape;
  std::copy(size.begin(), size.end(), sect.dSize);
  sect.dIzz = 1.0e6;
  sect.dPtY[0] = 40.0;
  sect.dPtY[1] = -50.0;
  sect.dPtZ[0] = sect.dPtZ[1] = z1;
  sect.dPtZ[2] = sect.dPtZ[3] = z3;
  return sect;
}

void ExpectModuli(const ALU_CAL_SECTPARA& para, double inertia, double top, double bottom) {
  EXPECT_NEAR(para.dW1, inertia / top, kRounding * inertia);
  EXPECT_NEAR(para.dW2, inertia / bottom, kRounding * inertia);
}

// H 200x10, flanges 120x12 and 80x8, z from 80 to -120; b = 20, ρ = 0.5.
const ALU_SECT_DATA kH = Section(ALU_SHAPE_H, {200, 10, 120, 12, 80, 8}, 80, -120);

// bf1 = 120-40-10 = 70, bf2 = 80-40-10 = 30, hw = 200-12-8-40 = 140, strip 2·20+10 = 50.
TEST(HeatAffectedH, AreaCountsStripsByTheirFactor) {
  // 70·12 + 50·(12+8)·0.5 + 30·8 + 2·20·10·0.5 + 140·10 = 840+500+240+200+1400
  EXPECT_DOUBLE_EQ(HeatAffectedSection(kH, {20, 0.5}).dA, 3180.0);
}

TEST(HeatAffectedH, ModuliComeFromTheRebuiltInertia) {
  // top: (70+25)·12·74² = 6,242,640; 70·12³/12 = 10,080; 50·6³/12 = 900
  // bottom: (30+25)·8·116² = 5,920,640; 30·8³/12 = 1,280; 50·4³/12 = 800/3
  // web: 140³·10/12 = 6,860,000/3; strips 0.5·10·20³/6 = 20,000/3;
  // transfer 0.5·10·20·((80-12-10)² + (120-8-10)²) = 100·(3,364+10,404) = 1,376,800
  ExpectModuli(HeatAffectedSection(kH, {20, 0.5}), 15845940.0, 80.0, 120.0);
}

TEST(HeatAffectedH, FibresCountByMagnitude) {
  ALU_SECT_DATA sect = kH;
  sect.dPtZ[0] = -80.0;
  sect.dPtZ[2] = 120.0;
  ExpectModuli(HeatAffectedSection(sect, {20, 0.5}), 15845940.0, 80.0, 120.0);
}

TEST(HeatAffectedH, WeakAxisModulusStaysGross) {
  EXPECT_DOUBLE_EQ(HeatAffectedSection(kH, {20, 0.5}).dWz, 20000.0);  // 1e6/50
}

TEST(HeatAffectedH, WithoutReductionIsTheGrossArea) {
  // 120·12 + 80·8 + (200-12-8)·10 = 1440+640+1800
  EXPECT_DOUBLE_EQ(HeatAffectedSection(kH, {20, 1.0}).dA, 3880.0);
}

TEST(HeatAffectedH, ZonesWiderThanTheFlangeLeaveNoClearWidth) {
  // b = 60: bf1 = max(120-120-10, 0) = 0, bf2 = 0, hw = max(180-120, 0) = 60, strip 130:
  // 0 + 130·20·0.5 + 0 + 2·60·10·0.5 + 60·10 = 1300+600+600
  EXPECT_DOUBLE_EQ(HeatAffectedSection(kH, {60, 0.5}).dA, 2500.0);
}

TEST(HeatAffectedH, ZonesWiderThanTheWebLeaveNoClearHeightAndAreNotShortened) {
  // b = 100: hw = max(180-200, 0) = 0, strip 210: 210·20·0.5 + 2·100·10·0.5 = 2100+1000
  EXPECT_DOUBLE_EQ(HeatAffectedSection(kH, {100, 0.5}).dA, 3100.0);
}

// Channel 160x8, flanges 70x10 and 60x12, z from 75 to -85.
const ALU_SECT_DATA kC = Section(ALU_SHAPE_C, {160, 8, 70, 10, 60, 12}, 75, -85);

// bf1 = 70-20-8 = 42, bf2 = 60-20-8 = 32, hw = 160-10-12-40 = 98, strip 20+8 = 28.
TEST(HeatAffectedChannel, AreaCountsStripsByTheirFactor) {
  // 42·10 + 28·22·0.5 + 32·12 + 2·20·8·0.5 + 98·8 = 420+308+384+160+784
  EXPECT_DOUBLE_EQ(HeatAffectedSection(kC, {20, 0.5}).dA, 2056.0);
}

TEST(HeatAffectedChannel, ModuliComeFromTheRebuiltInertia) {
  // top: (42+14)·10·70² = 2,744,000; 42·10³/12 = 3,500; 28·5³/12 = 875/3
  // bottom: (32+14)·12·79² = 3,445,032; 32·12³/12 = 4,608; 28·6³/12 = 504
  // web: 98³·8/12 = 1,882,384/3; strips 0.5·8·20³/6 = 16,000/3;
  // transfer 0.5·8·20·((75-10-10)² + (85-12-10)²) = 80·(3,025+3,969) = 559,520
  ExpectModuli(HeatAffectedSection(kC, {20, 0.5}), 22170751.0 / 3.0, 75.0, 85.0);
}

TEST(HeatAffectedChannel, ZonesWiderThanTheFlangeLeaveNoClearWidth) {
  // b = 65: both clear widths 0, hw = max(138-130, 0) = 8, strip 73:
  // 73·22·0.5 + 2·65·8·0.5 + 8·8 = 803+520+64
  EXPECT_DOUBLE_EQ(HeatAffectedSection(kC, {65, 0.5}).dA, 1387.0);
}

// Tee 100x8, flange 100x10, z from 25 to -75; b = 10, ρ = 0.5.
const ALU_SECT_DATA kT = Section(ALU_SHAPE_T, {100, 8, 100, 10}, 25, -75);

// bf = 2·(100-10-8) = 164, hw = 100-10-20 = 70, strip 2·10+8 = 28.
TEST(HeatAffectedTee, AreaHasOneFlangeAndOneWebStrip) {
  // 164·10 + 28·10·0.5 + 10·8·0.5 + 70·8 = 1640+140+40+560
  EXPECT_DOUBLE_EQ(HeatAffectedSection(kT, {10, 0.5}).dA, 2380.0);
}

TEST(HeatAffectedTee, ModuliComeFromTheRebuiltInertia) {
  // flange: (164+14)·10·20² = 712,000; 164·10³/12 = 41,000/3; 28·5³/12 = 875/3
  // web: 70³·8/12 = 686,000/3; strip 0.5·8·10³/12 = 1,000/3;
  // transfer 0.5·8·10·(25-10-5)² = 4,000
  ExpectModuli(HeatAffectedSection(kT, {10, 0.5}), 2876875.0 / 3.0, 25.0, 75.0);
}

TEST(HeatAffectedTee, ZonesWiderThanThePlatesLeaveNoClearParts) {
  // b = 95: bf = max(2·(100-95-8), 0) = 0, hw = max(90-190, 0) = 0, strip 198:
  // 198·10·0.5 + 95·8·0.5 = 990+380
  EXPECT_DOUBLE_EQ(HeatAffectedSection(kT, {95, 0.5}).dA, 1370.0);
}

TEST(HeatAffectedTee, BottomFlangeDimensionsAreNotRead) {
  ALU_SECT_DATA sect = kT;
  sect.dSize[4] = 90.0;
  sect.dSize[5] = 9.0;
  EXPECT_EQ(HeatAffectedSection(sect, {10, 0.5}).dA, HeatAffectedSection(kT, {10, 0.5}).dA);
  EXPECT_EQ(HeatAffectedSection(sect, {10, 0.5}).dW1, HeatAffectedSection(kT, {10, 0.5}).dW1);
}

// Box 200x6, width 120, flanges 10 and 8 thick, webs 114 apart, z from 95 to -105.
const ALU_SECT_DATA kB = Section(ALU_SHAPE_B, {200, 6, 120, 10, 114, 8}, 95, -105);

// bf = 120-40-12 = 68, hw = 200-10-8-40 = 142, strip 2·(20+6) = 52.
TEST(HeatAffectedBox, AreaHasTwoWebs) {
  // 68·10 + 52·18·0.5 + 68·8 + 4·20·6·0.5 + 2·142·6 = 680+468+544+240+1704
  EXPECT_DOUBLE_EQ(HeatAffectedSection(kB, {20, 0.5}).dA, 3636.0);
}

TEST(HeatAffectedBox, ModuliComeFromTheRebuiltInertia) {
  // top: (68+26)·10·90² = 7,614,000; 68·10³/12 = 17,000/3; 52·5³/12 = 1,625/3
  // bottom: (68+26)·8·101² = 7,671,152; 68·8³/12 = 8,704/3; half strip 26·4³/12 = 416/3
  // webs: 142³·6/6 = 2,863,288; strips 0.5·6·20³/3 = 8,000;
  // transfer 2·0.5·6·20·((95-10-10)² + (105-8-10)²) = 120·(5,625+7,569) = 1,583,280
  ExpectModuli(HeatAffectedSection(kB, {20, 0.5}), 59246905.0 / 3.0, 95.0, 105.0);
}

TEST(HeatAffectedBox, WebDistanceIsNotRead) {
  ALU_SECT_DATA sect = kB;
  sect.dSize[4] = 60.0;
  EXPECT_EQ(HeatAffectedSection(sect, {20, 0.5}).dA, HeatAffectedSection(kB, {20, 0.5}).dA);
}

// Double channel 160x8, flanges 60x10, gap 20, z from 80 to -80.
const ALU_SECT_DATA k2C = Section(ALU_SHAPE_2C, {160, 8, 60, 10, 20}, 80, -80);

// bf = 2·(60-20-8) = 64, hw = 160-20-40 = 100, strip 2·(20+8) = 56.
TEST(HeatAffectedDoubleChannel, AreaHasTwoWebsAndOneFlangeThickness) {
  // 64·10 + 56·20·0.5 + 64·10 + 4·20·8·0.5 + 2·100·8 = 640+560+640+320+1600
  EXPECT_DOUBLE_EQ(HeatAffectedSection(k2C, {20, 0.5}).dA, 3760.0);
}

TEST(HeatAffectedDoubleChannel, ModuliComeFromTheRebuiltInertia) {
  // each flange: (64+28)·10·75² = 5,175,000; 64·10³/12 = 16,000/3; 56·5³/12 = 1,750/3
  // webs: 100³·8/6 = 4,000,000/3; strips 0.5·8·20³/3 = 32,000/3;
  // transfer 2·0.5·8·20·2·(80-10-10)² = 160·7,200 = 1,152,000
  ExpectModuli(HeatAffectedSection(k2C, {20, 0.5}), 38573500.0 / 3.0, 80.0, 80.0);
}

TEST(HasHazPlates, HoldsForPlatedShapesOnly) {
  for (const auto shape : {ALU_SHAPE_C, ALU_SHAPE_H, ALU_SHAPE_T, ALU_SHAPE_B, ALU_SHAPE_2C}) {
    EXPECT_TRUE(HasHazPlates(shape)) << shape;
  }
  for (const int shape : {int{ALU_SHAPE_P}, int{ALU_SHAPE_SR}, -1, 7}) {
    EXPECT_FALSE(HasHazPlates(shape)) << shape;
  }
}

}  // namespace

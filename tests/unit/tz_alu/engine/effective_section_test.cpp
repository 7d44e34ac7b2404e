#include "tz_alu/engine/effective_section.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>

namespace {

using namespace alu_engine;

// Sums of about ten terms: rounding stays far below this share of the sum.
constexpr double kRounding = 1e-13;

ALU_SECT_DATA Section(std::int32_t nShape, std::initializer_list<double> size, double z1, double z3,
                      double area, double inertia) {
  ALU_SECT_DATA sect;
  sect.nShape = nShape;
  std::copy(size.begin(), size.end(), sect.dSize);
  sect.dArea = area;
  sect.dIyy = inertia;
  sect.dIzz = 1.0e6;
  sect.dPtY[0] = 40.0;
  sect.dPtY[1] = -50.0;
  sect.dPtZ[0] = sect.dPtZ[1] = z1;
  sect.dPtZ[2] = sect.dPtZ[3] = z3;
  return sect;
}

void ExpectSection(const ALU_CAL_SECTPARA& para, double area, double inertia, double top,
                   double bottom) {
  EXPECT_NEAR(para.dA, area, kRounding * area);
  EXPECT_NEAR(para.dW1, inertia / top, kRounding * inertia);
  EXPECT_NEAR(para.dW2, inertia / bottom, kRounding * inertia);
}

TEST(HasEffectiveSection, HoldsForChannelsHAndBoxesOnly) {
  for (const auto shape : {ALU_SHAPE_C, ALU_SHAPE_H, ALU_SHAPE_B}) {
    EXPECT_TRUE(HasEffectiveSection(shape)) << shape;
  }
  for (const int shape :
       {int{ALU_SHAPE_T}, int{ALU_SHAPE_P}, int{ALU_SHAPE_2C}, int{ALU_SHAPE_SR}, -1, 7}) {
    EXPECT_FALSE(HasEffectiveSection(shape)) << shape;
  }
}

// H 200x10, flanges 120x12 and 80x8, z from 80 to -120: area 1440 + 640 + 180·10. Halved plates
// (ρ = 0.5), flange middles 74 and 116 from the axis.
const ALU_SECT_DATA kH = Section(ALU_SHAPE_H, {200, 10, 120, 12, 80, 8}, 80, -120, 3880, 3e7);

TEST(UnweldedH, InAxialCompressionLosesThicknessEverywhere) {
  // top 0.5·12·120 = 720 at 74: 3,942,720; own 120·6³/12 = 2,160
  // bottom 0.5·8·80 = 320 at 116: 4,305,920; own 80·4³/12 = 1,280/3
  // web 0.5·10·180 = 900; own 5³·180/12 = 1,875. Together 24,759,305/3
  const auto para = UnweldedEffectiveSection(kH, REDUCED_PART::WholeSection, 0.5);
  ExpectSection(para, 1940.0, 65240695.0 / 3.0, 80.0, 120.0);
}

TEST(UnweldedH, InPositiveBendingLosesTopFlange) {
  const auto para = UnweldedEffectiveSection(kH, REDUCED_PART::TopFlange, 0.5);
  ExpectSection(para, 3160.0, 26057280.0, 80.0, 120.0);  // 3880 - 720, 3e7 - 3,942,720
}

TEST(UnweldedH, InNegativeBendingLosesBottomFlange) {
  const auto para = UnweldedEffectiveSection(kH, REDUCED_PART::BottomFlange, 0.5);
  ExpectSection(para, 3560.0, 25694080.0, 80.0, 120.0);  // 3880 - 320, 3e7 - 4,305,920
}

// Kept: in positive bending the top flange's distance is z1 - tf1/2 with the sign of z1.
TEST(UnweldedH, InPositiveBendingTakesTheTopFibreWithItsSign) {
  ALU_SECT_DATA sect = kH;
  sect.dPtZ[0] = -80.0;
  // 720·(-80 - 6)² = 5,325,120
  const auto para = UnweldedEffectiveSection(sect, REDUCED_PART::TopFlange, 0.5);
  ExpectSection(para, 3160.0, 24674880.0, 80.0, 120.0);
}

TEST(UnweldedH, InAxialCompressionTakesBothFibresByMagnitude) {
  ALU_SECT_DATA sect = kH;
  sect.dPtZ[0] = -80.0;
  sect.dPtZ[2] = 120.0;
  const auto para = UnweldedEffectiveSection(sect, REDUCED_PART::WholeSection, 0.5);
  ExpectSection(para, 1940.0, 65240695.0 / 3.0, 80.0, 120.0);
}

TEST(UnweldedH, InNegativeBendingTakesTheBottomFibreByMagnitude) {
  ALU_SECT_DATA sect = kH;
  sect.dPtZ[2] = 120.0;
  const auto para = UnweldedEffectiveSection(sect, REDUCED_PART::BottomFlange, 0.5);
  ExpectSection(para, 3560.0, 25694080.0, 80.0, 120.0);
}

TEST(UnweldedH, KeepsTheGrossModulusAboutZ) {
  for (const auto part :
       {REDUCED_PART::WholeSection, REDUCED_PART::TopFlange, REDUCED_PART::BottomFlange}) {
    EXPECT_DOUBLE_EQ(UnweldedEffectiveSection(kH, part, 0.5).dWz, 20000.0);  // 1e6/50
  }
}

TEST(UnweldedH, WithFullThicknessIsTheGrossSection) {
  for (const auto part :
       {REDUCED_PART::WholeSection, REDUCED_PART::TopFlange, REDUCED_PART::BottomFlange}) {
    ExpectSection(UnweldedEffectiveSection(kH, part, 1.0), 3880.0, 3e7, 80.0, 120.0);
  }
}

// Kept: a web height below 0 is not cut off.
TEST(UnweldedH, LowerThanItsFlangesGainsANegativeWeb) {
  ALU_SECT_DATA sect = kH;
  sect.dSize[0] = 10.0;  // hw = 10 - 12 - 8 = -10: 3880 - 720 - 320 + 0.5·10·10
  EXPECT_DOUBLE_EQ(UnweldedEffectiveSection(sect, REDUCED_PART::WholeSection, 0.5).dA, 2890.0);
}

// Channel 160x8, flanges 70x10 and 60x12, z from 75 to -85: area 700 + 720 + 138·8.
const ALU_SECT_DATA kC = Section(ALU_SHAPE_C, {160, 8, 70, 10, 60, 12}, 75, -85, 2524, 1e7);

TEST(UnweldedChannel, FollowsTheRulesOfAnH) {
  // top 350 at 70: 1,715,000; own 70·5³/12 = 8,750/12; bottom 360 at 79: 2,246,760;
  // own 60·6³/12 = 1,080; web 552; own 4³·138/12 = 736. Together 3,963,576 + 8,750/12
  ExpectSection(UnweldedEffectiveSection(kC, REDUCED_PART::WholeSection, 0.5), 1262.0,
                6036424.0 - 8750.0 / 12.0, 75.0, 85.0);
  ExpectSection(UnweldedEffectiveSection(kC, REDUCED_PART::TopFlange, 0.5), 2174.0, 8285000.0, 75.0,
                85.0);
  ExpectSection(UnweldedEffectiveSection(kC, REDUCED_PART::BottomFlange, 0.5), 2164.0, 7753240.0,
                75.0, 85.0);
}

// Box 200x6, width 120, flanges 10 and 8, webs 114 apart, z from 95 to -105.
const ALU_SECT_DATA kB = Section(ALU_SHAPE_B, {200, 6, 120, 10, 114, 8}, 95, -105, 6000, 4e7);

TEST(UnweldedBox, InAxialCompressionLosesTwoWebs) {
  // top 600 at 90: 4,860,000; own 120·5³/12 = 1,250; bottom 456 at 101: 4,651,656; own
  // 114·4³/12 = 608; webs 2·0.5·6·182 = 1,092; own 3³·182/6 = 819. Together 9,514,333
  const auto para = UnweldedEffectiveSection(kB, REDUCED_PART::WholeSection, 0.5);
  ExpectSection(para, 3852.0, 30485667.0, 95.0, 105.0);
}

TEST(UnweldedBox, InBendingLosesTheCompressedFlange) {
  ExpectSection(UnweldedEffectiveSection(kB, REDUCED_PART::TopFlange, 0.5), 5400.0, 35140000.0,
                95.0, 105.0);
  ExpectSection(UnweldedEffectiveSection(kB, REDUCED_PART::BottomFlange, 0.5), 5544.0, 35348344.0,
                95.0, 105.0);
}

// Welded sections: b_haz = 20, ρhaz = 0.5, and ρ = 0.25 of the clear parts.
constexpr HAZ kHaz{20, 0.5};

ALU_CAL_SECTPARA WeldedOf(const ALU_SECT_DATA& sect, REDUCED_PART part) {
  return WeldedEffectiveSection(sect, kHaz, part, 0.25);
}

// bf1 = 120-40-10 = 70, bf2 = 80-40-10 = 30, hw = 140, strip 50, middles at 74 and 116.
// Top: clear part 70·12·74² = 4,599,840 and 10,080 own, reduced 1,149,960 and 157.5;
//      strip 1,642,800 and 900. Bottom: clear 3,229,440 and 1,280, reduced 807,360 and 20;
//      strip 2,691,200 and 800/3. Web 6,860,000/3, reduced 1,715,000/3;
//      its strips 20,000/3 and 1,376,800 (heat-affected section).
TEST(WeldedH, InAxialCompressionReducesAllClearParts) {
  // 70·3 + 50·20·0.5 + 30·2 + 2·20·10·0.5 + 0.25·1400 = 210+500+60+200+350
  ExpectSection(WeldedOf(kH, REDUCED_PART::WholeSection), 1320.0, 8247797.5, 80.0, 120.0);
}

TEST(WeldedH, InPositiveBendingReducesTheTopFlange) {
  // 210+500+240+200+1400
  ExpectSection(WeldedOf(kH, REDUCED_PART::TopFlange), 2550.0, 12386137.5, 80.0, 120.0);
}

// Kept: the bottom flange counts with its full 80x8 (8,611,840 and 10,240/3), the top flange's own
// inertia with ρ.
TEST(WeldedH, InNegativeBendingCountsTheBottomFlangeInFull) {
  // 840 + 50·12·0.5 + 640 + 200 + 1400
  ExpectSection(WeldedOf(kH, REDUCED_PART::BottomFlange), 3380.0, 16232337.5 + 6890240.0 / 3.0,
                80.0, 120.0);
}

// bf1 = 42, bf2 = 32, hw = 98, strip 28, middles at 70 and 79.
// Top: clear 2,058,000 and 3,500, reduced 514,500 and 54.6875; strip 686,000 and 875/3.
// Bottom: clear 2,396,544 and 4,608, reduced 599,136 and 72; strip 1,048,488 and 504.
// Web 1,882,384/3, reduced 470,596/3; its strips 16,000/3 and 559,520.
TEST(WeldedChannel, InAxialCompressionReducesAllClearParts) {
  // 105+308+96+160+196
  ExpectSection(WeldedOf(kC, REDUCED_PART::WholeSection), 865.0, 3408274.6875 + 487471.0 / 3.0,
                75.0, 85.0);
}

TEST(WeldedChannel, InPositiveBendingReducesTheTopFlange) {
  // 105+308+384+160+784
  ExpectSection(WeldedOf(kC, REDUCED_PART::TopFlange), 1741.0, 5210218.6875 + 1899259.0 / 3.0, 75.0,
                85.0);
}

// Kept: the bottom strip's own inertia takes the square of its thickness, 28·6²/12 = 84.
TEST(WeldedChannel, InNegativeBendingSquaresTheThicknessOfTheBottomStrip) {
  // 420+308+96+160+784
  ExpectSection(WeldedOf(kC, REDUCED_PART::BottomFlange), 1768.0, 4954800.0 + 1899259.0 / 3.0, 75.0,
                85.0);
}

// Both flanges from B1: bf = 68, hw = 142, strip 52, middles at 90 and 101.
// Top: clear 5,508,000 and 17,000/3, reduced 1,377,000 and 1,062.5/12; strip 2,106,000 and 1,625/3.
// Bottom: clear 5,549,344 and 8,704/3, reduced 1,387,336 and 136/3; strip 2,121,808 and 832/3.
// Webs 2,863,288, reduced 715,822; their strips 8,000 and 1,583,280.
TEST(WeldedBox, InAxialCompressionReducesAllClearParts) {
  // 170+468+136+240+426
  ExpectSection(WeldedOf(kB, REDUCED_PART::WholeSection), 1440.0,
                9299246.0 + 2593.0 / 3.0 + 1062.5 / 12.0, 95.0, 105.0);
}

TEST(WeldedBox, InPositiveBendingReducesTheTopFlange) {
  // 170+468+544+240+1704
  ExpectSection(WeldedOf(kB, REDUCED_PART::TopFlange), 3126.0,
                15608720.0 + 11161.0 / 3.0 + 1062.5 / 12.0, 95.0, 105.0);
}

// Kept: half the flange strips, half the web strips and one web; the bottom strip's own inertia
// takes the square of its thickness, 52·4²/12 = 208/3.
TEST(WeldedBox, InNegativeBendingCountsHalfTheStripsAndOneWeb) {
  // 68·10 + 18·0.5·26 + 0.25·68·8 + 2·20·6·0.5 + 142·6 = 680+234+136+120+852
  ExpectSection(WeldedOf(kB, REDUCED_PART::BottomFlange), 2022.0, 15584035.0, 95.0, 105.0);
}

TEST(WeldedBox, TakesBothFlangesFromTheTopWidth) {
  ALU_SECT_DATA sect = kB;
  sect.dSize[4] = 60.0;
  for (const auto part :
       {REDUCED_PART::WholeSection, REDUCED_PART::TopFlange, REDUCED_PART::BottomFlange}) {
    EXPECT_EQ(WeldedOf(sect, part).dA, WeldedOf(kB, part).dA);
    EXPECT_EQ(WeldedOf(sect, part).dW1, WeldedOf(kB, part).dW1);
  }
}

TEST(WeldedSection, KeepsTheGrossModulusAboutZ) {
  for (const auto& sect : {kH, kC, kB}) {
    EXPECT_DOUBLE_EQ(WeldedOf(sect, REDUCED_PART::WholeSection).dWz, 20000.0);  // 1e6/50
  }
}

TEST(WeldedSection, WithFullThicknessInAxialCompressionIsTheHeatAffectedOne) {
  for (const auto& sect : {kH, kC}) {
    const auto para = WeldedEffectiveSection(sect, kHaz, REDUCED_PART::WholeSection, 1.0);
    const auto affected = HeatAffectedSection(sect, kHaz);
    EXPECT_NEAR(para.dA, affected.dA, kRounding * affected.dA);
    EXPECT_NEAR(para.dW1, affected.dW1, kRounding * affected.dW1);
    EXPECT_NEAR(para.dW2, affected.dW2, kRounding * affected.dW2);
  }
}

// Kept: the heat-affected box takes half the bottom strip's own inertia, 416/3, the effective one
// all of it, 832/3.
TEST(WeldedSection, OfABoxDiffersFromTheHeatAffectedOneByHalfABottomStrip) {
  const auto para = WeldedEffectiveSection(kB, kHaz, REDUCED_PART::WholeSection, 1.0);
  const auto affected = HeatAffectedSection(kB, kHaz);
  EXPECT_NEAR((para.dW1 - affected.dW1) * 95.0, 416.0 / 3.0, 1e-6);
}

TEST(WeldedSection, CoveredByItsStripsDoesNotDependOnTheEffectiveThickness) {
  const HAZ wide{100, 0.5};  // no clear width or height: 210·20·0.5 + 2·100·10·0.5
  for (const double rho : {0.0, 0.25, 1.0}) {
    const auto para = WeldedEffectiveSection(kH, wide, REDUCED_PART::WholeSection, rho);
    EXPECT_DOUBLE_EQ(para.dA, 3100.0);
  }
}

}  // namespace

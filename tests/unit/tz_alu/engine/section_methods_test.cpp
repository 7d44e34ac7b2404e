// Which section the checks take: gross, heat-affected or effective.

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "tests/unit/tz_alu/engine/engine_inputs.h"
#include "tz_alu/engine/effective_section.h"
#include "tz_alu/engine/local_buckling.h"
#include "tz_alu/engine/section_parameters.h"

namespace {

using namespace alu_engine;
using engine_inputs::Forces;
using engine_inputs::POINT;
using engine_inputs::SymmetricH;

constexpr HAZ kHaz{20.0, 0.5};  // of 6061-T6

enum class METHOD { Gross, HeatAffected, Effective, WeldedEffective };

POINT SectionPoint(std::int32_t nShape, std::int32_t bWelded, const AluDgnSectForce& force,
                   const std::array<double, 8>& size) {
  POINT point{SymmetricH(), force};
  point.Section().nShape = nShape;
  point.Section().bWelded = bWelded;
  point.Parameters().dHazWidth = kHaz.dWidth;
  point.Section().dArea = 5000.0;
  point.SetSize(size);
  return point;
}

ALU_CAL_SECTPARA ByMethod(POINT& point, METHOD method) {
  const CHECK_INPUT in = point.Input();
  const double rho = EffectiveThicknessFactor(in, PlateRatios(in));
  const REDUCED_PART part = ReducedPart(point.force);
  switch (method) {
    case METHOD::Gross:
      return GrossSection(point.Section());
    case METHOD::HeatAffected:
      return HeatAffectedSection(point.Section(), kHaz);
    case METHOD::Effective:
      return UnweldedEffectiveSection(point.Section(), part, rho);
    default:
      return WeldedEffectiveSection(point.Section(), kHaz, part, rho);
  }
}

void ExpectMethod(POINT point, METHOD method) {
  const ALU_CAL_SECTPARA actual = SectionParameters(point.Input());
  const ALU_CAL_SECTPARA expected = ByMethod(point, method);
  EXPECT_EQ(actual.dA, expected.dA);
  EXPECT_EQ(actual.dW1, expected.dW1);
  EXPECT_EQ(actual.dW2, expected.dW2);
  EXPECT_EQ(actual.dWz, expected.dWz);
}

// The methods of a shape for stocky and slender plates, unwelded and welded.
struct METHOD_CASE {
  const char* name;
  std::int32_t nShape;
  METHOD slender;
  METHOD welded;
  METHOD slenderWelded;
};

void PrintTo(const METHOD_CASE& row, std::ostream* os) {
  *os << row.name;
}

class MethodOfShape : public testing::TestWithParam<METHOD_CASE> {
 protected:
  static void ExpectMethods(std::int32_t bWelded, const std::array<double, 8>& size,
                            METHOD method) {
    for (const auto& force : {Forces(-1e5, 0, 0), Forces(-1e5, 1e6, 0), Forces(1e5, -1e6, 0),
                              Forces(1e5, 0, 0), Forces(0, 0, 1e6)}) {
      ExpectMethod(SectionPoint(GetParam().nShape, bWelded, force, size), method);
    }
  }
};

constexpr std::array<double, 8> kStocky{150, 10, 70, 25, 70, 25};
constexpr std::array<double, 8> kSlender{400, 4, 200, 4, 180, 4};

TEST_P(MethodOfShape, StockyAndUnweldedIsGross) {
  ExpectMethods(0, kStocky, METHOD::Gross);
}

TEST_P(MethodOfShape, SlenderAndUnwelded) {
  ExpectMethods(0, kSlender, GetParam().slender);
}

TEST_P(MethodOfShape, StockyAndWelded) {
  ExpectMethods(1, kStocky, GetParam().welded);
}

TEST_P(MethodOfShape, SlenderAndWelded) {
  ExpectMethods(1, kSlender, GetParam().slenderWelded);
}

constexpr METHOD kGross = METHOD::Gross;
constexpr METHOD kHeat = METHOD::HeatAffected;
constexpr METHOD kEffective = METHOD::Effective;
constexpr METHOD kWelded = METHOD::WeldedEffective;
INSTANTIATE_TEST_SUITE_P(AllShapes, MethodOfShape,
                         testing::Values(METHOD_CASE{"C", ALU_SHAPE_C, kEffective, kHeat, kWelded},
                                         METHOD_CASE{"H", ALU_SHAPE_H, kEffective, kHeat, kWelded},
                                         METHOD_CASE{"T", ALU_SHAPE_T, kGross, kHeat, kHeat},
                                         METHOD_CASE{"B", ALU_SHAPE_B, kEffective, kHeat, kWelded},
                                         METHOD_CASE{"P", ALU_SHAPE_P, kGross, kGross, kGross},
                                         METHOD_CASE{"DoubleC", ALU_SHAPE_2C, kGross, kHeat, kHeat},
                                         METHOD_CASE{"SR", ALU_SHAPE_SR, kGross, kGross, kGross}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(SectionMethod, OfASlenderSectionKnowsOnlyTheWeldFlagOne) {
  for (const std::int32_t flag : {2, -1}) {
    ExpectMethod(SectionPoint(ALU_SHAPE_H, flag, Forces(0, 1e6, 0), kSlender), METHOD::Effective);
  }
}

// Flanges of clear width/thickness 60/10 against 6; My < 0 leaves the limit at 6.
TEST(SectionMethod, AtARatioOfOneIsGross) {
  ExpectMethod(SectionPoint(ALU_SHAPE_H, 0, Forces(0, -1e6, 0), {150, 10, 70, 10, 70, 10}),
               METHOD::Gross);
}

// Kept: a ratio beyond 1 has no tolerance, and the flange then loses thickness at once.
TEST(SectionMethod, BeyondARatioOfOneIsEffectiveWithoutATolerance) {
  POINT point =
      SectionPoint(ALU_SHAPE_H, 0, Forces(0, -1e6, 0), {150, 10, 70 + 3e-9, 10, 70 + 3e-9, 10});
  ExpectMethod(point, METHOD::Effective);
  EXPECT_LT(SectionParameters(point.Input()).dA, 4900.0);
}

TEST(SectionMethod, BeyondARatioOfOneInAxialCompressionKeepsItsAreaUpToTheTolerance) {
  POINT point =
      SectionPoint(ALU_SHAPE_H, 0, Forces(-1e5, 0, 0), {150, 10, 70 + 3e-9, 10, 70 + 3e-9, 10});
  EXPECT_EQ(SectionParameters(point.Input()).dA, 5000.0);
}

TEST(SectionMethod, InAxialCompressionWithOnlyTheTopFlangeSlenderKeepsAreaAndInertia) {
  POINT point = SectionPoint(ALU_SHAPE_H, 0, Forces(-1e5, 0, 0), {150, 10, 200, 10, 70, 10});
  const ALU_CAL_SECTPARA para = SectionParameters(point.Input());
  EXPECT_EQ(para.dA, 5000.0);
  EXPECT_EQ(para.dW1, 200000.0);  // 2e7/100
}

TEST(SectionMethod, DependsOnTheBendingDirection) {
  const std::array<double, 8> size{150, 10, 200, 10, 70, 10};  // only the top flange is slender
  POINT top = SectionPoint(ALU_SHAPE_H, 0, Forces(0, 1e6, 0), size);
  // λ = √(240/(0.431·63,267/9.5²)) = 0.891, ρ = 0.96/λ - 0.22/λ² = 0.800, worked out from the
  // formula; 5000 - 0.2·200·10
  EXPECT_NEAR(SectionParameters(top.Input()).dA, 4600.34, 0.01);
}

TEST(SectionMethod, OfAnUndefinedThicknessFactorShowsIt) {
  POINT point = SectionPoint(ALU_SHAPE_H, 0, Forces(0, 1e6, 0), kSlender);
  point.Material().nElast = -70000;
  EXPECT_TRUE(std::isnan(SectionParameters(point.Input()).dA));
  EXPECT_TRUE(AreUsable(SectionParameters(point.Input())));
}

TEST(SectionMethod, OfASlenderPipeStoresNoRatios) {
  POINT point = SectionPoint(ALU_SHAPE_P, 0, Forces(-1e5, 0, 0), {400, 2});
  const ALU_CAL_SECTPARA para = SectionParameters(point.Input());
  EXPECT_EQ(para.dR1, 0.0);
  EXPECT_EQ(para.dR2, 0.0);
  EXPECT_EQ(para.dRw, 0.0);
}

}  // namespace

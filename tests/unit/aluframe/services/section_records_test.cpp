// Sections and materials as the contract's records.

#include <gtest/gtest.h>

#include "aluframe/services/attributes.h"
#include "tests/unit/aluframe/services/sample_model.h"

namespace aluframe::services {
namespace {

class SectionRecordsTest : public testing::Test {
 protected:
  T_SECT_DESIGN_D section(UINT number) const {
    T_SECT_DESIGN_D section;
    EXPECT_EQ(attributes_.GetSectDesign(number, section), 1);
    return section;
  }
  T_MATD_D material() const {
    T_MATD_D material;
    EXPECT_EQ(attributes_.GetMatlDesign(1, material), 1);
    return material;
  }

  const model::Model model_ = sample_model();
  UnitScale scale_;
  Attributes attributes_{model_, scale_};
};

// H 310 × 200 × 8 × 10 by hand, mm: rectangles for area and moments of inertia; plates
// with free ends and junctions for torsion; the upper half over the web, and a quarter flange, for
// shear.
constexpr double area = 2 * 200 * 10 + 290 * 8;
constexpr double iyy = (200 * 29791e3 - 192 * 24389e3) / 12;  // 310³, 290³
constexpr double izz = (2 * 10 * 8e6 + 290 * 512) / 12;
// Flanges 0.21·t⁴·(1 − t⁴/(12·b⁴)) below b·t³/3, the clear web, and two junctions of web to flange
// 0.8: α = −0.042 + 0.2204·0.8 − 0.0725·0.64 = 0.08792, D = 10 + 64/40.
constexpr double circle = 11.6 * 11.6 * 11.6 * 11.6;
constexpr double flange_torsion = 200e3 / 3 - 2100 * (1 - 1e4 / (12 * 1.6e9));
constexpr double torsion_constant = 2 * flange_torsion + 290 * 512 / 3.0 + 2 * 0.08792 * circle;
constexpr double qyb = (200 * 10 * 150 + 145 * 8 * 72.5) / 8;
constexpr double qzb = 200 * 200 / 8;

TEST_F(SectionRecordsTest, ASectionComesWithTheDimensionsOfTheHostsOrder) {
  const T_SECT_DESIGN_D record = section(1);
  EXPECT_TRUE(record.strShape == L"H");
  EXPECT_TRUE(record.strName2.IsEmpty());
  EXPECT_EQ(record.aSize, (std::array<double, 8>{310, 200, 8, 10, 200, 10, 0, 0}));
}

TEST_F(SectionRecordsTest, ASectionComesWithItsProperties) {
  const T_SECT_DESIGN_D record = section(1);
  EXPECT_DOUBLE_EQ(record.dArea, area);
  EXPECT_NEAR(record.dIyy, iyy, 1e-12 * iyy);
  EXPECT_NEAR(record.dIzz, izz, 1e-12 * izz);
  EXPECT_NEAR(record.dIxx, torsion_constant, 1e-12 * torsion_constant);
  EXPECT_NEAR(record.dQyb, qyb, 1e-12 * qyb);
  EXPECT_NEAR(record.dQzb, qzb, 1e-12 * qzb);
}

TEST_F(SectionRecordsTest, StressPointsRunFromTopLeftClockwise) {
  const T_SECT_DESIGN_D record = section(1);
  EXPECT_EQ(record.aPtY, (std::array<double, 4>{-100, 100, 100, -100}));
  EXPECT_EQ(record.aPtZ, (std::array<double, 4>{155, 155, -155, -155}));
}

TEST_F(SectionRecordsTest, OnlyAWeldedSectionIsBuiltUpByWelding) {
  EXPECT_EQ(section(1).nBuildType, 1);
  EXPECT_EQ(section(2).nBuildType, 0);
}

TEST_F(SectionRecordsTest, ASectionOfDimensionsWaitsForTheWarpingComputation) {
  const T_SECT_DESIGN_D record = section(1);
  EXPECT_EQ(record.bWarpingComputed, 0);
  EXPECT_EQ(record.dIw, 0.0);
}

TEST_F(SectionRecordsTest, GivenWarpingValuesAreNotComputedOver) {
  const T_SECT_DESIGN_D record = section(2);
  EXPECT_EQ(record.bWarpingComputed, 1);
  EXPECT_EQ(record.dIw, 123.0);
  EXPECT_EQ(record.dShearCtrZ - record.dCentroidZ, 4.0);
}

TEST_F(SectionRecordsTest, EitherGivenWarpingValueIsKept) {
  const char* const both = R"("iw": 123, "shear_centre_z": 4)";
  for (const char* one : {R"("iw": 123)", R"("shear_centre_z": 4)"}) {
    const model::Model model = sample_with(both, one);
    const Attributes attributes(model, scale_);
    T_SECT_DESIGN_D record;
    ASSERT_EQ(attributes.GetSectDesign(2, record), 1);
    EXPECT_EQ(record.bWarpingComputed, 1) << one;
  }
}

TEST_F(SectionRecordsTest, ASectionOfPropertiesAloneIsNotComputedOver) {
  const T_SECT_DESIGN_D record = section(3);
  EXPECT_TRUE(record.strShape == L"UP");
  EXPECT_EQ(record.bWarpingComputed, 1);
  EXPECT_EQ(record.dArea, 100.0);
  EXPECT_EQ(record.dIyy, 1e4);
  EXPECT_EQ(record.aPtY, (std::array<double, 4>{-1, 1, 1, -1}));
}

TEST_F(SectionRecordsTest, NothingOfTheRecordBeforeIsLeft) {
  T_SECT_DESIGN_D record = section(2);
  record.strName2 = L"left over";
  ASSERT_EQ(attributes_.GetSectDesign(1, record), 1);
  EXPECT_EQ(record.dIw, 0.0);
  EXPECT_EQ(record.bWarpingComputed, 0);
  EXPECT_TRUE(record.strName2.IsEmpty());
}

// GB 50429-2007: 6063A-T5 has f0.2 = 160 up to 10 mm and 150 above, fu = 200.
TEST_F(SectionRecordsTest, AnAlloyComesWithItsStandardAndStrengths) {
  const T_MATD_D record = material();
  EXPECT_TRUE(record.strStandard == L"GB50429-07(A)");
  EXPECT_TRUE(record.strGrade == L"6063A-T5");
  EXPECT_EQ(record.dElast, 70000.0);
  EXPECT_EQ(record.dPoisson, 0.3);
  EXPECT_EQ(record.dF02Thin, 160.0);
  EXPECT_EQ(record.dF02Thick, 150.0);
  EXPECT_EQ(record.dFu, 200.0);
}

TEST_F(SectionRecordsTest, UnknownSectionsAndMaterialsReturn0) {
  T_SECT_DESIGN_D record;
  record.dArea = 5.0;
  EXPECT_EQ(attributes_.GetSectDesign(99, record), 0);
  EXPECT_EQ(record.dArea, 5.0);
  T_MATD_D alloy;
  EXPECT_EQ(attributes_.GetMatlDesign(99, alloy), 0);
}

TEST_F(SectionRecordsTest, SectionsAreHandedOutInTheCurrentUnits) {
  scale_ = UnitScale({1, 0});  // kN, m
  const T_SECT_DESIGN_D record = section(1);
  EXPECT_DOUBLE_EQ(record.aSize[0], 0.31);
  EXPECT_NEAR(record.dArea, area * 1e-6, 1e-12 * record.dArea);
  EXPECT_NEAR(record.dIxx, torsion_constant * 1e-12, 1e-12 * record.dIxx);
  EXPECT_NEAR(record.dIyy, iyy * 1e-12, 1e-12 * record.dIyy);
  EXPECT_NEAR(record.dIzz, izz * 1e-12, 1e-12 * record.dIzz);
  EXPECT_NEAR(record.dQyb, qyb * 1e-6, 1e-12 * record.dQyb);
  EXPECT_NEAR(record.dQzb, qzb * 1e-6, 1e-12 * record.dQzb);
  EXPECT_DOUBLE_EQ(record.aPtY[1], 0.1);
  EXPECT_DOUBLE_EQ(record.aPtZ[2], -0.155);
}

TEST_F(SectionRecordsTest, GivenWarpingValuesAreHandedOutInTheCurrentUnits) {
  scale_ = UnitScale({1, 0});
  const T_SECT_DESIGN_D record = section(2);
  EXPECT_NEAR(record.dIw, 123e-18, 1e-30);
  EXPECT_DOUBLE_EQ(record.dShearCtrZ, 0.004);
}

// 1 N/mm² = 1000 kN/m².
TEST_F(SectionRecordsTest, StrengthsAreHandedOutInTheCurrentUnits) {
  scale_ = UnitScale({1, 0});
  const T_MATD_D record = material();
  EXPECT_DOUBLE_EQ(record.dElast, 70e6);
  EXPECT_EQ(record.dPoisson, 0.3);
  EXPECT_DOUBLE_EQ(record.dF02Thin, 160e3);
  EXPECT_DOUBLE_EQ(record.dF02Thick, 150e3);
  EXPECT_DOUBLE_EQ(record.dFu, 200e3);
}

}  // namespace
}  // namespace aluframe::services

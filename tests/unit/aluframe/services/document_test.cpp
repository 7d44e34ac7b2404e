#include "aluframe/services/document.h"

#include <gtest/gtest.h>

#include "tests/unit/aluframe/services/sample_model.h"

namespace aluframe::services {
namespace {

T_SECT_DESIGN_D h_section(double unit) {
  T_SECT_DESIGN_D section;
  section.strShape = L"H";
  section.aSize = {310 * unit, 200 * unit, 8 * unit, 10 * unit, 100 * unit, 10 * unit, 0, 0};
  return section;
}

// Thin-wall theory: If1 = 10·200³/12, If2 = 10·100³/12, h = 300 between the flanges' middle lines;
// Iw = If1·If2/(If1 + If2)·h² = 6.666667e10 mm⁶.
constexpr double warping_constant = 6.6666666666666667e10;

TEST(SectionDatabaseTest, TheWarpingConstantOfAnUnequalHFollowsThinWallTheory) {
  const UnitScale scale;
  SectionDatabase database(scale);
  T_WARPING_D warping;
  ASSERT_EQ(database.CalcWarpingFuncion(h_section(1.0), warping, 1, 0, 0, 0.0), 1);
  EXPECT_NEAR(warping.dIw, warping_constant, 1e-9 * warping_constant);
  // The larger flange, on top, draws the shear centre upwards.
  EXPECT_GT(warping.dShearCtrZ, warping.dCentroidZ);
}

TEST(SectionDatabaseTest, WarpingIsComputedInTheCurrentUnits) {
  const UnitScale metres({1, 0});
  SectionDatabase database(metres);
  T_WARPING_D warping;
  ASSERT_EQ(database.CalcWarpingFuncion(h_section(1e-3), warping, 1, 0, 0, 0.0), 1);
  EXPECT_NEAR(warping.dIw, warping_constant * 1e-18, 1e-9 * warping_constant * 1e-18);
}

TEST(SectionDatabaseTest, AnUnknownShapeHasNoWarpingProperties) {
  const UnitScale scale;
  SectionDatabase database(scale);
  T_SECT_DESIGN_D section = h_section(1.0);
  section.strShape = L"Q";
  T_WARPING_D warping;
  EXPECT_EQ(database.CalcWarpingFuncion(section, warping, 1, 0, 0, 0.0), 0);
}

TEST(LengthFactorsTest, AMembersGivenFactorsStandUnderItsDisplayKey) {
  const model::Model model = sample_model();
  const UnitScale scale;
  const Attributes attributes(model, scale);
  GivenLengthFactors factors(attributes);
  DesignData data;
  CArray<UINT> elems;
  for (const UINT elem : {1U, 3U}) elems.Add(elem);
  EXPECT_EQ(factors.Calc_KFactor(elems, 0, 0, 0, data), 1);
  T_KFAC_D found;
  ASSERT_EQ(data.GetKFactor(2, found), 1);
  EXPECT_EQ(found.dKy, 0.8);
  EXPECT_EQ(found.dKz, 0.9);
  EXPECT_EQ(data.GetKFactor(1, found), 0);
}

}  // namespace
}  // namespace aluframe::services

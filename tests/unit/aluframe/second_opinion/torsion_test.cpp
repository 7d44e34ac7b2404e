#include "aluframe/second_opinion/torsion.h"

#include <cmath>
#include <numbers>

#include "tests/unit/aluframe/second_opinion/elements.h"

namespace aluframe::second_opinion {
namespace {

TEST(ShearOfUnitTorque, ABoxFollowsBredt) {
  // 57 · 147 within the middle lines, 3 thick.
  EXPECT_NEAR(shear_of_unit_torque(mullion().code.sect), 1.0 / (2.0 * 57.0 * 147.0 * 3.0), 1e-15);
}

TEST(ShearOfUnitTorque, TheThinnestPlateOfABoxCarriesTheMost) {
  // Webs 4, flanges 8 and 2: 56 · (100 − 5) within the middle lines.
  const ALU_SECT_DATA box = section_of(model::Shape::box, {100, 60, 4, 8, 56, 2});
  EXPECT_NEAR(shear_of_unit_torque(box), 1.0 / (2.0 * 56.0 * 95.0 * 2.0), 1e-15);
}

TEST(ShearOfUnitTorque, APipeAndABarAreSheredAtTheirSurface) {
  const double polar = std::numbers::pi / 32.0;
  EXPECT_NEAR(shear_of_unit_torque(pipe().code.sect), 50.0 / (polar * (1e8 - 0.4096e8)), 1e-12);
  const ALU_SECT_DATA bar = section_of(model::Shape::solid_round, {30});
  EXPECT_NEAR(shear_of_unit_torque(bar), 15.0 / (polar * 810000.0), 1e-12);
}

TEST(ShearOfUnitTorque, AnOpenSectionIsSheredInItsThickestPlate) {
  ALU_SECT_DATA section = h200().code.sect;
  section.dIxx = 1e5;
  EXPECT_DOUBLE_EQ(shear_of_unit_torque(section), 10.0 / 1e5);
}

TEST(ShearOfUnitTorque, NothingIsKnownWithoutATorsionConstant) {
  ALU_SECT_DATA section = h200().code.sect;
  section.dIxx = 0.0;
  EXPECT_EQ(shear_of_unit_torque(section), 0.0);
}

std::optional<double> torsion_ratio(const ALU_DGN_DATA& data, const Forces& forces) {
  Engine engine;
  const AluDgnSectForce force = force_of(forces);
  return ElementOpinion(engine, data).torsion_ratio(force, checked(data, force));
}

/// Of the pipe: My/W = 8e6/57,962 = 138.02; Mx·r/It = 4e6·50/5,796,238 = 34.505.
TEST(TorsionRatio, PutsShearBesideTheNormalStress) {
  const double expected = std::sqrt(138.02 * 138.02 + 3.0 * 34.505 * 34.505) / 200.0;
  expect_ratio(torsion_ratio(pipe(), {.mx = 4e6, .my = 8e6}), expected, 1e-4);
  expect_ratio(torsion_ratio(pipe(), {.mx = -4e6, .my = 8e6}), expected, 1e-4);
}

TEST(TorsionRatio, AddsTheLargerShearToThatOfTorsion) {
  ALU_DGN_DATA data = pipe();
  data.code.sect.dQyb = data.code.sect.dQzb = 2898.119;  // 1 N/mm² a kN
  const double tau = 34.505 + 30.0;
  expect_ratio(torsion_ratio(data, {.fy = 20e3, .fz = -30e3, .mx = 4e6, .my = 8e6}),
               std::sqrt(138.02 * 138.02 + 3.0 * tau * tau) / 200.0, 1e-4);
}

TEST(TorsionRatio, TakesTheImportanceFactorOnEverything) {
  ALU_DGN_DATA data = pipe();
  data.code.para.dGamma0 = 1.1;
  expect_ratio(torsion_ratio(data, {.mx = 4e6, .my = 8e6}),
               1.1 * std::sqrt(138.02 * 138.02 + 3.0 * 34.505 * 34.505) / 200.0, 1e-4);
}

TEST(TorsionRatio, IsSilentWhereTorsionAddsLessThanAPerCent) {
  // √(1 + 3·(τ/σ)²) = 1.01 at τ = 0.08186·138.02 = 11.30, Mx = 1.3097e6.
  EXPECT_FALSE(torsion_ratio(pipe(), {.mx = 1.30e6, .my = 8e6}).has_value());
  EXPECT_TRUE(torsion_ratio(pipe(), {.mx = 1.32e6, .my = 8e6}).has_value());
}

TEST(TorsionRatio, TorsionAloneHasOne) {
  expect_ratio(torsion_ratio(pipe(), {.mx = 4e6}), std::sqrt(3.0) * 34.505 / 200.0, 1e-4);
}

TEST(TorsionRatio, NoTorsionHasNone) {
  EXPECT_FALSE(torsion_ratio(pipe(), {.fz = 1e4, .my = 8e6}).has_value());
}

}  // namespace
}  // namespace aluframe::second_opinion

// Every quantity by hand: what it is in N and mm for one unit of the file.
#include <gtest/gtest.h>

#include "tests/unit/aluframe/io/io_texts.h"

namespace aluframe::io {
namespace {

/// A few roundings of conversion factors.
constexpr double relative = 1e-14;

#define EXPECT_CLOSE(actual, expected) \
  EXPECT_NEAR(actual, expected, relative* std::abs(static_cast<double>(expected)))

/// The model in the given units, its second node at (1, 2, 3).
model::Model model_in(const std::string& force, const std::string& length) {
  std::string text = replaced(small_model, R"("force": "N")", R"("force": ")" + force + '"');
  text = replaced(text, R"("length": "mm")", R"("length": ")" + length + '"');
  return model_of(replaced(text, R"("x": 0, "y": 0, "z": 3000)", R"("x": 1, "y": 2, "z": 3)"));
}

struct LengthFactor {
  const char* unit;
  double millimetres;
};

class LengthUnits : public testing::TestWithParam<LengthFactor> {};

TEST_P(LengthUnits, CoordinatesAreInMillimetres) {
  const auto [unit, millimetres] = GetParam();
  const model::Model model = model_in("N", unit);
  const model::Node* node = model.nodes.find(2);
  ASSERT_NE(node, nullptr);
  EXPECT_CLOSE(node->x, 1 * millimetres);
  EXPECT_CLOSE(node->y, 2 * millimetres);
  EXPECT_CLOSE(node->z, 3 * millimetres);
}

TEST_P(LengthUnits, MomentsAreInNewtonMillimetresAndForcesInNewtons) {
  const auto [unit, millimetres] = GetParam();
  const model::Model model = model_in("kN", unit);
  const model::CaseForces* forces = model.forces.find(0, 0);
  ASSERT_NE(forces, nullptr);
  // Row 10, 20, 30, 40, 50, 60 of the start; single precision holds 7 digits.
  const model::SectionForces& start = forces->at[0];
  EXPECT_FLOAT_EQ(start[0], 10e3F);
  EXPECT_FLOAT_EQ(start[1], 20e3F);
  EXPECT_FLOAT_EQ(start[2], 30e3F);
  EXPECT_FLOAT_EQ(start[3], static_cast<float>(40e3 * millimetres));
  EXPECT_FLOAT_EQ(start[4], static_cast<float>(50e3 * millimetres));
  EXPECT_FLOAT_EQ(start[5], static_cast<float>(60e3 * millimetres));
}

INSTANTIATE_TEST_SUITE_P(All, LengthUnits,
                         testing::Values(LengthFactor{"m", 1000.0}, LengthFactor{"cm", 10.0},
                                         LengthFactor{"mm", 1.0}, LengthFactor{"ft", 304.8},
                                         LengthFactor{"in", 25.4}),
                         [](const auto& test) { return std::string(test.param.unit); });

struct ForceFactor {
  const char* unit;
  double newtons;  ///< of 10 units
};

class ForceUnits : public testing::TestWithParam<ForceFactor> {};

TEST_P(ForceUnits, AxialForceIsInNewtons) {
  const model::Model model = model_in(GetParam().unit, "mm");
  const model::CaseForces* forces = model.forces.find(0, 0);
  ASSERT_NE(forces, nullptr);
  EXPECT_FLOAT_EQ(forces->at[0][0], static_cast<float>(GetParam().newtons));
}

// 1 kgf = 9.80665 N; 1 lbf = 0.45359237 kg × 9.80665 m/s² = 4.4482216152605 N.
INSTANTIATE_TEST_SUITE_P(All, ForceUnits,
                         testing::Values(ForceFactor{"N", 10.0}, ForceFactor{"kN", 10000.0},
                                         ForceFactor{"kgf", 98.0665}, ForceFactor{"tonf", 98066.5},
                                         ForceFactor{"lbf", 44.482216152605},
                                         ForceFactor{"kip", 44482.216152605}),
                         [](const auto& test) { return std::string(test.param.unit); });

TEST(SectionUnit, DimensionsAreInMillimetres) {
  std::string text = replaced(small_model, R"("section": "mm"})", R"("section": "cm"})");
  text = replaced(text, R"("H": 150, "B": 60, "tw": 3, "tf1": 3)",
                  R"("H": 15, "B": 6, "tw": 0.3, "tf1": 0.4)");
  const model::Section section = model_of(text).sections[0];
  EXPECT_CLOSE(section.dimensions[0], 150.0);
  EXPECT_CLOSE(section.dimensions[1], 60.0);
  EXPECT_CLOSE(section.dimensions[2], 3.0);
  EXPECT_CLOSE(section.dimensions[3], 4.0);
  EXPECT_CLOSE(section.dimensions[4], 57.0);  // C = B − tw
}

TEST(SectionUnit, PropertiesScaleWithTheirPowerOfLength) {
  std::string text = replaced(small_model, R"("section": "mm"})", R"("section": "cm"})");
  text = replaced(text, R"("shape": "B", "dimensions": {"H": 150, "B": 60, "tw": 3, "tf1": 3})",
                  R"("shape": "UP", "properties": {"area": 2, "it": 3, "iyy": 4, "izz": 5,
                     "qyb": 6, "qzb": 7, "iw": 8, "shear_centre_z": -9,
                     "point_y": [-1, 1, 2, -2], "point_z": [3, 3, -4, -4]})");
  const model::GivenProperties given = model_of(text).sections[0].given;
  EXPECT_CLOSE(given.area.value(), 2e2);  // 1 cm² = 10² mm²
  EXPECT_CLOSE(given.it.value(), 3e4);    // 1 cm⁴ = 10⁴ mm⁴
  EXPECT_CLOSE(given.iyy.value(), 4e4);
  EXPECT_CLOSE(given.izz.value(), 5e4);
  EXPECT_CLOSE(given.qyb.value(), 6e2);
  EXPECT_CLOSE(given.qzb.value(), 7e2);
  EXPECT_CLOSE(given.iw.value(), 8e6);  // 1 cm⁶ = 10⁶ mm⁶
  EXPECT_CLOSE(given.shear_centre_z.value(), -90.0);
  EXPECT_EQ(given.point_y.value(), (std::array{-10.0, 10.0, 20.0, -20.0}));
  EXPECT_EQ(given.point_z.value(), (std::array{30.0, 30.0, -40.0, -40.0}));
}

TEST(SectionUnit, HeatAffectedWidthIsInMillimetres) {
  std::string text = replaced(small_model, R"("section": "mm"})", R"("section": "in"})");
  text = replaced(text, R"("nodes": [1, 2])", R"("nodes": [1, 2], "design": {"haz_width": 2})");
  EXPECT_CLOSE(model_of(text).elements[0].design.haz_width.value(), 50.8);  // 2 × 25.4
}

TEST(StressesAndAngles, StayAsTheyAreInAnyUnit) {
  std::string text = replaced(small_model, R"("force": "N")", R"("force": "kip")");
  text = replaced(text, R"("length": "mm", "section": "mm")", R"("length": "ft", "section": "in")");
  text = replaced(text, R"("alloy": "6063-T5")",
                  R"("grade": "own", "f02_thin": 115, "fu": 165, "e": 69000, "density": 2.8e-6)");
  text = replaced(text, R"("nodes": [1, 2])", R"("nodes": [1, 2], "beta": 30)");
  const model::Model model = model_of(text);
  EXPECT_EQ(model.materials[0].f02_thin, 115.0);
  EXPECT_EQ(model.materials[0].fu, 165.0);
  EXPECT_EQ(model.materials[0].e, 69000.0);
  EXPECT_EQ(model.materials[0].density, 2.8e-6);
  EXPECT_EQ(model.elements[0].beta, 30.0);
}

TEST(UnitsOfAFile, AreKilonewtonMetreAndMillimetreByDefault) {
  const std::string text =
      replaced(small_model, R"("units": {"force": "N", "length": "mm", "section": "mm"},)", "");
  const model::Model model = model_of(text);
  EXPECT_EQ(model.units, model::Units{});
  EXPECT_EQ(model.nodes.find(2)->z, 3e6);               // 3000 m
  EXPECT_EQ(model.sections[0].dimensions[0], 150.0);    // mm
  EXPECT_EQ(model.forces.find(0, 0)->at[0][0], 10e3F);  // 10 kN
}

}  // namespace
}  // namespace aluframe::io

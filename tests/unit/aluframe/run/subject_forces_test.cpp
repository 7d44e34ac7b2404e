// Forces of a load case or a combination, by the closed forms of single beams.

#include "aluframe/run/subject_forces.h"

#include <gmock/gmock.h>

#include <array>
#include <cmath>
#include <fstream>
#include <numbers>
#include <optional>

#include "aluframe/model/combinations.h"
#include "tests/unit/aluframe/services/temporary_folder.h"

namespace aluframe::run {
namespace {

using testing::AllOf;
using testing::HasSubstr;

enum Component { n, fy, fz, mx, my, mz };

/// Forces are single precision in the model.
constexpr double tolerance = 1e-6;

/// A cantilever of 2 m along X, element 1, clamped at its start, with forces on its free end: case
/// 1 pulls and bends it about both axes, case 2 lifts it. Element 2 is a simple beam of 4 m under
/// 3 kN/m downwards in case 1. Element 3 is a cantilever column of 3 m, rigid in shear, with a
/// quarter of its buckling load on it in case 3 and 1 kN across, along X. Case 4 has no loads.
constexpr const char* beams = R"({
  "format": "aluframe-model", "version": 1, "units": {"force": "kN", "length": "m"},
  "materials": [{"number": 1, "alloy": "6061-T6"}],
  "sections": [{"number": 1, "shape": "P", "dimensions": {"D": 100, "t": 10}},
               {"number": 2, "shape": "UP", "dimensions": {},
                "properties": {"area": 1000, "it": 1e6, "iyy": 4e6, "izz": 4e6,
                               "point_y": [-50, 50, 50, -50], "point_z": [50, 50, -50, -50]}}],
  "nodes": [{"number": 1, "x": 0, "y": 0, "z": 0}, {"number": 2, "x": 2, "y": 0, "z": 0},
            {"number": 3, "x": 0, "y": 2, "z": 0}, {"number": 4, "x": 4, "y": 2, "z": 0},
            {"number": 5, "x": 9, "y": 0, "z": 0}, {"number": 6, "x": 9, "y": 0, "z": 3}],
  "supports": [{"node": 1, "restrained": "all"}, {"node": 5, "restrained": "all"},
               {"node": 3, "restrained": ["Dx", "Dy", "Dz", "Rx"]},
               {"node": 4, "restrained": ["Dy", "Dz"]}],
  "elements": [{"number": 1, "nodes": [1, 2], "section": 1, "material": 1},
               {"number": 2, "nodes": [3, 4], "section": 1, "material": 1},
               {"number": 3, "nodes": [5, 6], "section": 2, "material": 1}],
  "load_cases": [
    {"number": 1, "nodal": [{"nodes": [2], "Fx": 10, "Fy": 1, "Fz": -3, "Mx": 0.5}],
                  "span": [{"elements": [2], "direction": "Z", "value": -3}]},
    {"number": 2, "nodal": [{"nodes": [2], "Fz": 2}]},
    {"number": 3, "nodal": [{"nodes": [6], "Fx": 1, "Fz": -19.190897446562637}]},
    {"number": 4}],
  "combinations": [
    {"number": 1, "terms": [{"case": 1, "factor": 2}, {"case": 2, "factor": -1}]},
    {"number": 2, "kind": "envelope", "terms": [{"case": 1}, {"case": 2}]},
    {"number": 3, "terms": [{"case": 3}]}]
})";

class SubjectForces : public testing::Test {
 protected:
  SubjectForces() { read(beams); }

  void read(const std::string& text) {
    std::ofstream(file_) << text;
    auto found = read_input({.model = file_});
    if (const auto* problem = std::get_if<Problem>(&found)) FAIL() << problem->text;
    input_ = std::get<Input>(std::move(found));
  }
  model::Model with_forces(const Subject& subject) const {
    auto found = with_forces_of(input_, subject);
    if (const auto* problem = std::get_if<Problem>(&found)) {
      ADD_FAILURE() << problem->text;
      return input_.model;
    }
    return std::get<model::Model>(std::move(found));
  }
  /// Of a load case.
  model::CaseForces forces(model::Number element, model::Number load_case) const {
    const model::Model model = with_forces({.is_combination = false, .number = load_case});
    const auto* found =
        model.forces.find(model.elements.position(element), model.load_cases.position(load_case));
    if (found != nullptr) return *found;
    ADD_FAILURE() << "no forces of element " << element << " in load case " << load_case;
    return {};
  }
  model::CaseForces in_combination(model::Number element, model::Number combination,
                                   model::Side side = model::Side::maximum) const {
    const model::Model model = with_forces({.is_combination = true, .number = combination});
    const auto found = model::CombinationEvaluator(model).evaluate(model.elements.position(element),
                                                                   combination, side);
    if (found) return *found;
    ADD_FAILURE() << "no forces of element " << element << " in combination " << combination;
    return {};
  }

  services::TemporaryFolder folder_;
  std::filesystem::path file_ = folder_.path() / "beams.json";
  Input input_;
};

TEST_F(SubjectForces, OfACantileverWithALoadOnItsEndGrowToItsSupport) {
  const model::CaseForces found = forces(1, 1);
  EXPECT_TRUE(found.inner);
  for (std::size_t i = 0; i < found.at.size(); ++i) {
    // To the free end, mm. A load along +y compresses the side of +y, one downwards the bottom.
    const double arm = 2000.0 * (1 - 0.25 * static_cast<double>(i));
    const std::array expected{10e3, -1e3, 3e3, 0.5e6, -3e3 * arm, 1e3 * arm};
    for (std::size_t k = 0; k < expected.size(); ++k) {
      EXPECT_NEAR(found.at[i][k], expected[k], tolerance * 6e6) << "position " << i << ", " << k;
    }
  }
}

TEST_F(SubjectForces, OfASimpleBeamUnderAUniformLoadAreItsParabola) {
  const model::CaseForces found = forces(2, 1);
  EXPECT_TRUE(found.inner);
  constexpr double q = 3.0, l = 4000.0;  // N/mm, mm
  for (std::size_t i = 0; i < found.at.size(); ++i) {
    const double x = 0.25 * static_cast<double>(i) * l;
    EXPECT_NEAR(found.at[i][fz], q * (l / 2 - x), tolerance * q * l) << i;
    EXPECT_NEAR(found.at[i][my], q * x * (l - x) / 2, tolerance * q * l * l) << i;
    for (const Component none : {n, fy, mx, mz}) EXPECT_NEAR(found.at[i][none], 0, 1e-3) << i;
  }
}

TEST_F(SubjectForces, OfACombinationAreTheSumOfItsCases) {
  const model::CaseForces found = in_combination(1, 1);
  // 2·(-3) - 2 = -8 kN along Z on the end, 2 m from the support; 2·10 kN pull.
  EXPECT_NEAR(found.at[0][my], -16e6, tolerance * 16e6);
  EXPECT_NEAR(found.at[2][my], -8e6, tolerance * 16e6);
  EXPECT_NEAR(found.at[0][fz], 8e3, tolerance * 8e3);
  EXPECT_NEAR(found.at[0][n], 20e3, tolerance * 20e3);
}

TEST_F(SubjectForces, OfAnEnvelopeAreTheExtremesOfItsCases) {
  const model::CaseForces most = in_combination(1, 2, model::Side::maximum);
  const model::CaseForces least = in_combination(1, 2, model::Side::minimum);
  // 3 kN downwards or 2 kN upwards on the end, 2 m from the support; a pull of 10 kN or none.
  EXPECT_NEAR(most.at[0][my], 4e6, tolerance * 6e6);
  EXPECT_NEAR(least.at[0][my], -6e6, tolerance * 6e6);
  EXPECT_NEAR(most.at[0][fz], 3e3, tolerance * 3e3);
  EXPECT_NEAR(least.at[0][fz], -2e3, tolerance * 3e3);
  EXPECT_NEAR(most.at[0][n], 10e3, tolerance * 10e3);
  EXPECT_NEAR(least.at[0][n], 0.0, tolerance * 10e3);
}

/// Of the column: 1 kN across at 3 m.
constexpr double first_order_moment = 3e6;
/// With a quarter of π²·EI/(4·L²) on it, k·L = π/4: M = H·tan(k·L)/k at the foot (Timoshenko and
/// Gere, Theory of Elastic Stability, article 1.3, the half of a beam with a load in its middle).
constexpr double second_order_moment = 1e3 * 3000 * 4 / std::numbers::pi;
/// And half way up H·sin(k·L/2)/(k·cos(k·L)).
const double second_order_half_way =
    second_order_moment * std::sin(std::numbers::pi / 8) * std::numbers::sqrt2;

std::string of_second_order(const char* value) {
  return std::string(R"({"analysis": {"second_order": )") + value + "}," + (beams + 1);
}

TEST_F(SubjectForces, OfACombinationAreOfFirstOrderUnlessTheModelSaysOtherwise) {
  EXPECT_NEAR(std::abs(in_combination(3, 3).at[0][my]), first_order_moment,
              tolerance * first_order_moment);
}

TEST_F(SubjectForces, OfACombinationFollowTheOrderOfTheModel) {
  read(of_second_order("true"));
  const model::CaseForces found = in_combination(3, 3);
  EXPECT_NEAR(std::abs(found.at[0][my]), second_order_moment, tolerance * second_order_moment);
  EXPECT_NEAR(std::abs(found.at[2][my]), second_order_half_way, tolerance * second_order_moment);
  EXPECT_NEAR(found.at[4][my], 0.0, tolerance * second_order_moment);
}

TEST_F(SubjectForces, OfALoadCaseAreOfFirstOrderWhateverTheModelSays) {
  for (const char* order : {"true", "\"large\""}) {
    read(of_second_order(order));
    const model::CaseForces found = forces(3, 3);
    EXPECT_NEAR(std::abs(found.at[0][my]), first_order_moment, tolerance * first_order_moment)
        << order;
    EXPECT_NEAR(std::abs(found.at[2][my]), first_order_moment / 2, tolerance * first_order_moment)
        << order;
  }
}

TEST_F(SubjectForces, LeaveTheInputAsItWas) {
  read(of_second_order("true"));
  with_forces({.is_combination = false, .number = 3});
  EXPECT_TRUE(input_.model.analysis.second_order);
  EXPECT_EQ(input_.model.forces.find(0, 0), nullptr);
}

TEST_F(SubjectForces, StandBesideGivenOnes) {
  std::string text = beams;
  text.replace(text.rfind('}'), 1, R"(, "forces": [{"element": 1, "case": 4,
      "values": [[7, 0, 0, 0, 0, 0], [7, 0, 0, 0, 0, 0]]}]})");
  read(text);
  EXPECT_NEAR(forces(1, 4).at[0][n], 7e3, tolerance * 7e3) << "given";
  EXPECT_NEAR(forces(1, 1).at[0][n], 10e3, tolerance * 10e3) << "of the loads";
}

TEST_F(SubjectForces, AreNoneOfALoadCaseWithoutLoads) {
  const model::Model model = with_forces({.is_combination = false, .number = 4});
  EXPECT_EQ(model.forces.find(0, model.load_cases.position(4)), nullptr);
}

TEST_F(SubjectForces, OfAMechanismNameTheFileAndThePlace) {
  std::string text = beams;
  const std::string held = R"({"node": 5, "restrained": "all"})";
  text.replace(text.find(held), held.size(), R"({"node": 5, "restrained": ["Dz"]})");
  read(text);
  const auto found = with_forces_of(input_, {.is_combination = false, .number = 1});
  const auto* problem = std::get_if<Problem>(&found);
  ASSERT_NE(problem, nullptr);
  EXPECT_THAT(problem->text, AllOf(HasSubstr(file_.string()), HasSubstr("/nodes/")));
}

}  // namespace
}  // namespace aluframe::run

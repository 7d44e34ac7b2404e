// Forces along some elements of a frame, by the closed forms of simple beams.

#include "aluframe/run/force_lines.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <fstream>

#include "tests/unit/aluframe/services/temporary_folder.h"

namespace aluframe::run {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

/// Two simple beams of 4 m along X, the second one named against the order of the model. Case 1 is
/// 3 kN/m downwards on both, case 2 is 6 kN downwards in the middle of the first one.
constexpr const char* beams = R"({
  "format": "aluframe-model", "version": 1, "units": {"force": "kN", "length": "m"},
  "materials": [{"number": 1, "alloy": "6061-T6"}],
  "sections": [{"number": 1, "shape": "P", "dimensions": {"D": 100, "t": 10}}],
  "nodes": [{"number": 1, "x": 0, "y": 0, "z": 0}, {"number": 2, "x": 4, "y": 0, "z": 0},
            {"number": 3, "x": 0, "y": 2, "z": 0}, {"number": 4, "x": 4, "y": 2, "z": 0}],
  "supports": [{"node": 1, "restrained": ["Dx", "Dy", "Dz", "Rx"]},
               {"node": 2, "restrained": ["Dy", "Dz"]},
               {"node": 3, "restrained": ["Dx", "Dy", "Dz", "Rx"]},
               {"node": 4, "restrained": ["Dy", "Dz"]}],
  "elements": [{"number": 7, "nodes": [1, 2], "section": 1, "material": 1},
               {"number": 5, "nodes": [3, 4], "section": 1, "material": 1}],
  "load_cases": [
    {"number": 1, "span": [{"elements": [5, 7], "direction": "Z", "value": -3}]},
    {"number": 2, "points": [{"elements": [7], "direction": "Z", "at": 0.5, "force": -6}]}],
  "combinations": [
    {"number": 1, "terms": [{"case": 1, "factor": 2}]},
    {"number": 2, "terms": [{"case": 1}, {"case": 2}]},
    {"number": 3, "kind": "envelope", "terms": [{"case": 1}, {"case": 2}]}]
})";

class ForceLinesAlong : public testing::Test {
 protected:
  ForceLinesAlong() {
    std::ofstream(folder_.path() / "frame.json") << beams;
    auto prepared = prepare({.model = folder_.path() / "frame.json"});
    if (const auto* problem = std::get_if<Problem>(&prepared)) ADD_FAILURE() << problem->text;
    input_ = std::get<Input>(std::move(prepared));
  }

  picture::ForceLine line(model::Number combination, model::Number element,
                          picture::ForceComponent component) const {
    return force_lines_along(input_, combination, {element})
        .at(static_cast<std::size_t>(component))
        .at(0);
  }

  services::TemporaryFolder folder_;
  Input input_;
};

/// The force at a place: of two at a jump, towards the start.
double at(const std::vector<picture::Ordinate>& values, double fraction) {
  for (const picture::Ordinate& value : values) {
    if (std::abs(value.fraction - fraction) < 1e-9) return value.value;
  }
  ADD_FAILURE() << "nothing is known at " << fraction;
  return 0.0;
}

/// Forces are single precision in the model.
constexpr double tolerance = 1e-6;

TEST_F(ForceLinesAlong, FollowTheClosedFormOfASimpleBeam) {
  // q = 2·3 kN/m, L = 4 m: V = q·(L/2 − x), M = q·x·(L − x)/2, compression on top positive.
  constexpr double q = 6.0, l = 4000.0;
  const auto shear = line(1, 7, picture::ForceComponent::vz).values;
  const auto moment = line(1, 7, picture::ForceComponent::my).values;
  EXPECT_GT(moment.size(), 5U) << "a curve, not the five positions alone";
  for (const picture::Ordinate& value : shear) {
    const double x = value.fraction * l;
    EXPECT_NEAR(value.value, q * (l / 2 - x), tolerance * q * l) << x;
  }
  for (const picture::Ordinate& value : moment) {
    const double x = value.fraction * l;
    EXPECT_NEAR(value.value, q * x * (l - x) / 2, tolerance * q * l * l) << x;
  }
}

TEST_F(ForceLinesAlong, AddTheCasesOfACombination) {
  // In the middle 3 kN/m gives 3·4²/8 kN·m, 6 kN there gives 6·4/4 kN·m.
  const auto moment = line(2, 7, picture::ForceComponent::my).values;
  EXPECT_NEAR(at(moment, 0.5), 12e6, 12.0);
  // In front of the load the shear is 3·4/2 + 6/2 kN at the start, and 3 kN less 3 kN/m·2 m less.
  const auto shear = line(2, 7, picture::ForceComponent::vz).values;
  EXPECT_NEAR(at(shear, 0.0), 9e3, 0.01);
  EXPECT_NEAR(at(shear, 0.5), 3e3, 0.01);
  EXPECT_NEAR(at(shear, 1.0), -9e3, 0.01);
}

TEST_F(ForceLinesAlong, StandInTheOrderOfTheElementsAskedFor) {
  const auto lines = force_lines_along(input_, 1, {5, 7});
  for (const auto& of_component : lines) {
    ASSERT_THAT(of_component, SizeIs(2));
    EXPECT_EQ(of_component[0].element, 5U);
    EXPECT_EQ(of_component[1].element, 7U);
  }
}

TEST_F(ForceLinesAlong, AreRisingAndHaveNoOtherSideWithoutAnEnvelope) {
  for (const auto& of_component : force_lines_along(input_, 2, {7})) {
    EXPECT_TRUE(
        std::ranges::is_sorted(of_component.at(0).values, {}, &picture::Ordinate::fraction));
    EXPECT_THAT(of_component.at(0).minimum, IsEmpty());
  }
}

TEST_F(ForceLinesAlong, OfAnEnvelopeHaveTwoSides) {
  // Of element 7 the cases give 6 and 6 kN·m in the middle; of element 5 case 2 gives nothing.
  const picture::ForceLine moment = line(3, 5, picture::ForceComponent::my);
  EXPECT_NEAR(at(moment.values, 0.5), 6e6, 6.0);
  EXPECT_NEAR(at(moment.minimum, 0.5), 0.0, 6.0);
}

TEST_F(ForceLinesAlong, LeaveOutElementsWithoutForces) {
  input_.model.forces = {};
  for (const auto& of_component : force_lines_along(input_, 1, {7, 5})) {
    EXPECT_THAT(of_component, IsEmpty());
  }
}

/// A beam of 4 m along X, rigid in shear, clamped at its start and supported at its end, under
/// 3 kN/m downwards.
constexpr const char* propped = R"({
  "format": "aluframe-model", "version": 1, "units": {"force": "kN", "length": "m"},
  "analysis": {"second_order": true},
  "materials": [{"number": 1, "alloy": "6061-T6"}],
  "sections": [{"number": 1, "shape": "UP", "dimensions": {},
                "properties": {"area": 1000, "it": 1e6, "iyy": 4e6, "izz": 4e6,
                               "point_y": [-50, 50, 50, -50], "point_z": [50, 50, -50, -50]}}],
  "nodes": [{"number": 1, "x": 0, "y": 0, "z": 0}, {"number": 2, "x": 4, "y": 0, "z": 0}],
  "supports": [{"node": 1, "restrained": "all"}, {"node": 2, "restrained": ["Dy", "Dz"]}],
  "elements": [{"number": 7, "nodes": [1, 2], "section": 1, "material": 1}],
  "load_cases": [{"number": 1, "span": [{"elements": [7], "direction": "Z", "value": -3}]},
                 {"number": 2, "nodal": [{"nodes": [2], "Fx": -20}]}],
  "combinations": [{"number": 1, "terms": [{"case": 1}]},
                   {"number": 2, "terms": [{"case": 1}, {"case": 2}]}]
})";

class ForceLinesOfAProppedBeam : public testing::Test {
 protected:
  ForceLinesOfAProppedBeam() {
    const auto file = folder_.path() / "beam.json";
    std::ofstream(file) << propped;
    auto read = read_input({.model = file});
    if (const auto* problem = std::get_if<Problem>(&read)) ADD_FAILURE() << problem->text;
    input_ = std::get<Input>(std::move(read));
  }
  static std::vector<picture::Ordinate> values(const Result<ForceLines>& lines) {
    if (const auto* problem = std::get_if<Problem>(&lines)) {
      ADD_FAILURE() << problem->text;
      return {{}};
    }
    return std::get<ForceLines>(lines).lines.at(0).values;
  }

  services::TemporaryFolder folder_;
  Input input_;
};

TEST_F(ForceLinesOfAProppedBeam, PassThroughTheExtremeBetweenPositions) {
  // 9·q·L²/128 at 5/8 of the length, where the shear is 0; -q·L²/8 at the clamped start.
  const auto moment = values(force_lines_of_case(input_, 1, picture::ForceComponent::my));
  const auto most = std::ranges::max_element(moment, {}, &picture::Ordinate::value);
  constexpr double q = 3.0, l = 4000.0;
  EXPECT_NEAR(most->value, 9 * q * l * l / 128, tolerance * q * l * l);
  // The place follows from shear forces in single precision.
  EXPECT_NEAR(most->fraction, 0.625, 1e-6);
  EXPECT_NEAR(moment.front().value, -q * l * l / 8, tolerance * q * l * l);
  EXPECT_NEAR(moment.back().value, 0.0, tolerance * q * l * l);
}

TEST_F(ForceLinesOfAProppedBeam, OfALoadCaseAreOfFirstOrderAndOfACombinationAsTheModelSays) {
  // The clamped moment is the one that turns the end of a simple beam back under compression
  // (Timoshenko and Gere, Theory of Elastic Stability, chapter 1), u = (L/2)·sqrt(P/EI).
  constexpr double q = 3.0, l = 4000.0, ei = 70000.0 * 4e6;
  const double u = l / 2 * std::sqrt(20e3 / ei);
  // Slope of a simple beam under q: q·L³/(24·EI)·3·(tan u - u)/u³; under a moment M at that end:
  // M·L/(3·EI)·3/(2u)·(1/(2u) - 1/tan 2u).
  const double of_load = q * l * l * l / 24 * 3 * (std::tan(u) - u) / (u * u * u);
  const double of_moment = l / 3 * 3 / (2 * u) * (1 / (2 * u) - 1 / std::tan(2 * u));
  const auto my = picture::ForceComponent::my;
  EXPECT_NEAR(values(force_lines_of_combination(input_, 2, my)).front().value, -of_load / of_moment,
              tolerance * q * l * l);
  EXPECT_NEAR(values(force_lines_of_combination(input_, 1, my)).front().value, -q * l * l / 8,
              tolerance * q * l * l)
      << "without compression";
  EXPECT_NEAR(values(force_lines_of_case(input_, 1, my)).front().value, -q * l * l / 8,
              tolerance * q * l * l);
}

}  // namespace
}  // namespace aluframe::run

// Drawn buckling modes, by the closed forms of Euler's columns.

#include "aluframe/run/mode_lines.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <functional>
#include <map>
#include <numbers>

#include "tests/unit/aluframe/services/temporary_folder.h"

namespace aluframe::run {
namespace {

using picture::DisplacedLine;
using picture::DisplacedPlace;
using picture::Point3;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr double pi = std::numbers::pi;

// Of all columns here, which are rigid in shear.
constexpr double e = 70000.0;  ///< N/mm², GB 50429-2007 for every alloy
constexpr double i_weak = 1e6, i_strong = 4e6;
constexpr double column_length = 3000.0;

/// The factor of a load of 1 kN at which a column of an effective length buckles.
double euler_factor(double inertia, double effective_length) {
  return pi * pi * e * inertia / (effective_length * effective_length) / 1000.0;
}

/// Digits that the search for factors leaves; its own tests ask for the same.
constexpr double factor_tolerance = 1e-6;

constexpr const char* head = R"({
  "format": "aluframe-model", "version": 1, "units": {"force": "kN", "length": "m"},
  "materials": [{"number": 1, "alloy": "6061-T6"}],
  "sections": [{"number": 1, "shape": "UP", "dimensions": {},
                "properties": {"area": 1000, "it": 1e6, "iyy": 4e6, "izz": 1e6,
                               "point_y": [-50, 50, 50, -50], "point_z": [50, 50, -50, -50]}}],
  )";

/// 1 kN along an axis on a node, alone as combination 1.
std::string pressed(int node, const std::string& forces = R"("Fz": -1)") {
  return R"("load_cases": [{"number": 1, "nodal": [{"nodes": [)" + std::to_string(node) + "], " +
         forces + R"(}]}], "combinations": [{"number": 1, "terms": [{"case": 1}]}]})";
}

/// A column of four elements along Z, elements 1 to 4 from its foot.
constexpr const char* four_elements = R"("nodes": [
    {"number": 1, "x": 0, "y": 0, "z": 0}, {"number": 2, "x": 0, "y": 0, "z": 0.75},
    {"number": 3, "x": 0, "y": 0, "z": 1.5}, {"number": 4, "x": 0, "y": 0, "z": 2.25},
    {"number": 5, "x": 0, "y": 0, "z": 3}],
  "elements": [{"number": 1, "nodes": [1, 2], "section": 1, "material": 1},
               {"number": 2, "nodes": [2, 3], "section": 1, "material": 1},
               {"number": 3, "nodes": [3, 4], "section": 1, "material": 1},
               {"number": 4, "nodes": [4, 5], "section": 1, "material": 1}],
  )";
constexpr const char* one_element = R"("nodes": [
    {"number": 1, "x": 0, "y": 0, "z": 0}, {"number": 5, "x": 0, "y": 0, "z": 3}],
  "elements": [{"number": 1, "nodes": [1, 5], "section": 1, "material": 1}],
  )";
constexpr const char* clamped_foot = R"("supports": [{"node": 1, "restrained": "all"}],
  )";
constexpr const char* hinged_ends = R"("supports": [
    {"node": 1, "restrained": ["Dx", "Dy", "Dz", "Rz"]}, {"node": 5, "restrained": ["Dx", "Dy"]}],
  )";
constexpr const char* clamped_ends = R"("supports": [
    {"node": 1, "restrained": "all"}, {"node": 5, "restrained": ["Dx", "Dy", "Rx", "Ry", "Rz"]}],
  )";

class DrawnModes : public testing::Test {
 protected:
  void read(const std::string& text) {
    std::ofstream(file_) << text;
    auto found = read_input({.model = file_});
    if (const auto* problem = std::get_if<Problem>(&found)) FAIL() << problem->text;
    input_ = std::get<Input>(std::move(found));
  }
  std::vector<DrawnMode> drawn(int count, model::Number combination = 1) const {
    auto modes = drawn_modes(input_, combination, count);
    if (const auto* problem = std::get_if<Problem>(&modes)) {
      ADD_FAILURE() << problem->text;
      return {};
    }
    return std::get<std::vector<DrawnMode>>(std::move(modes));
  }
  std::string problem(model::Number combination = 1) const {
    const auto modes = drawn_modes(input_, combination, 1);
    const auto* problem = std::get_if<Problem>(&modes);
    return problem == nullptr ? "no problem" : problem->text;
  }

  services::TemporaryFolder folder_;
  std::filesystem::path file_ = folder_.path() / "column.json";
  Input input_;
};

double largest_of(const DrawnMode& mode) {
  double largest = 0.0;
  for (const DisplacedLine& line : mode.lines) {
    for (const DisplacedPlace& place : line.places) {
      largest = std::max(largest, length_of(place.displacement));
    }
  }
  return largest;
}

/// Expects a column, whose elements follow each other from its foot, to be displaced along one
/// direction by a shape of the part of its height. A mode has no sign of its own.
void expect_shape(const DrawnMode& mode, const Point3& direction,
                  const std::function<double(double)>& shape, double tolerance) {
  const auto count = static_cast<double>(mode.lines.size());
  double sign = 0.0;
  for (std::size_t i = 0; i < mode.lines.size(); ++i) {
    EXPECT_EQ(mode.lines[i].element, i + 1);
    for (const auto& [fraction, displacement] : mode.lines[i].places) {
      const double height = (static_cast<double>(i) + fraction) / count;
      const double along = dot(displacement, direction);
      if (sign == 0.0 && std::abs(along) > tolerance) sign = along * shape(height) < 0 ? -1 : 1;
      EXPECT_NEAR(sign * along, shape(height), tolerance) << "at " << height;
      EXPECT_NEAR(length_of(displacement - along * direction), 0.0, factor_tolerance)
          << "across, at " << height;
    }
  }
}

/// How far the cubic through the ends and slopes of a wave lies off it: h⁴/384 times the largest
/// fourth derivative, for a wave of that amplitude and so many radians an element. Nodes come from
/// an iteration that is left at about a millionth.
double cubic_tolerance(double radians, double amplitude = 1.0) {
  return amplitude * std::pow(radians, 4) / 384.0 + 1e-5;
}

TEST_F(DrawnModes, OfACantileverAreCosinesAcrossItsTwoAxes) {
  read(std::string(head) + four_elements + clamped_foot + pressed(5));
  const auto modes = drawn(3);
  ASSERT_THAT(modes, SizeIs(3));
  // y of a column is along Y and z along -X. Iyy is four times Izz, and the second wave of a
  // cantilever has three times the radians of the first.
  const double weak = euler_factor(i_weak, 2 * column_length);
  const double strong = euler_factor(i_strong, 2 * column_length);
  EXPECT_NEAR(modes[0].factor, weak, factor_tolerance * weak);
  EXPECT_NEAR(modes[1].factor, strong, factor_tolerance * strong);
  EXPECT_NEAR(modes[2].factor, 9 * weak, factor_tolerance * 9 * weak);
  const auto first = [](double t) { return 1 - std::cos(pi * t / 2); };
  const auto second = [](double t) { return (1 - std::cos(3 * pi * t / 2)) / 2; };
  expect_shape(modes[0], {0, 1, 0}, first, cubic_tolerance(pi / 8));
  expect_shape(modes[1], {1, 0, 0}, first, cubic_tolerance(pi / 8));
  // Its crest, at two thirds of the height, is up to 1/128 of the height from a place drawn: what
  // is scaled to 1 mm is lower than the crest by a half of (3π/2/128)².
  expect_shape(modes[2], {0, 1, 0}, second,
               cubic_tolerance(3 * pi / 8, 0.5) + std::pow(3 * pi / 256, 2) / 4);
}

TEST_F(DrawnModes, AreAsManyAsAskedForAscendingAndOfOneMillimetre) {
  read(std::string(head) + four_elements + clamped_foot + pressed(5));
  for (const int count : {1, 2, 5}) {
    const auto modes = drawn(count);
    ASSERT_THAT(modes, SizeIs(count));
    EXPECT_TRUE(std::ranges::is_sorted(modes, {}, &DrawnMode::factor));
    for (const DrawnMode& mode : modes) {
      EXPECT_GT(mode.factor, 0.0);
      EXPECT_NEAR(largest_of(mode), 1.0, 1e-12);
      EXPECT_THAT(mode.text, testing::Not(IsEmpty()));
    }
  }
}

TEST_F(DrawnModes, SayInWordsWhereTheyMove) {
  read(std::string(head) + four_elements + clamped_foot + pressed(5));
  const auto modes = drawn(2);
  EXPECT_THAT(modes.at(0).text, AllOf(HasSubstr("nodes "), HasSubstr("along Y")));
  EXPECT_THAT(modes.at(1).text, AllOf(HasSubstr("nodes "), HasSubstr("along X")));
}

TEST_F(DrawnModes, OfAColumnOnHingesAreHalfAWave) {
  read(std::string(head) + four_elements + hinged_ends + pressed(5));
  const auto modes = drawn(2);
  ASSERT_THAT(modes, SizeIs(2));
  const double weak = euler_factor(i_weak, column_length);
  EXPECT_NEAR(modes[0].factor, weak, factor_tolerance * weak);
  // Iyy is four times Izz: a wave across the one and half a wave across the other have one factor,
  // so that any sum of them is the second mode.
  EXPECT_NEAR(modes[1].factor, 4 * weak, factor_tolerance * 4 * weak);
  expect_shape(
      modes[0], {0, 1, 0}, [](double t) { return std::sin(pi * t); }, cubic_tolerance(pi / 4));
}

TEST_F(DrawnModes, OfOneElementAreTheCubicOfItsEnds) {
  read(std::string(head) + one_element + hinged_ends + pressed(5));
  const auto modes = drawn(1);
  ASSERT_THAT(modes, SizeIs(1));
  const double weak = euler_factor(i_weak, column_length);
  EXPECT_NEAR(modes[0].factor, weak, factor_tolerance * weak) << "by exact stability functions";
  // Ends that stand still and slope by s and -s: L·s·t·(1-t), 1 mm in the middle.
  expect_shape(modes[0], {0, 1, 0}, [](double t) { return 4 * t * (1 - t); }, 1e-5);
}

TEST_F(DrawnModes, OfAnElementWhoseNodesStandStillAreHalfAWaveAcrossItsWeakAxis) {
  read(std::string(head) + one_element + clamped_ends + pressed(5));
  const auto modes = drawn(1);
  ASSERT_THAT(modes, SizeIs(1));
  const double weak = euler_factor(i_weak, column_length / 2);
  EXPECT_NEAR(modes[0].factor, weak, factor_tolerance * weak);
  expect_shape(modes[0], {0, 1, 0}, [](double t) { return std::sin(pi * t); }, 1e-12);
  EXPECT_THAT(modes[0].text, HasSubstr("element 1 buckles between its nodes"));
}

TEST_F(DrawnModes, FollowTheAxesOfEachElement) {
  // A cantilever of 3 m up along (0.6, 0, 0.8), its elements in both directions and turned over.
  read(std::string(head) + R"("nodes": [
      {"number": 1, "x": 0, "y": 0, "z": 0}, {"number": 2, "x": 0.6, "y": 0, "z": 0.8},
      {"number": 3, "x": 1.2, "y": 0, "z": 1.6}, {"number": 5, "x": 1.8, "y": 0, "z": 2.4}],
    "elements": [{"number": 1, "nodes": [1, 2], "section": 1, "material": 1},
                 {"number": 2, "nodes": [3, 2], "section": 1, "material": 1},
                 {"number": 3, "nodes": [3, 5], "section": 1, "material": 1, "beta": 180}],
    )" +
       clamped_foot + pressed(5, R"("Fx": -0.6, "Fz": -0.8)"));
  auto modes = drawn(2);
  ASSERT_THAT(modes, SizeIs(2));
  for (DrawnMode& mode : modes) {
    auto& places = mode.lines.at(1).places;
    EXPECT_EQ(places.front().fraction, 0.0) << "from its own start";
    std::ranges::reverse(places);
    for (DisplacedPlace& place : places) place.fraction = 1 - place.fraction;
  }
  const auto shape = [](double t) { return 1 - std::cos(pi * t / 2); };
  expect_shape(modes[0], {0, 1, 0}, shape, cubic_tolerance(pi / 6));
  expect_shape(modes[1], {-0.8, 0, 0.6}, shape, cubic_tolerance(pi / 6));
}

/// A portal 4 m wide in the plane of X and Z, its columns clamped and restrained against Y, with
/// 1 kN on each of them; element 3 is its beam.
/// @param beam what else the beam has
std::string portal(const std::string& beam) {
  return std::string(head) + R"("nodes": [
      {"number": 1, "x": 0, "y": 0, "z": 0}, {"number": 2, "x": 4, "y": 0, "z": 0},
      {"number": 3, "x": 0, "y": 0, "z": 3}, {"number": 4, "x": 4, "y": 0, "z": 3}],
    "supports": [{"node": 1, "restrained": "all"}, {"node": 2, "restrained": "all"},
                 {"node": 3, "restrained": ["Dy", "Rx", "Rz"]},
                 {"node": 4, "restrained": ["Dy", "Rx", "Rz"]}],
    "elements": [{"number": 1, "nodes": [1, 3], "section": 1, "material": 1},
                 {"number": 2, "nodes": [4, 2], "section": 1, "material": 1},
                 {"number": 3, "nodes": [3, 4], "section": 1, "material": 1)" +
         beam + R"(}],
    "load_cases": [{"number": 1, "nodal": [{"nodes": [3, 4], "Fz": -1}]}],
    "combinations": [{"number": 1, "terms": [{"case": 1}]}]})";
}

TEST_F(DrawnModes, MeetAtTheNodesOfAFrame) {
  read(portal(""));
  for (const DrawnMode& mode : drawn(3)) {
    std::map<model::Number, std::vector<Point3>> at_node;
    for (const DisplacedLine& line : mode.lines) {
      const auto& nodes = input_.model.elements.find(line.element)->nodes;
      at_node[nodes[0]].push_back(line.places.front().displacement);
      at_node[nodes[1]].push_back(line.places.back().displacement);
    }
    for (const auto& [node, points] : at_node) {
      for (const Point3& point : points) {
        EXPECT_NEAR(length_of(point - points.front()), 0.0, 1e-12) << "node " << node;
      }
    }
    for (const model::Number support : {1U, 2U}) {
      EXPECT_NEAR(length_of(at_node.at(support).front()), 0.0, 1e-12) << "node " << support;
    }
  }
}

/// The rotation of an element's end in the plane of X and Z, by the slope across its axis of what
/// is drawn. A cubic whose value and slope at the end are 0 and s has s = (18·w1 - 9·w2 +
/// 2·w3)/(6·h) by its three next places, exactly.
double slope_at_start(const std::vector<DisplacedPlace>& places, const Point3& across,
                      double length) {
  const auto w = [&](std::size_t i) {
    return dot(places.at(i).displacement - places.front().displacement, across);
  };
  const double step = (places.at(1).fraction - places.at(0).fraction) * length;
  return (18 * w(1) - 9 * w(2) + 2 * w(3)) / (6 * step);
}

TEST_F(DrawnModes, KeepTheRightAnglesOfStiffJoints) {
  read(portal(""));
  const DrawnMode mode = drawn(1).at(0);
  auto column = mode.lines.at(0).places;  // from its top
  std::ranges::reverse(column);
  for (DisplacedPlace& place : column) place.fraction = 1 - place.fraction;
  // Turned by r about Y, the beam slopes by -r along Z, and what hangs below the joint by -r
  // along X.
  const double beam = slope_at_start(mode.lines.at(2).places, {0, 0, 1}, 4000);
  const double leg = slope_at_start(column, {1, 0, 0}, 3000);
  EXPECT_GT(std::abs(beam), 1e-5) << "the joint turns";
  EXPECT_NEAR(beam, leg, 1e-9);
}

/// Expects the portal to sway as two cantilevers, across Iyy, and its beam to stay straight.
void expect_straight_beam(const std::vector<DrawnMode>& modes) {
  ASSERT_THAT(modes, SizeIs(1));
  const double sway = euler_factor(i_strong, 2 * column_length);
  EXPECT_NEAR(modes[0].factor, sway, factor_tolerance * sway);
  double across = 0.0;
  for (const auto& [fraction, displacement] : modes[0].lines.at(2).places) {
    EXPECT_NEAR(std::abs(displacement.x), 1.0, 1e-6) << fraction;
    across = std::max({across, std::abs(displacement.y), std::abs(displacement.z)});
  }
  EXPECT_LT(across, 1e-6) << "the columns keep their heights";
}

TEST_F(DrawnModes, LeaveABeamOnHingesStraight) {
  read(portal(R"(, "releases": {"start": ["My", "Mz"], "end": ["My", "Mz"]})"));
  expect_straight_beam(drawn(1));
}

TEST_F(DrawnModes, LeaveATrussElementStraight) {
  read(portal(R"(, "kind": "truss")"));
  expect_straight_beam(drawn(1));
}

TEST_F(DrawnModes, BendABeamWithOneHingeFromItsStiffEndAlone) {
  read(portal(R"(, "releases": {"end": ["My"]})"));
  const DrawnMode mode = drawn(1).at(0);
  const auto& beam = mode.lines.at(2).places;
  const double slope = slope_at_start(beam, {0, 0, 1}, 4000);
  ASSERT_GT(std::abs(slope), 1e-5) << "the stiff joint turns";
  const double start = beam.front().displacement.z, end = beam.back().displacement.z;
  for (const auto& [t, displacement] : beam) {
    // The cubic without curvature at t = 1, of ends that the beam's shear forces shift a little.
    const double of_shift = t * t * (3 - t) / 2, of_slope = t * (1 - t) * (2 - t) / 2;
    EXPECT_NEAR(displacement.z, start + (end - start) * of_shift + slope * 4000 * of_slope, 1e-9)
        << t;
  }
}

TEST_F(DrawnModes, OfAFactorOfTheLoadsHaveItsInverse) {
  std::string text = std::string(head) + four_elements + clamped_foot + pressed(5);
  text.replace(text.find(R"({"case": 1})"), 11, R"({"case": 1, "factor": 2})");
  read(text);
  const double half = euler_factor(i_weak, 2 * column_length) / 2;
  EXPECT_NEAR(drawn(1).at(0).factor, half, factor_tolerance * half);
}

TEST_F(DrawnModes, OfAnEnvelopeAreTheSmallestOfItsStates) {
  std::string text = std::string(head) + four_elements + clamped_foot + pressed(5);
  text.replace(text.find(R"({"number": 1, "terms": [{"case": 1}]})"), 37,
               R"({"number": 1, "kind": "envelope",
                   "terms": [{"case": 1}, {"case": 1, "factor": 2}, {"case": 1, "factor": -1}]})");
  read(text);
  const auto modes = drawn(4);
  ASSERT_THAT(modes, SizeIs(4));
  // Times 2: c/2, 4c/2, 9c/2; times 1: c, 4c; pulled: none.
  const double c = euler_factor(i_weak, 2 * column_length);
  const std::array expected{c / 2, c, 2 * c, 4 * c};
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_NEAR(modes[i].factor, expected[i], factor_tolerance * expected[i]) << i;
  }
}

TEST_F(DrawnModes, AreNoneWithoutCompression) {
  read(std::string(head) + four_elements + clamped_foot + pressed(5, R"("Fz": 1)"));
  EXPECT_THAT(drawn(3), IsEmpty());
}

TEST_F(DrawnModes, AreNotKnownOfGivenForces) {
  const std::string text = std::string(head) + four_elements + clamped_foot;
  read(text +
       R"("load_cases": [{"number": 7}], "combinations": [{"number": 1, "terms": [{"case": 7}]}],
      "forces": [{"element": 1, "case": 7, "values": [[-1, 0, 0, 0, 0, 0], [-1, 0, 0, 0, 0, 0]]}]})");
  EXPECT_THAT(problem(), HasSubstr("load case 7 has given forces"));
}

TEST_F(DrawnModes, OfACombinationThatDoesNotExistAreAProblem) {
  read(std::string(head) + four_elements + clamped_foot + pressed(5));
  EXPECT_EQ(problem(9), file_.string() + ": there is no combination 9");
}

TEST_F(DrawnModes, OfAMechanismNameTheFileAndThePlace) {
  read(std::string(head) + four_elements + R"("supports": [{"node": 1, "restrained": ["Dz"]}],
  )" + pressed(5));
  EXPECT_THAT(problem(), AllOf(HasSubstr(file_.string()), HasSubstr("node")));
}

}  // namespace
}  // namespace aluframe::run

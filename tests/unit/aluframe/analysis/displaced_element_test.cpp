// Displacements between the ends of an element, against closed forms of beams: deflection curves of
// Euler beams by integration by hand, with what shear adds; and against the same beam in pieces.

#include "aluframe/analysis/displaced_element.h"

#include <gtest/gtest.h>

#include "frames.h"

namespace aluframe::analysis {
namespace {

constexpr double length = 3000.0;

/// The only element of a frame under a load case.
DisplacedElement displaced(const Frame& frame, const LoadCase& load_case) {
  const CaseResult result = solved(frame, load_case);
  const auto geometry = element_geometry(frame);
  const LoadsByElement loads(frame, geometry, load_case);
  const Element& element = frame.elements[0];
  const Vector12 ends =
      end_displacements(element, geometry[0], loads.of(0), result.displacements[element.start],
                        result.displacements[element.end]);
  return {element, loads.of(0), ends};
}

/// Supported as two directions of a beam need it, free to turn about y and z.
Frame simple_beam(const Stiffness& stiffness = plain_stiffness()) {
  Frame frame = cantilever(length, stiffness);
  frame.supports = {{0, {true, true, true, true, false, false}},
                    {1, {false, true, true, false, false, false}}};
  return frame;
}

Frame fixed_beam(const Stiffness& stiffness = plain_stiffness()) {
  Frame frame = cantilever(length, stiffness);
  frame.supports.push_back({1, clamped});
  return frame;
}

LoadCase uniform(const Vector3& load) {
  LoadCase load_case;
  load_case.distributed.push_back({.element = 0, .from_value = load, .to_value = load});
  return load_case;
}

LoadCase point(double at, const Vector3& force, const Vector3& moment = {}) {
  LoadCase load_case;
  load_case.points.push_back({.element = 0, .force = force, .moment = moment, .at = at});
  return load_case;
}

/// As close as forces in single precision let it come.
auto near(double expected, double size) {
  return testing::DoubleNear(expected, 1e-6 * std::abs(size));
}

TEST(DisplacedElement, SimpleBeamUnderAUniformLoadSagsWithItsShear) {
  const Stiffness s = shear_stiffness();
  const DisplacedElement beam = displaced(simple_beam(s), uniform({0, 0, -6}));
  const auto expected = [&](double x) {
    const double bending =
        6 * x * (std::pow(length, 3) - 2 * length * x * x + x * x * x) / (24 * s.e * s.iyy);
    return -(bending + 6 * x * (length - x) / (2 * s.g * s.az));
  };
  for (const double x : {0.0, 311.0, 1500.0, 2400.0, length}) {
    EXPECT_THAT(beam.at(x).z(), near(expected(x), expected(1500))) << x;
    EXPECT_NEAR(beam.at(x).y(), 0.0, 1e-12);
  }
}

TEST(DisplacedElement, PointLoadBendsByItsPlace) {
  const Stiffness s = plain_stiffness();
  const double a = 0.2 * length, b = length - a;
  const DisplacedElement beam = displaced(simple_beam(), point(0.2, {0, 5000, 0}));
  const auto before = [&](double x) {
    return 5000 * b * x * (length * length - b * b - x * x) / (6 * length * s.e * s.izz);
  };
  EXPECT_THAT(beam.at(0.1 * length).y(), near(before(0.1 * length), before(a)));
  EXPECT_THAT(beam.at(a).y(), near(5000 * a * a * b * b / (3 * length * s.e * s.izz), before(a)));
  // Behind the load the same from the other end.
  const double x = 0.3 * length;
  EXPECT_THAT(beam.at(length - x).y(),
              near(5000 * a * x * (length * length - a * a - x * x) / (6 * length * s.e * s.izz),
                   before(a)));
}

TEST(DisplacedElement, MomentInTheMiddleOfAFixedBeamBendsBothHalvesApart) {
  // w = M·x²/8EI·(1 - 2x/L) before the middle: M·L²/216EI at a third, 0 in the middle.
  const Stiffness s = plain_stiffness();
  const DisplacedElement beam = displaced(fixed_beam(), point(0.5, {}, {0, 1e6, 0}));
  const double largest = 1e6 * length * length / (216 * s.e * s.iyy);
  EXPECT_THAT(std::abs(beam.at(length / 3).z()), near(largest, largest));
  EXPECT_NEAR(beam.at(length / 2).z(), 0.0, 1e-6 * largest);
  EXPECT_THAT(beam.at(length * 2 / 3).z(), near(-beam.at(length / 3).z(), largest));
  // A moment about y turns the middle so that what lies before it goes down.
  EXPECT_GT(beam.at(length / 3).z(), 0.0);
}

TEST(DisplacedElement, CantileverUnderATriangleOfLoad) {
  // Largest at the clamped end: w = q·x²·(10L³ - 10L²x + 5Lx² - x³)/120LEI.
  const Stiffness s = plain_stiffness();
  LoadCase load_case;
  load_case.distributed.push_back({.element = 0, .from_value = {0, 0, -8}, .to_value = {}});
  const DisplacedElement beam = displaced(cantilever(length), load_case);
  const auto expected = [&](double x) {
    return -8 * x * x *
           (10 * std::pow(length, 3) - 10 * length * length * x + 5 * length * x * x - x * x * x) /
           (120 * length * s.e * s.iyy);
  };
  for (const double x : {500.0, 1700.0, length}) {
    EXPECT_THAT(beam.at(x).z(), near(expected(x), expected(length))) << x;
  }
}

TEST(DisplacedElement, AxialLoadStretchesBetweenTheEnds) {
  const Stiffness s = plain_stiffness();
  const DisplacedElement bar = displaced(fixed_beam(), uniform({40, 0, 0}));
  const double largest = 40 * length * length / (8 * s.e * s.area);
  EXPECT_THAT(bar.at(length / 2).x(), near(largest, largest));
  EXPECT_THAT(bar.at(length / 4).x(), near(0.75 * largest, largest));
  const DisplacedElement pushed = displaced(fixed_beam(), point(0.25, {4000, 0, 0}));
  EXPECT_THAT(pushed.at(length / 4).x(), near(4000 * 0.25 * 0.75 * length / (s.e * s.area), 1.0));
}

TEST(DisplacedElement, TemperatureBendsASimpleBeamToAnArc) {
  Frame frame = simple_beam();
  frame.elements[0].expansion = 2.3e-5;
  LoadCase load_case;
  load_case.temperatures.push_back({.element = 0, .difference_z = 20, .depth_z = 100});
  // Warmer at the top, it arches upwards: κ·x·(L - x)/2.
  const double curvature = 2.3e-5 * 20 / 100;
  const DisplacedElement beam = displaced(frame, load_case);
  EXPECT_THAT(beam.at(1000).z(), near(curvature * 1000 * 2000 / 2, 1.0));
}

TEST(DisplacedElement, ReleasedEndGoesItsOwnWay) {
  const Stiffness s = plain_stiffness();
  Frame frame = fixed_beam();
  frame.elements[0].released[8] = true;  // Fz of the end: it slides, but does not turn
  const DisplacedElement guided = displaced(frame, uniform({0, 0, -6}));
  const double tip = 6 * std::pow(length, 4) / (24 * s.e * s.iyy);
  EXPECT_THAT(guided.at(length).z(), near(-tip, tip));

  frame.elements[0].released[8] = false;
  frame.elements[0].released[10] = true;  // My of the end: propped cantilever
  const DisplacedElement propped = displaced(frame, uniform({0, 0, -6}));
  const double middle = 6 * std::pow(length, 4) / (192 * s.e * s.iyy);
  EXPECT_THAT(propped.at(length / 2).z(), near(-middle, middle));
  EXPECT_NEAR(propped.at(length).z(), 0.0, 1e-9 * middle);
}

TEST(DisplacedElement, TrussStaysStraightBetweenItsNodes) {
  Frame frame;
  add_node(frame, 0, 0, 0);
  add_node(frame, length, 0, 0);
  add_truss(frame, 0, 1);
  frame.supports = {{0, pinned}, {1, {false, true, true, false, false, false}}};
  const DisplacedElement bar = displaced(frame, uniform({2, 0, -6}));
  const Stiffness s = plain_stiffness();
  const double end = 2 * length / 2 * length / (s.e * s.area);
  EXPECT_THAT(bar.at(length / 2).x(), near(end / 2, end));
  EXPECT_NEAR(bar.at(length / 2).z(), 0.0, 1e-12);
}

TEST(DisplacedElement, InOnePieceAsInSixteen) {
  // A skew beam with shear under everything at once.
  const auto beam = [](int pieces) {
    Frame frame;
    for (int i = 0; i <= pieces; ++i) {
      const double t = static_cast<double>(i) / pieces;
      add_node(frame, 2000 * t, -1500 * t, 900 * t);
    }
    for (int i = 0; i < pieces; ++i) {
      Element& element = add_element(frame, static_cast<std::size_t>(i),
                                     static_cast<std::size_t>(i + 1), shear_stiffness());
      element.beta = 25;
      element.expansion = 2.3e-5;
      element.density = 2.7e-6;
    }
    frame.supports = {{0, clamped}, {static_cast<std::size_t>(pieces), pinned}};
    return frame;
  };
  const auto loads = [](std::size_t pieces) {
    LoadCase load_case;
    load_case.self_weight = {0.2, 0, -1};
    load_case.points.push_back({.element = pieces * 5 / 16,
                                .axes = LoadAxes::global,
                                .force = {300, -700, -2000},
                                .moment = {0, 4e5, -3e5},
                                .at = pieces == 1 ? 5.5 / 16 : 0.5});
    for (std::size_t i = 0; i < pieces; ++i) {
      load_case.temperatures.push_back({.element = i,
                                        .change = 12,
                                        .difference_y = 9,
                                        .depth_y = 60,
                                        .difference_z = -15,
                                        .depth_z = 120});
      const double t = static_cast<double>(i) / static_cast<double>(pieces),
                   u = static_cast<double>(i + 1) / static_cast<double>(pieces);
      load_case.distributed.push_back(
          {.element = i, .from_value = {1, 2, -8 * t}, .to_value = {1, 2, -8 * u}});
    }
    return load_case;
  };
  const Frame whole = beam(1), cut = beam(16);
  const CaseResult in_pieces = solved(cut, loads(16));
  const DisplacedElement element = displaced(whole, loads(1));
  const Geometry geometry = element_geometry(whole)[0];
  double largest = 0.0;
  for (const Vector6& u : in_pieces.displacements) largest = std::max(largest, std::abs(u[dz]));
  for (std::size_t i = 0; i <= 16; ++i) {
    const Eigen::Vector3d global =
        geometry.axes.transpose() * element.at(geometry.length * static_cast<double>(i) / 16);
    for (const int d : {dx, dy, dz}) {
      EXPECT_NEAR(global[d], in_pieces.displacements[i][static_cast<std::size_t>(d)],
                  2e-6 * largest)
          << i << " " << d;
    }
  }
}

}  // namespace
}  // namespace aluframe::analysis

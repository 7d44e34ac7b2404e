// Frames whose members are easily taken for shorter than they are, against buckling loads of the
// same frames cut into cubic elements, which share nothing with the program's modes.

#include <gtest/gtest.h>

#include <array>

#include "lengths_of_frames.h"

namespace aluframe::members {
namespace {

/// A frame in the plane XZ, a thousand times as stiff across it and held there at its supports,
/// with one load case.
class PlaneModel {
 public:
  PlaneModel() {
    model::Section section = *frame.model().sections.find(1);
    section.given.it = 1e9;
    section.given.izz = 1e9;
    frame.model().sections.replace(section);
    load_case_.number = 1;
  }

  /// @param held along X, along Z, against rotation
  Number node(double x, double z, std::array<bool, 3> held = {},
              std::array<double, 2> springs = {}) {
    frame.node(++nodes_, x, 0, z);
    if (held == std::array<bool, 3>{} && springs == std::array<double, 2>{}) return nodes_;
    frame.support(nodes_, {held[0], true, held[1], true, held[2], true},
                  {springs[0], 0, springs[1], 0, 0, 0});
    return nodes_;
  }
  Number beam(Number start, Number end) {
    frame.beam(++elements_, start, end);
    return elements_;
  }
  Number truss(Number start, Number end) {
    frame.truss(++elements_, start, end);
    return elements_;
  }
  void load(Number node, double fx, double fz) {
    model::NodalLoad load;
    load.nodes.numbers = {node};
    load.components = {fx, 0, fz, 0, 0, 0};
    load_case_.loads.nodal.push_back(load);
  }
  model::Model& finish() {
    frame.model().load_cases.add(load_case_);
    complete(frame.model());
    return frame.model();
  }

  FrameBuilder frame;

 private:
  model::LoadCase load_case_;
  Number nodes_ = 0, elements_ = 0;
};

constexpr std::array<bool, 3> hinge{true, true, false}, roller{true, false, false},
    slide{false, true, false}, clamp{true, true, true};

/// Effective length K·L of the member about y, mm, and that of the fine frame.
struct Lengths {
  double used = 0.0, fine = 0.0;
  double share = 0.0;  ///< of the work of the member that does most in the fine frame's mode
  LengthFactor factor;
};

Lengths lengths_of(PlaneModel& plane, Number element) {
  const model::Model& model = plane.finish();
  const auto factors = factors_of(model);
  const auto mode = fine_mode(model, 8);
  if (!mode) throw std::runtime_error("does not buckle");
  const FineFactors fine(model, *mode, factors);
  for (const SegmentFactors& of : factors) {
    if (std::ranges::find(of.elements, element) == of.elements.end()) continue;
    const auto [share, k] = fine.of(of, 0);
    return {of.y.k * of.length, k * of.length, share, of.y};
  }
  throw std::out_of_range("no such element");
}

/// The program's own length, or one that it says lies below.
void expect_safe(const Lengths& lengths) {
  EXPECT_GT(lengths.share, 0.1) << "it does not buckle";
  if (is_below_mode(lengths.factor)) return;
  EXPECT_GE(lengths.used * 1.055, lengths.fine) << name_of(lengths.factor.source);
}

void expect_equal(const Lengths& lengths) {
  EXPECT_NEAR(lengths.used, lengths.fine, 0.01 * lengths.fine) << name_of(lengths.factor.source);
}

/// A pressed mullion of 4 m on hinges, in two elements that meet off its line.
struct Mullion {
  Number middle = 0, lower = 0, upper = 0;
};

Mullion add_mullion(PlaneModel& plane, double offset) {
  const Number foot = plane.node(0, 0, hinge), middle = plane.node(offset, 2),
               head = plane.node(0, 4, roller);
  plane.load(head, 0, -1e3);
  const Number lower = plane.beam(foot, middle);
  return {.middle = middle, .lower = lower, .upper = plane.beam(middle, head)};
}

TEST(NamedFrames, AMullionWithAnArmAtItsMiddleIsAsLongAsWithoutIt) {
  PlaneModel plane;
  const Mullion mullion = add_mullion(plane, 0.0);
  plane.beam(mullion.middle, plane.node(0.6, 2));
  const Lengths lengths = lengths_of(plane, mullion.lower);
  EXPECT_NEAR(lengths.used, 4000.0, 1.0);
  expect_equal(lengths);
}

TEST(NamedFrames, AMullionWithAKinkOfFiveMillimetresIsAsLongAsAStraightOne) {
  PlaneModel plane;
  const Mullion mullion = add_mullion(plane, 0.005);
  const Lengths lengths = lengths_of(plane, mullion.lower);
  EXPECT_NEAR(lengths.used, 4000.0, 10.0);
  expect_equal(lengths);
}

// A parabola of L/200 in sixteen elements.
TEST(NamedFrames, ACamberedStrutIsAsLongAsAStraightOne) {
  PlaneModel plane;
  Number last = plane.node(0, 0, hinge), first = 0;
  constexpr int pieces = 16;
  for (int i = 1; i <= pieces; ++i) {
    const double s = static_cast<double>(i) / pieces;
    const Number next =
        plane.node(6 * s, 6.0 / 200 * 4 * s * (1 - s), i == pieces ? slide : std::array<bool, 3>{});
    const Number element = plane.beam(last, next);
    if (i == 1) first = element;
    last = next;
  }
  plane.load(last, -1e3, 0);
  const Lengths lengths = lengths_of(plane, first);
  EXPECT_NEAR(lengths.used, 6000.0, 60.0);
  expect_equal(lengths);
}

/// A semicircle of sixteen elements under equal loads.
void build_arch(PlaneModel& plane, std::array<bool, 3> foot) {
  constexpr int pieces = 16;
  for (int i = 0; i <= pieces; ++i) {
    const double turn = std::numbers::pi * i / pieces;
    const bool is_foot = i == 0 || i == pieces;
    const Number at =
        plane.node(-5 * std::cos(turn), 5 * std::sin(turn), is_foot ? foot : std::array<bool, 3>{});
    if (!is_foot) plane.load(at, 0, -1e3);
    if (i > 0) plane.beam(at - 1, at);
  }
}

TEST(NamedFrames, AnArchBucklesAsAWhole) {
  for (const auto& foot : {hinge, clamp}) {
    PlaneModel plane;
    build_arch(plane, foot);
    const Lengths lengths = lengths_of(plane, 1);
    EXPECT_EQ(lengths.factor.source, FactorSource::mode);
    expect_equal(lengths);
  }
}

TEST(NamedFrames, ColumnsUnderAPolygonalRoof) {
  PlaneModel plane;
  const Number feet[]{plane.node(0, 0, hinge), plane.node(8, 0, hinge)};
  std::vector<Number> roof{plane.node(0, 4)};
  for (const auto& [x, z] : {std::pair{2.0, 4.8}, {4.0, 5.0}, {6.0, 4.8}, {8.0, 4.0}}) {
    roof.push_back(plane.node(x, z));
    plane.beam(roof[roof.size() - 2], roof.back());
    plane.load(roof.back(), 0, -1e3);
  }
  const Number column = plane.beam(feet[0], roof.front());
  plane.beam(feet[1], roof.back());
  plane.load(roof.front(), 0, -1e3);
  expect_safe(lengths_of(plane, column));
}

TEST(NamedFrames, ALineThatChangesItsBetaIsOneMember) {
  PlaneModel plane;
  const Mullion mullion = add_mullion(plane, 0.0);
  plane.frame.with(mullion.upper, [](model::Element& element) { element.beta = 180; });
  const Lengths lengths = lengths_of(plane, mullion.lower);
  EXPECT_NEAR(lengths.used, 4000.0, 1.0);
  expect_equal(lengths);
}

// Four equal pieces with soft springs between: Engesser's chord in small.
TEST(NamedFrames, AStrutOnSoftSpringsIsNotHeldByThem) {
  PlaneModel plane;
  Number last = plane.node(0, 0, hinge), first = 0;
  for (int i = 1; i <= 4; ++i) {
    const Number next =
        plane.node(0, 2.0 * i, i == 4 ? roller : std::array<bool, 3>{}, {i == 4 ? 0.0 : 1.0, 0.0});
    const Number element = plane.beam(last, next);
    if (i == 1) first = element;
    last = next;
  }
  plane.load(last, 0, -1e3);
  const Lengths lengths = lengths_of(plane, first);
  EXPECT_EQ(lengths.factor.source, FactorSource::mode);
  EXPECT_GT(lengths.used, 6000.0);
  expect_equal(lengths);
}

TEST(NamedFrames, AVierendeelStrutBucklesBetweenItsEnds) {
  PlaneModel plane;
  std::vector<Number> left, right;
  for (int i = 0; i <= 4; ++i) {
    const bool is_head = i == 4;
    left.push_back(plane.node(0, 1.5 * i,
                              i == 0    ? hinge
                              : is_head ? roller
                                        : std::array<bool, 3>{}));
    right.push_back(plane.node(0.3, 1.5 * i,
                               i == 0    ? hinge
                               : is_head ? roller
                                         : std::array<bool, 3>{}));
  }
  const Number chord = plane.beam(left[0], left[1]);
  plane.beam(right[0], right[1]);
  for (std::size_t i = 1; i < 4; ++i) {
    plane.beam(left[i], left[i + 1]);
    plane.beam(right[i], right[i + 1]);
  }
  for (std::size_t i = 1; i < 5; ++i) plane.beam(left[i], right[i]);
  plane.load(left.back(), 0, -1e3);
  plane.load(right.back(), 0, -1e3);
  expect_safe(lengths_of(plane, chord));
}

TEST(NamedFrames, VColumnsUnderABeam) {
  PlaneModel plane;
  const Number foot = plane.node(0, 0, hinge), a = plane.node(-1.5, 4), b = plane.node(1.5, 4);
  const Number leg = plane.beam(foot, a);
  plane.beam(foot, b);
  plane.beam(a, b);
  const Number other = plane.node(4, 0, hinge), top = plane.node(4, 4);
  plane.beam(other, top);
  plane.beam(b, top);
  for (const Number at : {a, b, top}) plane.load(at, 0, -1e3);
  expect_safe(lengths_of(plane, leg));
}

TEST(NamedFrames, GablesOfFortyFiveDegrees) {
  PlaneModel plane;
  const Number feet[]{plane.node(0, 0, hinge), plane.node(6, 0, hinge)};
  const Number eaves[]{plane.node(0, 3), plane.node(6, 3)}, ridge = plane.node(3, 6);
  const Number column = plane.beam(feet[0], eaves[0]);
  plane.beam(feet[1], eaves[1]);
  const Number rafter = plane.beam(eaves[0], ridge);
  plane.beam(eaves[1], ridge);
  plane.load(ridge, 0, -1e3);
  PlaneModel again = plane;
  expect_safe(lengths_of(plane, column));
  expect_safe(lengths_of(again, rafter));
}

TEST(NamedFrames, AFramesWithATie) {
  PlaneModel plane;
  const Number feet[]{plane.node(0, 0, hinge), plane.node(4, 0, hinge)};
  const Number middles[]{plane.node(1, 2), plane.node(3, 2)}, top = plane.node(2, 4);
  const Number leg = plane.beam(feet[0], middles[0]);
  plane.beam(feet[1], middles[1]);
  plane.beam(middles[0], top);
  plane.beam(middles[1], top);
  plane.truss(middles[0], middles[1]);
  plane.load(top, 0, -1e3);
  expect_safe(lengths_of(plane, leg));
}

// Two cantilevers whose tips an edge beam joins, so that no tip is free.
TEST(NamedFrames, TipsOfACanopyThatAnEdgeBeamJoins) {
  PlaneModel plane;
  const Number walls[]{plane.node(0, 0, clamp), plane.node(0, 1, clamp)};
  const Number tips[]{plane.node(3, 0), plane.node(3, 1)};
  const Number arm = plane.beam(walls[0], tips[0]);
  plane.beam(walls[1], tips[1]);
  plane.truss(tips[0], tips[1]);
  for (const Number tip : tips) plane.load(tip, -1e3, 0);
  expect_safe(lengths_of(plane, arm));
}

// The lower part holds the crane girder on a bracket, which is no storey.
TEST(NamedFrames, AColumnWithACraneBracketRunsOnPastIt) {
  PlaneModel plane;
  const Number foot = plane.node(0, 0, clamp), middle = plane.node(0, 4), head = plane.node(0, 6);
  const Number other = plane.node(6, 0, clamp), other_head = plane.node(6, 6);
  const Number column = plane.beam(foot, middle);
  plane.beam(middle, head);
  plane.beam(middle, plane.node(0.5, 4));
  plane.beam(other, other_head);
  plane.beam(head, other_head);
  plane.load(head, 0, -1e3);
  plane.load(other_head, 0, -1e3);
  const Lengths lengths = lengths_of(plane, column);
  expect_safe(lengths);
  EXPECT_LT(lengths.used, 1.1 * lengths.fine);
}

}  // namespace
}  // namespace aluframe::members

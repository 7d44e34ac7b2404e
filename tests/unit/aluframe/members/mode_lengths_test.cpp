// Factors from modes that are made up: K = π/L·√(EI/(λ·N)) by hand.
#include "aluframe/members/mode_lengths.h"

#include <cmath>
#include <numbers>

#include "aluframe/members/chart_equations.h"
#include "aluframe/members/length_factors.h"
#include "frames.h"

namespace aluframe::members {
namespace {

/// Euler load of 3 m of the frames' section, N.
constexpr double euler = std::numbers::pi * std::numbers::pi * FrameBuilder::e *
                         FrameBuilder::inertia / (3000.0 * 3000.0);

/// Two columns of 3 m, clamped at their feet, with a beam between their heads; lone elements.
FrameBuilder portal() {
  FrameBuilder frame;
  frame.node(1, 0, 0, 0).node(2, 0, 0, 3).node(3, 3, 0, 3).node(4, 3, 0, 0);
  return frame.beam(1, 1, 2).beam(2, 4, 3).beam(3, 2, 3).fixed(1).fixed(4);
}

FrameMode mode_of(Number combination, double factor, std::vector<analysis::AxialWork> work,
                  std::vector<double> compression) {
  return {.combination = combination,
          .factor = factor,
          .work = std::move(work),
          .compression = std::move(compression)};
}

/// The columns sway about y under half and an eighth of the Euler load.
FrameMode sway(Number combination, double factor) {
  return mode_of(combination, factor, {{0.8, 0}, {0.2, 0}, {0, 0}}, {euler / 2, euler / 8, 0});
}

TEST(ModeLengths, AreThoseOfTheEulerLoadAtWhichTheFrameBuckles) {
  FrameBuilder frame = portal();
  const MemberSegments segments(frame.model());
  const std::vector modes{sway(4, 2.0)};
  const auto lengths = mode_lengths(segments, modes);
  ASSERT_EQ(lengths.size(), 3U);
  EXPECT_NEAR(lengths[0].y.value().k, 1.0, 1e-12);
  EXPECT_NEAR(lengths[1].y.value().k, 2.0, 1e-12);
  EXPECT_EQ(lengths[0].y->combination, 4U);
  EXPECT_EQ(lengths[0].y->factor, 2.0);
  EXPECT_FALSE(lengths[0].z) << "the mode does not bend it about z";
  EXPECT_FALSE(lengths[2].y) << "nothing presses it";
}

TEST(ModeLengths, AreNotToldOfSegmentsThatDoLessThanATenthOfTheMost) {
  FrameBuilder frame = portal();
  const MemberSegments segments(frame.model());
  for (const double share : {0.09, 0.11}) {
    const std::vector modes{mode_of(1, 2.0, {{1.0, 0}, {share, 0}, {-0.5, 0}}, {euler, euler, 0})};
    EXPECT_EQ(mode_lengths(segments, modes)[1].y.has_value(), share > 0.1);
  }
}

TEST(ModeLengths, AreTheLargestOfModesThatPressHalfAsMuchAndOfTheSmallestFactor) {
  FrameBuilder frame = portal();
  const MemberSegments segments(frame.model());
  const auto of = [](double factor, double compression) {
    return mode_of(static_cast<Number>(factor), factor, {{1.0, 0}, {0, 0}, {0, 0}},
                   {compression, 0, 0});
  };
  const auto k_of = [&](const std::vector<FrameMode>& modes) {
    return mode_lengths(segments, modes)[0].y.value().k;
  };
  EXPECT_NEAR(k_of({of(2.0, euler / 2), of(3.0, euler / 3.6)}), std::sqrt(1.2), 1e-12);
  EXPECT_NEAR(k_of({of(2.0, euler / 2), of(3.0, euler / 12)}), 1.0, 1e-12);
  EXPECT_NEAR(k_of({of(4.0, euler / 4), of(3.0, euler / 12)}), 2.0, 1e-12);
}

TEST(ModeLengths, OfAMemberGoByItsWholeLengthAndLargestCompression) {
  FrameBuilder frame;
  frame.node(1, 0, 0, 0).node(2, 0, 0, 1).node(3, 0, 0, 3).beam(1, 1, 2).beam(2, 2, 3).fixed(1);
  frame.member({.number = 1, .name = {}, .elements = {1, 2}, .length_factors = {}});
  const MemberSegments segments(frame.model());
  const std::vector modes{mode_of(1, 1.0, {{0.5, 0}, {0.5, 0}}, {euler / 4, euler / 9})};
  EXPECT_NEAR(mode_lengths(segments, modes)[0].y.value().k, 2.0, 1e-12);
}

// The upper part has half the stiffness; under less than half of the load it counts with half.
TEST(ModeLengths, OfAMemberOfTwoSectionsAreTheLargerOfThoseThatCarry) {
  FrameBuilder frame;
  frame.node(1, 0, 0, 0).node(2, 0, 0, 1).node(3, 0, 0, 3).beam(1, 1, 2).beam(2, 2, 3).fixed(1);
  frame.with(2, [](model::Element& element) { element.section = 2; });
  frame.member({.number = 1, .name = {}, .elements = {1, 2}, .length_factors = {}});
  model::Section half = *frame.model().sections.find(2);
  half.given.iyy = FrameBuilder::inertia / 2;
  frame.model().sections.replace(half);
  const MemberSegments segments(frame.model());
  const auto k_with = [&](double upper) {
    const std::vector modes{mode_of(1, 1.0, {{0.5, 0}, {0.5, 0}}, {euler, upper * euler})};
    return mode_lengths(segments, modes)[0].y.value().k;
  };
  EXPECT_NEAR(k_with(0.25), 1.0, 1e-12);
  EXPECT_NEAR(k_with(0.9), 1.0, 1e-12);
  half.given.iyy = FrameBuilder::inertia * 2;
  frame.model().sections.replace(half);
  const MemberSegments stiff(frame.model());
  const std::vector modes{mode_of(1, 1.0, {{0.5, 0}, {0.5, 0}}, {euler, euler / 10})};
  EXPECT_NEAR(mode_lengths(stiff, modes)[0].y.value().k, 2.0, 1e-12);
}

// The upper piece of a cantilever does most of the work, the lower one bends: both buckle.
TEST(ModeLengths, AreToldOfAllPiecesOfALine) {
  FrameBuilder frame;
  frame.node(1, 0, 0, 0).node(2, 0, 0, 3).node(3, 0, 0, 6).beam(1, 1, 2).beam(2, 2, 3).fixed(1);
  const MemberSegments line(frame.model());
  for (const double lower : {0.05, 0.95}) {
    const std::vector modes{
        mode_of(1, 1.0, {{lower, 0}, {1 - lower, 0}}, {euler / 16, euler / 16})};
    for (const auto& told : mode_lengths(line, modes)) {
      EXPECT_NEAR(told.y.value().k, 4.0, 1e-12) << lower;
    }
  }
  frame.node(4, 3, 0, 3).beam(3, 2, 4).fixed(4);
  const std::vector held{
      mode_of(1, 1.0, {{0.05, 0}, {0.95, 0}, {0, 0}}, {euler / 16, euler / 16, 0})};
  const MemberSegments storeys(frame.model());
  EXPECT_FALSE(mode_lengths(storeys, held)[0].y) << "a beam to a support ends the line";
}

TEST(ModeLengths, OfModesFarFromTheFirstStandWhereNoOthersTell) {
  FrameBuilder frame = portal();
  const MemberSegments segments(frame.model());
  FrameMode far = sway(1, 8.0);
  far.is_near = false;
  const std::vector both{sway(1, 2.0), far}, alone{far};
  EXPECT_NEAR(mode_lengths(segments, both)[0].y.value().k, 1.0, 1e-12);
  EXPECT_NEAR(mode_lengths(segments, alone)[0].y.value().k, 0.5, 1e-12);
  EXPECT_FALSE(mode_lengths(segments, alone)[0].y->is_near);
  frame.model().frame = model::FrameSettings{.length_factors = model::LengthFactors::buckling};
  const LengthFactor factor = length_factors(frame.model(), alone)[0].y;
  EXPECT_EQ(factor.source, FactorSource::sway) << "it is larger than that of the mode";
}

TEST(LengthFactors, AreThoseOfModesWhenTheModelAsks) {
  FrameBuilder frame = portal();
  const std::vector modes{sway(1, 2.0)};
  EXPECT_EQ(length_factors(frame.model(), modes)[1].y.source, FactorSource::sway);
  frame.model().frame = model::FrameSettings{.length_factors = model::LengthFactors::buckling};
  const SegmentFactors second = length_factors(frame.model(), modes)[1];
  EXPECT_EQ(second.y.source, FactorSource::mode);
  EXPECT_NEAR(second.y.k, 2.0, 1e-12);
  EXPECT_EQ(second.z.source, FactorSource::sway) << "no mode tells of it";
}

TEST(LengthFactors, OfChartsLieBelowAModeByMoreThanATwentiethOrDoNot) {
  FrameBuilder frame = portal();
  const double chart = length_factors(frame.model())[0].y.k;
  for (const double ratio : {1.04, 1.06}) {
    const double compression = euler / (chart * chart * ratio * ratio);
    const std::vector modes{mode_of(1, 1.0, {{1.0, 0}, {0, 0}, {0, 0}}, {compression, 0, 0})};
    EXPECT_EQ(is_below_mode(length_factors(frame.model(), modes)[0].y), ratio > 1.05);
  }
}

/// Two elements from node 1 over 2 to 3, hinged at the ends, which are one member.
FrameBuilder strut(double rise, double offset) {
  FrameBuilder frame;
  frame.node(1, 0, 0, 0).node(2, 3, 0, rise / 2 + offset).node(3, 6, 0, rise);
  frame.beam(1, 1, 2).beam(2, 2, 3).hinged(1).hinged(3);
  return frame.member({.number = 1, .name = {}, .elements = {1, 2}, .length_factors = {}});
}

std::string objection_to(FrameBuilder& frame) {
  return length_factors(frame.model())[0].y.objection;
}

TEST(LengthFactors, SayWhyChartsDoNotHold) {
  FrameBuilder level = strut(0, 0), sloping = strut(1.0, 0), inclined = strut(2, 0),
               cambered = strut(0, 0.03), turned = strut(0, 0), changing = strut(0, 0),
               sprung = strut(0, 0);
  turned.with(2, [](model::Element& element) { element.beta = 30; });
  changing.with(2, [](model::Element& element) { element.section = 2; });
  sprung.support(2, {}, {0, 0, 10, 0, 0, 0});
  EXPECT_EQ(objection_to(level), "");
  EXPECT_EQ(objection_to(sloping), "") << "9.5°";
  EXPECT_EQ(objection_to(inclined), "it is inclined") << "18.4°";
  EXPECT_EQ(objection_to(cambered), "its axis bends at node 2");
  EXPECT_EQ(objection_to(turned), "its section turns at node 2");
  EXPECT_EQ(objection_to(changing), "its section changes at node 2");
  EXPECT_EQ(objection_to(sprung), "a spring holds node 2");
  EXPECT_EQ(length_factors(sprung.model())[0].z.objection, "") << "the spring acts along Z";
}

// A column on hinges whose head may sway: no chart has a factor, and a mode tells.
TEST(LengthFactors, AreThoseOfModesWhereTheChartIsAtItsBound) {
  FrameBuilder frame;
  frame.node(1, 0, 0, 0).node(2, 0, 0, 3).node(3, 3, 0, 3).node(4, 3, 0, 0);
  frame.beam(1, 1, 2).beam(2, 4, 3).beam(3, 2, 3).hinged(1).fixed(4).release(3, {my_start});
  EXPECT_EQ(length_factors(frame.model())[0].y.k, largest_factor);
  const std::vector modes{sway(1, 2.0)};
  const LengthFactor factor = length_factors(frame.model(), modes)[0].y;
  EXPECT_EQ(factor.source, FactorSource::mode);
  EXPECT_NEAR(factor.k, 1.0, 1e-12);
  EXPECT_EQ(factor.objection, "nothing at its ends resists its sway");
}

// Two lone elements end to end, and a beam on an inclined one.
TEST(LengthFactors, SayWhyChartsDoNotHoldAtEnds) {
  const auto objections = [](double z, double beta, double x) {
    FrameBuilder frame;
    frame.node(1, 0, 0, 0).node(2, 3, 0, 0).node(3, x, 0, z).beam(1, 1, 2).beam(2, 2, 3);
    frame.with(2, [&](model::Element& element) { element.beta = beta; });
    return length_factors(frame.hinged(1).hinged(3).model())[0].y.objection;
  };
  EXPECT_EQ(objections(0, 0, 6), "");
  EXPECT_EQ(objections(0.1, 0, 6), "it goes on at a bend in element 2");
  EXPECT_EQ(objections(0, 45, 6), "it goes on turned in element 2");
  EXPECT_EQ(objections(0, 180, 6), "");
  EXPECT_EQ(objections(3, 0, 6), "inclined element 2 frames in");
  EXPECT_EQ(objections(3, 0, 3), "") << "upright";
}

TEST(LengthFactors, AreThoseOfModesWhereChartsDoNotHold) {
  FrameBuilder frame = strut(2, 0);
  EXPECT_TRUE(need_modes(frame.model(), length_factors(frame.model())));
  EXPECT_TRUE(is_guessed(length_factors(frame.model())[0].y));
  const std::vector modes{mode_of(1, 1.0, {{0.5, 0}, {0.5, 0}}, {1000.0, 1000.0})};
  const SegmentFactors factors = length_factors(frame.model(), modes)[0];
  EXPECT_EQ(factors.y.source, FactorSource::mode);
  EXPECT_FALSE(is_guessed(factors.y));
  EXPECT_EQ(factors.z.source, FactorSource::non_sway);
  FrameBuilder level = strut(0, 0);
  EXPECT_FALSE(need_modes(level.model(), length_factors(level.model())));
}

}  // namespace
}  // namespace aluframe::members

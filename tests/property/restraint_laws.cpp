// Laws of restraints: another one never makes anything buckle sooner, none changes nothing, and
// which way a member runs does not matter.
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>

#include "aluframe/restraints/axis_segments.h"
#include "aluframe/restraints/lateral.h"
#include "aluframe/restraints/lateral_segments.h"

namespace aluframe::restraints {
namespace {

using model::Held;

constexpr double length = 8000.0;
constexpr double noise = 1.0;

/// A number spread evenly between two limits, to three digits.
double any_between(double low, double high) {
  return low + (high - low) * 1e-3 * *rc::gen::inRange(0, 1001);
}

model::Restraint any_restraint() {
  const auto held = static_cast<Held>(*rc::gen::inRange(0, 7));
  return {.held = held, .at = {any_between(0, length)}, .spacing = std::nullopt};
}

std::vector<model::Restraint> any_restraints() {
  std::vector<model::Restraint> restraints;
  const int count = *rc::gen::inRange(0, 6);
  for (int i = 0; i < count; ++i) restraints.push_back(any_restraint());
  return restraints;
}

/// Moments of two elements, of any signs.
std::vector<ElementMoments> any_moments() {
  const double node = any_between(0.1, 0.9) * length;
  std::vector<ElementMoments> member;
  for (const Segment& stretch : {Segment{0.0, node}, Segment{node, length}}) {
    ElementMoments element{.stretch = stretch, .at = {}};
    for (int i = 0; i < 5; ++i) {
      element.at.push_back({stretch.start + 0.25 * i * stretch.length(),
                            static_cast<double>(*rc::gen::inRange(-3, 4)) * 10.0});
    }
    member.push_back(element);
  }
  return member;
}

LateralSection any_section() {
  const double izz = any_between(1e5, 1e7), height = any_between(50, 300);
  return {.e = 70000,
          .izz = izz,
          .it = any_between(1e3, 1e6),
          .iw = izz * height * height / 4 * any_between(0.01, 1),
          .beta_y = any_between(-100, 100),
          .load_height = {-any_between(0, 300), -any_between(0, 300)},
          .modulus = {any_between(1e4, 1e6), any_between(1e4, 1e6)},
          .f = any_between(80, 300),
          .is_weakly_hardening = *rc::gen::arbitrary<bool>()};
}

/// The smallest φb of an element's pieces; 0 where one is free or the whole member.
double coefficient(const LateralSection& section, const LateralLayout& layout,
                   const Segment& element) {
  double smallest = 1.0;
  for (const LateralSegment& piece : layout.segments) {
    if (!piece.segment.overlaps(element)) continue;
    for (const Flange flange : {Flange::top, Flange::bottom}) {
      if (!piece.compressed[flange == Flange::top ? 0 : 1]) continue;
      if (piece.is_free || piece.segment.length() >= length) return 0.0;
      smallest =
          std::min(smallest, lateral_coefficient(section, flange, piece.segment.length()).phi_b);
    }
  }
  return smallest;
}

RC_GTEST_PROP(RestraintLaws, AnotherRestraintNeverLowersACoefficient, ()) {
  auto restraints = any_restraints();
  const auto moments = any_moments();
  const LateralSection section = any_section();
  const std::array<bool, 2> is_held{*rc::gen::arbitrary<bool>(), *rc::gen::arbitrary<bool>()};
  const auto before = lateral_layout(held_places(restraints, length), moments, is_held, noise);
  restraints.push_back(any_restraint());
  const auto after = lateral_layout(held_places(restraints, length), moments, is_held, noise);
  for (const ElementMoments& element : moments) {
    RC_ASSERT(coefficient(section, after, element.stretch) >=
              coefficient(section, before, element.stretch) - 1e-9);
  }
}

RC_GTEST_PROP(RestraintLaws, AnotherRestraintNeverLengthensABucklingLength, ()) {
  auto restraints = any_restraints();
  const double k = any_between(0.3, 3.0);
  const auto axis = *rc::gen::arbitrary<bool>() ? Axis::y : Axis::z;
  const double start = any_between(0, 0.8) * length;
  const Segment element{start, start + 0.2 * length};
  const double before =
      factor_at(axis_segments(held_places(restraints, length), axis, length, k), element);
  restraints.push_back(any_restraint());
  const double after =
      factor_at(axis_segments(held_places(restraints, length), axis, length, k), element);
  RC_ASSERT(after <= before);
  RC_ASSERT(before <= k);
}

RC_GTEST_PROP(RestraintLaws, NoRestraintLeavesAMemberWhole, ()) {
  const double k = any_between(0.3, 3.0);
  RC_ASSERT(factor_at(axis_segments({}, Axis::y, length, k), {0.0, length}) == k);
  const auto layout = lateral_layout({}, any_moments(), {true, true}, noise);
  for (const LateralSegment& piece : layout.segments) {
    RC_ASSERT(piece.segment == Segment({0.0, length}));
  }
}

RC_GTEST_PROP(RestraintLaws, AMirroredMemberHasMirroredPieces, ()) {
  const auto restraints = any_restraints();
  auto mirrored = restraints;
  for (model::Restraint& restraint : mirrored) restraint.at[0] = length - restraint.at[0];
  const auto moments = any_moments();
  std::vector<ElementMoments> back(moments.rbegin(), moments.rend());
  for (ElementMoments& element : back) {
    element.stretch = {length - element.stretch.end, length - element.stretch.start};
    std::ranges::reverse(element.at);
    for (auto& point : element.at) point[0] = length - point[0];
  }
  // Places closer than a millimetre count as the first of them, which is another one from behind.
  const auto places = held_places(restraints, length);
  for (std::size_t i = 0; i + 1 < places.size(); ++i) {
    RC_PRE(places[i + 1].at - places[i].at > 2.0 * model::same_place);
  }
  std::size_t all = 0;
  for (const auto& restraint : restraints) all += restraint.at.size();
  RC_PRE(places.size() == all);
  const auto there = lateral_layout(places, moments, {true, false}, noise);
  const auto here = lateral_layout(held_places(mirrored, length), back, {false, true}, noise);
  RC_ASSERT(there.segments.size() == here.segments.size());
  for (std::size_t i = 0; i < here.segments.size(); ++i) {
    const LateralSegment& a = there.segments[i];
    const LateralSegment& b = here.segments[here.segments.size() - 1 - i];
    RC_ASSERT(std::abs(a.segment.start - (length - b.segment.end)) < 1e-6);
    RC_ASSERT(std::abs(a.segment.end - (length - b.segment.start)) < 1e-6);
    RC_ASSERT(a.compressed == b.compressed);
    RC_ASSERT(a.is_free == b.is_free);
  }
}

RC_GTEST_PROP(RestraintLaws, AShorterPieceHasNoSmallerCriticalMoment, ()) {
  const LateralSection section = any_section();
  const double longer = any_between(500, 9000), shorter = longer * any_between(0.1, 1);
  for (const Flange flange : {Flange::top, Flange::bottom}) {
    RC_ASSERT(critical_moments(section, flange, shorter).smaller() >=
              critical_moments(section, flange, longer).smaller() * (1.0 - 1e-12));
  }
}

}  // namespace
}  // namespace aluframe::restraints

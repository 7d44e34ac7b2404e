// Laws of effective length factors, for any stiffness of the ends and any portal frame.
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <numbers>

#include "aluframe/members/chart_equations.h"
#include "aluframe/members/find_members.h"
#include "aluframe/members/length_factors.h"
#include "tests/unit/aluframe/members/frames.h"

namespace aluframe::members {
namespace {

/// A number spread evenly between two limits, to three digits.
double any_between(double low, double high) {
  return low + (high - low) * 1e-3 * *rc::gen::inRange(0, 1001);
}

double any_ratio() {
  return std::pow(10.0, any_between(-3, 3));
}

RC_GTEST_PROP(LengthFactorLaws, FactorsStayWithinTheirBounds, ()) {
  const double a = any_ratio(), b = any_ratio();
  RC_ASSERT(non_sway_factor(a, b) >= 0.5);
  RC_ASSERT(non_sway_factor(a, b) <= 1.0);
  RC_ASSERT(sway_factor(a, b) >= 1.0);
  RC_ASSERT(sway_factor(a, b) <= largest_factor);
}

RC_GTEST_PROP(LengthFactorLaws, EndsMayBeSwapped, ()) {
  const double a = any_ratio(), b = any_ratio();
  // Bisection of the same function, but for the rounding of its coefficients.
  RC_ASSERT(std::abs(non_sway_factor(a, b) - non_sway_factor(b, a)) < 1e-9);
  RC_ASSERT(std::abs(sway_factor(a, b) - sway_factor(b, a)) < 1e-9);
}

RC_GTEST_PROP(LengthFactorLaws, ASofterEndNeverShortensTheColumn, ()) {
  const double a = any_ratio(), b = any_ratio(), softer = a * any_between(1, 10);
  RC_ASSERT(non_sway_factor(softer, b) >= non_sway_factor(a, b) - 1e-12);
  RC_ASSERT(sway_factor(softer, b) >= sway_factor(a, b) - 1e-12);
}

/// A portal of any size in two bays, one along each axis, that stands on springs alike about all
/// axes; feet may be of two elements.
struct Portal {
  double height, along_x, along_y, spring;
  bool is_split;
};

Portal any_portal() {
  return {.height = any_between(2, 6),
          .along_x = any_between(2, 9),
          .along_y = any_between(2, 9),
          .spring = FrameBuilder::e * FrameBuilder::inertia * any_between(0, 1) * 1e-3,
          .is_split = *rc::gen::arbitrary<bool>()};
}

/// The portal turned about the vertical by an angle in degrees. Sections of columns do not turn
/// with their axis, which stays as it is, so their `beta` does.
FrameBuilder turned(const Portal& portal, double degrees) {
  const double angle = degrees * std::numbers::pi / 180.0;
  FrameBuilder frame;
  const auto corner = [&](Number number, double x, double y) {
    const double turned_x = x * std::cos(angle) - y * std::sin(angle);
    const double turned_y = x * std::sin(angle) + y * std::cos(angle);
    frame.node(number, turned_x, turned_y, 0).node(10 + number, turned_x, turned_y, portal.height);
    const double k = portal.spring;
    frame.support(number, {true, true, true, false, false, false}, {0, 0, 0, k, k, k});
    if (portal.is_split) {
      frame.node(20 + number, turned_x, turned_y, 0.4 * portal.height);
      frame.beam(number, number, 20 + number).beam(10 + number, 20 + number, 10 + number);
    } else {
      frame.beam(number, number, 10 + number);
    }
  };
  corner(1, 0, 0);
  corner(2, portal.along_x, 0);
  corner(3, 0, portal.along_y);
  for (const model::Element& element :
       std::vector(frame.model().elements.begin(), frame.model().elements.end())) {
    frame.with(element.number, [&](model::Element& column) { column.beta = degrees; });
  }
  frame.beam(21, 11, 12).beam(22, 11, 13).release(22, {my_end});
  complete(frame.model());
  return frame;
}

void require_same_factors(FrameBuilder& a, FrameBuilder& b) {
  const auto before = length_factors(a.model());
  const auto after = length_factors(b.model());
  RC_ASSERT(before.size() == after.size());
  for (std::size_t i = 0; i < before.size(); ++i) {
    // Coordinates are rounded, and bisection is good to 1e-15 of u.
    RC_ASSERT(std::abs(before[i].y.k - after[i].y.k) < 1e-6);
    RC_ASSERT(std::abs(before[i].z.k - after[i].z.k) < 1e-6);
  }
}

RC_GTEST_PROP(LengthFactorLaws, FactorsDoNotDependOnTheDirectionOfTheFrame, ()) {
  const Portal portal = any_portal();
  FrameBuilder before = turned(portal, 0), after = turned(portal, any_between(-180, 180));
  require_same_factors(before, after);
}

RC_GTEST_PROP(LengthFactorLaws, FactorsDoNotDependOnHowColumnsAreDivided, ()) {
  Portal portal = any_portal();
  portal.is_split = false;
  FrameBuilder whole = turned(portal, 0);
  portal.is_split = true;
  FrameBuilder split = turned(portal, 0);
  const auto of_whole = length_factors(whole.model());
  const auto of_split = length_factors(split.model());
  // Found members stand first, so that the three columns do in both.
  RC_ASSERT(of_whole.size() == of_split.size());
  for (std::size_t i = 0; i < 3; ++i) {
    RC_ASSERT(of_split[i].elements.size() == std::size_t{2});
    RC_ASSERT(std::abs(of_split[i].length - of_whole[i].length) < 1e-6);
    RC_ASSERT(std::abs(of_split[i].y.k - of_whole[i].y.k) < 1e-9);
    RC_ASSERT(std::abs(of_split[i].z.k - of_whole[i].z.k) < 1e-9);
  }
  // Without members the two parts of a column have its buckling length still.
  split.model().members = {};
  for (const SegmentFactors& part : length_factors(split.model())) {
    const std::size_t column = (part.elements[0] - 1) % 10;
    if (part.elements[0] > 20) continue;  // beams
    const double expected = of_whole[column].y.k * of_whole[column].length;
    RC_ASSERT(std::abs(part.y.k * part.length / expected - 1.0) < 1e-9);
  }
}

}  // namespace
}  // namespace aluframe::members

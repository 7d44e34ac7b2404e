#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <numeric>

#include "aluframe/analysis/buckling.h"
#include "aluframe/analysis/second_order.h"
#include "analysis_changes.h"
#include "analysis_frames.h"

namespace aluframe::analysis {
namespace {

constexpr double certain = 3e-6;  // two factors, each certain to 1e-6

using Modes = std::vector<BucklingMode>;

Modes modes_under(const Frame& frame, const LoadCase& loads, const std::vector<double>& axial,
                  int count) {
  auto found = Buckling(frame).find(loads, axial, count);
  if (const auto* problem = std::get_if<Problem>(&found)) RC_FAIL(problem->text);
  return std::get<BucklingResult>(std::move(found)).modes;
}

std::vector<double> axial_forces(const Frame& frame, const LoadCase& loads) {
  return axial_forces_at_start(solved(frame, {loads})[0]);
}

/// How far factors of one frame in two descriptions may lie apart: its axial forces are certain to
/// single precision of the largest force, whatever is left of that of those that buckle it.
double uncertainty(const Frame& frame, const LoadCase& loads, const Modes& modes) {
  const CaseResult result = solved(frame, {loads})[0];
  double largest = 0.0;
  for (const ElementForces& forces : result.forces) {
    for (const SectionForces& at : forces) {
      for (std::size_t i = 0; i < 3; ++i) largest = std::max(largest, std::abs(double{at[i]}));
      for (std::size_t i = 3; i < 6; ++i) {
        largest = std::max(largest, std::abs(double{at[i]}) / 1000.0);
      }
    }
  }
  double least = largest;
  for (const BucklingMode& mode : modes) {
    for (std::size_t e = 0; e < mode.work.size(); ++e) {
      if (mode.work[e].sum() < 0.01) continue;
      double axial = 0.0;
      for (const SectionForces& at : result.forces[e]) {
        axial = std::max(axial, std::abs(double{at[0]}));
      }
      least = std::min(least, axial);
    }
  }
  return certain + 4e-6 * largest / least;
}

Modes modes_of(const Frame& frame, const LoadCase& loads, int count = 1) {
  return modes_under(frame, loads, axial_forces(frame, loads), count);
}

/// Factors without a mode count as the largest that is looked for.
double smallest(const Modes& modes) {
  return modes.empty() ? largest_buckling_factor : modes.front().factor;
}

void assert_same_factor(double found, double expected, double share = certain) {
  RC_PRE(share < 1e-2);
  // Beyond, the axial forces that decide are near those that count as rounding.
  constexpr double none = 0.01 * largest_buckling_factor;
  if (found > none && expected > none) return;
  if (std::abs(found - expected) <= share * expected) return;
  RC_LOG() << "found " << found << ", expected " << expected << std::endl;
  RC_FAIL("factors differ");
}

RC_GTEST_PROP(BucklingLaws, FactorsTimesLoadsStayTheSame, ()) {
  const Frame frame = any_frame();
  const LoadCase loads = any_loads_of_a_site(frame);
  const double times = number_between(0.2, 5);
  const LoadCase scaled = combine(std::array<FactoredCase, 1>{{{&loads, times}}});
  const auto axial = axial_forces(frame, loads);
  std::vector<double> more = axial;
  for (double& n : more) n *= times;
  assert_same_factor(times * smallest(modes_under(frame, scaled, more, 1)),
                     smallest(modes_under(frame, loads, axial, 1)));
}

RC_GTEST_PROP(BucklingLaws, RenumberingLeavesFactors, ()) {
  const Frame frame = any_frame();
  const LoadCase loads = any_loads_of_a_site(frame);
  const Renumbered other = renumbered_by_chance(frame, loads);
  const auto axial = axial_forces(frame, loads);
  std::vector<double> moved(axial.size());
  for (std::size_t i = 0; i < axial.size(); ++i) moved[other.element_at[i]] = axial[i];
  assert_same_factor(smallest(modes_under(other.frame, other.loads, moved, 1)),
                     smallest(modes_under(frame, loads, axial, 1)));
}

RC_GTEST_PROP(BucklingLaws, TurningTheWholeLeavesFactors, ()) {
  const Frame frame = any_frame();
  const LoadCase loads = any_loads(frame);
  const Rotation r = any_rotation();
  const auto axial = axial_forces(frame, loads);
  assert_same_factor(smallest(modes_under(turned(r, frame), turned(r, loads), axial, 1)),
                     smallest(modes_under(frame, loads, axial, 1)));
}

RC_GTEST_PROP(BucklingLaws, SplittingABeamLeavesFactors, ()) {
  Frame frame = any_frame();
  LoadCase loads = any_loads_of_a_site(frame);
  // Rigid in shear: near a shear stiffness the rounding of axial forces decides.
  for (Element& e : frame.elements) e.stiffness.ay = e.stiffness.az = 0.0;
  std::size_t place = place_below(frame.elements.size());
  if (frame.elements[place].kind == ElementKind::truss) place = 0;
  const Modes before = modes_of(frame, loads, 2);
  RC_PRE(before.size() == 2U);
  const double share = uncertainty(frame, loads, before);
  split(frame, loads, place, number_between(0.1, 0.9));
  const Modes after = modes_of(frame, loads, 2);
  for (std::size_t i = 0; i < 2; ++i) {
    assert_same_factor(i < after.size() ? after[i].factor : largest_buckling_factor,
                       before[i].factor, share);
  }
}

RC_GTEST_PROP(BucklingLaws, ReversingAnElementLeavesFactors, ()) {
  Frame frame = any_frame();
  LoadCase loads;  // on nodes: those on elements have places from its start
  loads.nodal = any_loads(frame).nodal;
  const auto axial = axial_forces(frame, loads);  // alike along each element
  const double before = smallest(modes_under(frame, loads, axial, 1));
  const std::vector<Geometry> geometry = element_geometry(frame);
  Element& e = frame.elements[place_below(frame.elements.size())];
  const auto place = static_cast<std::size_t>(&e - frame.elements.data());
  // z stays where it is, y turns to the other side.
  const Eigen::RowVector3d z = geometry[place].axes.row(2);
  e.beta = 0.0;
  e.reference = Vector3{z.x(), z.y(), z.z()};
  std::swap(e.start, e.end);
  std::ranges::rotate(e.released, e.released.begin() + 6);
  assert_same_factor(smallest(modes_under(frame, loads, axial, 1)), before);
}

/// The frame with one change for the stiffer, whatever it is.
Frame stiffened(Frame frame) {
  const std::size_t node = place_below(frame.nodes.size()), i = place_below(6);
  switch (*rc::gen::inRange(0, 4)) {
    case 0: {
      Support support{.node = node};
      // A rotation that only trusses meet is none of the frame's.
      support.fixed[place_below(3)] = true;
      frame.supports.push_back(support);
      break;
    }
    case 1: {
      Spring spring{.node = node};
      spring.stiffness[i] = i < 3 ? number_between(1, 1e5) : number_between(1e5, 1e11);
      frame.springs.push_back(spring);
      break;
    }
    case 2: {
      Stiffness& s = frame.elements[place_below(frame.elements.size())].stiffness;
      const double times = number_between(1, 20);
      for (double* value : {&s.area, &s.ay, &s.az, &s.it, &s.iyy, &s.izz}) *value *= times;
      break;
    }
    default:
      frame.elements[place_below(frame.elements.size())].released.fill(false);
  }
  return frame;
}

RC_GTEST_PROP(BucklingLaws, UnderTheSameAxialForcesStiffnessNeverLowersFactors, ()) {
  const Frame frame = any_frame();
  const LoadCase loads = any_loads(frame);  // without weight, which grows with areas
  const auto axial = axial_forces(frame, loads);
  const Modes before = modes_under(frame, loads, axial, 2);
  const Modes after = modes_under(stiffened(frame), loads, axial, 2);
  RC_ASSERT(after.size() <= before.size());
  for (std::size_t i = 0; i < after.size(); ++i) {
    RC_ASSERT(after[i].factor >= before[i].factor * (1.0 - certain));
  }
}

RC_GTEST_PROP(BucklingLaws, ModesAscendAndTheFirstIsTheFirst, ()) {
  const Frame frame = any_frame();
  const LoadCase loads = any_loads_of_a_site(frame);
  const Modes three = modes_of(frame, loads, 3), one = modes_of(frame, loads);
  RC_ASSERT(one.empty() == three.empty());
  if (one.empty()) return;
  RC_ASSERT(one.size() == 1U);
  RC_ASSERT(one[0].factor == three[0].factor);
  for (std::size_t i = 1; i < three.size(); ++i) {
    RC_ASSERT(three[i].factor >= three[i - 1].factor);
  }
  double sum = 0.0;
  for (const AxialWork& work : one[0].work) sum += work.sum();
  RC_ASSERT(sum > 0.0);
}

/// A building of equal storeys whose columns shorten alike under loads on their tops, so that
/// nothing bends before it buckles. @return with loads
std::pair<Frame, LoadCase> any_building() {
  Frame frame;
  const auto bays = *rc::gen::inRange<std::size_t>(1, 3),
             storeys = *rc::gen::inRange<std::size_t>(1, 4);
  const auto node = [&](std::size_t x, std::size_t y, std::size_t z) {
    return (z * 2 + y) * (bays + 1) + x;
  };
  Element column = any_beam(0, 0, 0);
  const std::array<Element, 2> beams{any_beam(0, 0, 0), any_beam(0, 0, 0)};
  const auto add = [&](Element element, std::size_t start, std::size_t end) {
    element.number = static_cast<Number>(frame.elements.size() + 1);
    element.start = start;
    element.end = end;
    frame.elements.push_back(element);
  };
  LoadCase loads;
  const bool is_clamped = by_chance(50);
  for (std::size_t z = 0; z <= storeys; ++z) {
    for (std::size_t y = 0; y < 2; ++y) {
      for (std::size_t x = 0; x <= bays; ++x) {
        frame.nodes.push_back({static_cast<Number>(frame.nodes.size() + 1),
                               4000.0 * static_cast<double>(x), 3000.0 * static_cast<double>(y),
                               3500.0 * static_cast<double>(z)});
        const std::size_t here = node(x, y, z);
        if (z == 0) {
          frame.supports.push_back({here, {true, true, true, is_clamped, is_clamped, true}});
          continue;
        }
        add(column, node(x, y, z - 1), here);
        if (x > 0) add(beams[0], node(x - 1, y, z), here);
        if (y > 0) add(beams[1], node(x, 0, z), here);
        if (z == storeys) loads.nodal.push_back({here, {0, 0, -1000}});
      }
    }
  }
  return {frame, loads};
}

RC_GTEST_PROP(BucklingLaws, SecondOrderStandsJustBelowTheFactorAndNotAbove, ()) {
  const auto [frame, loads] = any_building();
  const double factor = smallest(modes_of(frame, loads));
  const auto times = [&loads = loads](double by) {
    return combine(std::array<FactoredCase, 1>{{{&loads, by}}});
  };
  const auto below = analyse_second_order(frame, times(0.999 * factor));
  if (const auto* problem = std::get_if<Problem>(&below)) RC_FAIL(problem->text);
  const auto above = analyse_second_order(frame, times(1.001 * factor));
  const auto* problem = std::get_if<Problem>(&above);
  RC_ASSERT(problem != nullptr);
  RC_ASSERT(problem->kind == Problem::Kind::buckling);
}

}  // namespace
}  // namespace aluframe::analysis

// Frames with numbers that no engineer means: the analysis ends in a result of finite numbers or in
// a problem told in words.

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>

#include "aluframe/analysis/second_order.h"
#include "analysis_frames.h"

namespace aluframe::analysis {
namespace {

double extreme_number() {
  constexpr double infinite = std::numeric_limits<double>::infinity();
  return *rc::gen::element(0.0, -1.0, 1e-300, 1e-30, 1e15, 1e30, 1e150, 1e300, -1e300, 1e308,
                           std::numeric_limits<double>::denorm_min(), infinite,
                           std::numeric_limits<double>::quiet_NaN());
}

/// Every number of a frame and its loads.
std::vector<double*> numbers_of(Frame& frame, LoadCase& loads) {
  std::vector<double*> all;
  const auto add = [&](auto&... one) { (all.push_back(&one), ...); };
  const auto add_all = [&](auto&... several) {
    const auto each = [&](auto& values) {
      for (double& value : values) all.push_back(&value);
    };
    (each(several), ...);
  };
  for (Node& i : frame.nodes) add(i.x, i.y, i.z);
  for (Element& i : frame.elements) {
    Stiffness& s = i.stiffness;
    add(s.e, s.g, s.area, s.ay, s.az, s.it, s.iyy, s.izz, i.beta, i.density, i.expansion);
  }
  for (Spring& i : frame.springs) add_all(i.stiffness);
  add_all(loads.self_weight);
  for (NodalLoad& i : loads.nodal) add_all(i.value);
  for (DistributedLoad& i : loads.distributed) {
    add(i.from, i.to);
    add_all(i.from_value, i.to_value);
  }
  for (PointLoad& i : loads.points) {
    add(i.at);
    add_all(i.force, i.moment);
  }
  for (Temperature& i : loads.temperatures) {
    add(i.change, i.difference_y, i.depth_y, i.difference_z, i.depth_z);
  }
  for (Settlement& i : loads.settlements) add(i.value);
  return all;
}

/// A frame under loads, a few of whose numbers are extreme.
struct AnyNumbers {
  Frame frame = any_frame();
  LoadCase loads = any_loads(frame);

  AnyNumbers() {
    const auto numbers = numbers_of(frame, loads);
    for (int i = *rc::gen::inRange(1, 4); i > 0; --i) {
      *numbers[place_below(numbers.size())] = extreme_number();
    }
  }
};

template <class Values>
void assert_finite(const Values& values, const char* what) {
  for (const auto value : values) {
    if (!std::isfinite(value)) RC_FAIL(what);
  }
}

void assert_finite(const CaseResult& result) {
  for (const Vector6& u : result.displacements) assert_finite(u, "a displacement is not finite");
  for (const Reaction& r : result.reactions) assert_finite(r.value, "a reaction is not finite");
  for (const ElementForces& element : result.forces) {
    for (const SectionForces& at : element) assert_finite(at, "a force is not finite");
  }
  assert_finite(std::array{result.equilibrium.nodes, result.equilibrium.whole},
                "an equilibrium is not finite");
}

void assert_told(const Problem& problem) {
  RC_ASSERT(!problem.text.empty());
  RC_ASSERT(problem.kind != Problem::Kind::solver);
}

RC_GTEST_PROP(FrameOfAnyNumbers, HasAFiniteResultOrAProblem, ()) {
  const AnyNumbers any;
  const auto result = analyse(any.frame, {&any.loads, 1});
  if (const auto* problem = std::get_if<Problem>(&result)) {
    assert_told(*problem);
  } else {
    assert_finite(std::get<Solution>(result).cases[0]);
  }
}

RC_GTEST_PROP(FrameOfAnyNumbers, HasAFiniteResultOfSecondOrderOrAProblem, ()) {
  const AnyNumbers any;
  const auto result = analyse_second_order(any.frame, any.loads);
  if (const auto* problem = std::get_if<Problem>(&result)) {
    assert_told(*problem);
  } else {
    assert_finite(std::get<SecondOrderResult>(result).result);
  }
}

}  // namespace
}  // namespace aluframe::analysis

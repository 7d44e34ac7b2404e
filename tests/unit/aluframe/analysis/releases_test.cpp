#include <gtest/gtest.h>

#include <string>

#include "frames.h"

namespace aluframe::analysis {
namespace {

// Every pattern of releases under every member load, against the displacement method: stiffness and
// fixed-end forces of the element, the released ends displaced until their forces vanish, all at
// once.
constexpr double length = 2400.0;

struct NamedLoad {
  std::string name;
  LoadCase load_case;
};

void PrintTo(const NamedLoad& load, std::ostream* stream) {
  *stream << load.name;
}

NamedLoad distributed(std::string name, LoadAxes axes, double from, double to) {
  NamedLoad load{std::move(name), {}};
  load.load_case.distributed.push_back({0, axes, {1.5, -2.5, -4}, {0.5, 1.0, -9}, from, to});
  return load;
}

NamedLoad point(std::string name, LoadAxes axes, Vector3 force, Vector3 moment) {
  NamedLoad load{std::move(name), {}};
  load.load_case.points.push_back({0, axes, force, moment, 0.35});
  return load;
}

std::vector<NamedLoad> all_loads() {
  std::vector<NamedLoad> loads;
  for (const auto& [name, axes] : {std::pair{"local", LoadAxes::local},
                                   {"global", LoadAxes::global},
                                   {"projected", LoadAxes::projected}}) {
    const std::string end = std::string("_") + name;
    loads.push_back(distributed("whole" + end, axes, 0.0, 1.0));
    loads.push_back(distributed("part" + end, axes, 0.15, 0.6));
    loads.push_back(point("force" + end, axes, {2000, -3000, -5000}, {}));
    loads.push_back(point("moment" + end, axes, {}, {4e5, 7e5, -3e5}));
  }
  NamedLoad temperature{"temperature", {}};
  temperature.load_case.temperatures.push_back({0, 35, 12, 80, 25, 160});
  loads.push_back(temperature);
  NamedLoad weight{"weight", {}};
  weight.load_case.self_weight = {0.1, 0.2, -1};
  loads.push_back(weight);
  NamedLoad settlement{"settlement", {}};
  settlement.load_case.settlements = {{1, dz, -7}, {1, ry, 0.004}, {0, dy, 3}};
  loads.push_back(settlement);
  return loads;
}

/// An inclined element with both ends clamped, one release pattern.
Frame released_frame(const std::array<bool, 12>& released) {
  Frame frame;
  add_node(frame, 0, 0, 0);
  add_node(frame, length * 0.6, length * 0.48, length * 0.64);
  Element& element = add_element(frame, 0, 1, shear_stiffness());
  element.released = released;
  element.density = 2.7e-6;
  element.expansion = 2.3e-5;
  element.beta = 20.0;
  frame.supports = {{0, clamped}, {1, clamped}};
  return frame;
}

/// Patterns of releases that leave the element restrained, by bits 0 to 11.
std::vector<unsigned> usable_patterns() {
  std::vector<unsigned> patterns;
  for (unsigned bits = 0; bits < 4096; ++bits) {
    const auto off = [&](int i) { return (bits >> i & 1U) != 0; };
    bool restrained = !(off(0) && off(6)) && !(off(3) && off(9));
    // A bending plane has two equilibrium conditions: at most two of its four may be released, and
    // not both shears.
    for (const auto& plane : {std::array{1, 5, 7, 11}, std::array{2, 4, 8, 10}}) {
      int count = 0;
      for (const int i : plane) count += off(i) ? 1 : 0;
      restrained = restrained && count <= 2 && !(off(plane[0]) && off(plane[2]));
    }
    if (restrained) patterns.push_back(bits);
  }
  return patterns;
}

std::array<bool, 12> pattern(unsigned bits) {
  std::array<bool, 12> released{};
  for (std::size_t i = 0; i < 12; ++i) released[i] = (bits >> i & 1U) != 0;
  return released;
}

/// Closed form: fixed-end forces of the element, changed by displacements of the released ends
/// until their forces vanish (the displacement method, all released ends at once).
Vector12 expected_end_forces(const Matrix12& k, const Vector12& fixed_end, unsigned bits) {
  std::vector<int> free;
  for (int i = 0; i < 12; ++i) {
    if ((bits >> i & 1U) != 0) free.push_back(i);
  }
  if (free.empty()) return fixed_end;
  const Eigen::MatrixXd own = k(free, free);
  const Eigen::VectorXd displacements = own.fullPivLu().solve(-fixed_end(free));
  return fixed_end + k(Eigen::all, free) * displacements;
}

Vector12 end_forces(const ElementForces& f) {
  const auto& [start, a, b, c, end] = f;
  Vector12 v;
  v << -start[n], start[fy], start[fz], -start[mx], start[my], -start[mz], end[n], -end[fy],
      -end[fz], end[mx], -end[my], end[mz];
  return v;
}

class EveryLoad : public testing::TestWithParam<NamedLoad> {};
INSTANTIATE_TEST_SUITE_P(Loads, EveryLoad, testing::ValuesIn(all_loads()),
                         [](const auto& load) { return load.param.name; });

/// Stiffness of the element from unit settlements of a clamped one, column by column; those results
/// are checked against textbook formulas elsewhere.
Matrix12 stiffness_by_settlements() {
  const Frame frame = released_frame({});
  const Node &a = frame.nodes[0], &b = frame.nodes[1];
  const Axes axes = geometry_between(a, b, 20.0).axes;
  Matrix12 k;
  for (int i = 0; i < 12; ++i) {
    LoadCase unit;
    const Vector12 displacements = to_global(axes, Vector12(Vector12::Unit(i)));
    for (std::size_t j = 0; j < 12; ++j) {
      unit.settlements.push_back({j / 6, j % 6, displacements[static_cast<int>(j)]});
    }
    k.col(i) = end_forces(solved(frame, unit).forces[0]);
  }
  return k;
}

TEST_P(EveryLoad, EveryReleasePatternFreesItsEndsAndNoOthers) {
  const Vector12 fixed_end = end_forces(solved(released_frame({}), GetParam().load_case).forces[0]);
  const Matrix12 k = stiffness_by_settlements();
  const double force = fixed_end.cwiseAbs().maxCoeff();
  for (const unsigned bits : usable_patterns()) {
    const Frame frame = released_frame(pattern(bits));
    const Vector12 found = end_forces(solved(frame, GetParam().load_case).forces[0]);
    const Vector12 expected = expected_end_forces(k, fixed_end, bits);
    for (int i = 0; i < 12; ++i) {
      // Single precision of the forces and of k, at most a length apart in size.
      ASSERT_NEAR(found[i], expected[i], 2e-5 * force) << "pattern " << bits << " place " << i;
      if ((bits >> i & 1U) != 0) {
        ASSERT_EQ(found[i], 0.0) << "pattern " << bits;
      }
    }
  }
}

/// One release pattern of a horizontal beam under a uniform load, with its textbook solutions.
struct Textbook {
  const char* name;
  std::array<bool, 12> released;
  double start_moment, end_moment, start_shear;  // parts of qL², qL², qL
};

void PrintTo(const Textbook& one, std::ostream* stream) {
  *stream << one.name;
}

constexpr std::array<bool, 12> release(int a, int b = -1) {
  std::array<bool, 12> released{};
  released[static_cast<std::size_t>(a)] = true;
  if (b >= 0) released[static_cast<std::size_t>(b)] = true;
  return released;
}

class UniformLoadOnReleasedBeam : public testing::TestWithParam<Textbook> {};
INSTANTIATE_TEST_SUITE_P(Textbook, UniformLoadOnReleasedBeam,
                         testing::Values(Textbook{"HingeAtStart", release(4), 0, -1.0 / 8, 3.0 / 8},
                                         Textbook{"HingeAtEnd", release(10), -1.0 / 8, 0, 5.0 / 8},
                                         Textbook{"TwoHinges", release(4, 10), 0, 0, 1.0 / 2},
                                         Textbook{"SlidingStart", release(2), 1.0 / 6, -1.0 / 3, 0},
                                         Textbook{"SlidingEnd", release(8), -1.0 / 3, 1.0 / 6, 1},
                                         Textbook{"FreeEnd", release(8, 10), -1.0 / 2, 0, 1}),
                         [](const auto& one) { return one.param.name; });

TEST_P(UniformLoadOnReleasedBeam, HasTheTextbooksForces) {
  Frame frame = cantilever(length);
  frame.supports.push_back({1, clamped});
  frame.elements[0].released = GetParam().released;
  LoadCase load_case;
  load_case.distributed.push_back({.element = 0, .from_value = {0, 0, -3}, .to_value = {0, 0, -3}});
  const ElementForces f = solved(frame, load_case).forces[0];
  const double shear = 3 * length, moment = shear * length;
  EXPECT_THAT(f[0][my], float_near(GetParam().start_moment * moment, moment));
  EXPECT_THAT(f[4][my], float_near(GetParam().end_moment * moment, moment));
  EXPECT_THAT(f[0][fz], float_near(GetParam().start_shear * shear, shear));
}

TEST(Releases, HingeInTheMiddleOfTwoBeamsLeavesTwoCantilevers) {
  // Both ends clamped, a hinge at the middle node on one side, load P there: P/2 each, P·L/2 fixed.
  Frame frame;
  for (const double x : {0.0, 1000.0, 2000.0}) add_node(frame, x, 0, 0);
  add_element(frame, 0, 1);
  add_element(frame, 1, 2).released[4] = true;
  frame.supports = {{0, clamped}, {2, clamped}};
  LoadCase load_case;
  load_case.nodal.push_back({1, {0, 0, -800}});
  const CaseResult r = solved(frame, load_case);
  EXPECT_THAT(r.reactions[0].value[dz], close_to(400));
  EXPECT_THAT(r.reactions[1].value[ry], close_to(400 * 1000));
  EXPECT_EQ(r.forces[1][0][my], 0.0F);
}

TEST(Releases, MomentOnTheReleasedEndOfAnElementBendsTheElement) {
  // The load stands between hinge and element, so the element carries it to its clamped end.
  Frame frame = cantilever(1000);
  frame.supports.push_back({1, clamped});
  frame.elements[0].released[10] = true;
  LoadCase load_case;
  load_case.points.push_back({.element = 0, .moment = {0, 5e4, 0}, .at = 1.0});
  const ElementForces f = solved(frame, load_case).forces[0];
  EXPECT_EQ(f[4][my], 0.0F);
  // Propped cantilever under an end moment M: half of it arrives at the clamp (carry-over).
  EXPECT_THAT(f[0][my], float_near(0.5 * 5e4, 5e4));
}

}  // namespace
}  // namespace aluframe::analysis

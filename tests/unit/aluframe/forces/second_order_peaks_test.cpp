// Places between the five positions where axial forces act on the deflection, against closed forms
// (Timoshenko and Gere, Theory of Elastic Stability, chapter 1) and against a fine subdivision.

#include <algorithm>
#include <numbers>

#include "tests/unit/aluframe/forces/peaks.h"

namespace aluframe::forces {
namespace {

constexpr double span = 4000.0, force = 9000.0, moment = 8e6;
constexpr double euler = std::numbers::pi * std::numbers::pi * ei_y / (span * span);

/// The peaks of a simple beam under these loads and an axial force at its end.
std::vector<PlaceForces> bowed_peaks(model::CaseLoads loads, double axial,
                                     const std::vector<Weights>& weights = {}) {
  model::Model model = simple_beam(span);
  model::Section section = plain_section();
  section.given.izz = section.given.iyy;  // so that it buckles about no axis before
  model.sections.replace(section);
  model.analysis.second_order = true;
  loads.nodal.push_back({{false, {10}}, {axial}});
  return peaks_under(model, loads, weights);
}

/// The largest My among them, with its place.
PlaceForces largest(const std::vector<PlaceForces>& places) {
  if (places.empty()) throw std::runtime_error("no places");
  return *std::ranges::max_element(places, {},
                                   [](const PlaceForces& place) { return place.forces[my]; });
}

/// The five positions come from eight pieces, whose error in a moment is that of the amplification.
void expect_peak(const PlaceForces& found, double x, double value) {
  EXPECT_NEAR(found.x, x, 1e-3 * span);
  EXPECT_NEAR(found.forces[my], value, 1e-4 * value);
}

TEST(PeakOfABeamColumn, UnderAMomentAtOneEndLiesInside) {
  // M0·sin(k(L - x))/sin(kL), so M0/sin(kL) at L - π/(2k).
  const double axial = 0.49 * euler, k = std::sqrt(axial / ei_y);
  model::CaseLoads loads;
  loads.nodal.push_back({{false, {20}}, {0, 0, 0, 0, moment, 0}});
  const auto places = bowed_peaks(loads, -axial);
  ASSERT_EQ(places.size(), 1U);
  expect_peak(places[0], span - std::numbers::pi / (2 * k), moment / std::sin(k * span));
  EXPECT_NEAR(places[0].forces[n], -axial, 1e-6 * axial);
}

TEST(PeakOfABeamColumn, UnderAPointForceIsItsPlace) {
  // P·sin(ka)·sin(kb)/(k·sin(kL)).
  const double axial = 0.3 * euler, k = std::sqrt(axial / ei_y);
  const double value = force * std::sin(k * 1500) * std::sin(k * 2500) / (k * std::sin(k * span));
  const auto places = bowed_peaks(point(model::PointLoad::Kind::force, 2, -force, 0.375), -axial);
  expect_peak(largest(places), 1500, value);
}

TEST(PeakOfABeamColumn, InTensionIsSmallerAndNoLessExact) {
  // With k² = N/EI the same with hyperbolic sines.
  const double axial = 2 * euler, k = std::sqrt(axial / ei_y);
  const double value =
      force * std::sinh(k * 1500) * std::sinh(k * 2500) / (k * std::sinh(k * span));
  const auto places = bowed_peaks(point(model::PointLoad::Kind::force, 2, -force, 0.375), axial);
  expect_peak(largest(places), 1500, value);
}

TEST(PeakOfABeamColumn, WithoutAxialForceIsThatOfFirstOrder) {
  const auto places = bowed_peaks(point(model::PointLoad::Kind::force, 2, -force, 0.375), 0);
  ASSERT_EQ(places.size(), 2U);
  expect_place(places[0], 1500, my, force * 1500 * 2500 / span);
}

TEST(ElementsWithoutBending, HaveNoPeaksInSecondOrder) {
  EXPECT_TRUE(bowed_peaks({}, -0.5 * euler).empty());
}

/// A propped beam of a section with webs and flanges, which shear deforms, in equal pieces, under
/// compression that varies along it, loads in both planes, a force at 7/16 and a warmer top.
model::Model cut_beam(std::size_t pieces) {
  model::Model model = bare_model();
  model.analysis.second_order = true;
  model::Section section;
  section.number = 1;
  section.shape = model::Shape::h_section;
  section.dimensions = {240, 100, 6, 8, 100, 8};
  model.sections.replace(section);
  for (std::size_t i = 0; i <= pieces; ++i) {
    const auto number = static_cast<model::Number>(i + 1);
    const double x = span * static_cast<double>(i) / static_cast<double>(pieces);
    add_node(model, number, x, 0, 0);
    if (i > 0) model.elements.add(beam(number, number - 1, number));
  }
  const auto last = static_cast<model::Number>(pieces + 1);
  add_support(model, 1, clamped);
  add_support(model, last, {false, true, true, false, false, false});
  model::CaseLoads loads;
  loads.span = {partial(2, 0, 1, -4, -4), partial(1, 0, 1, 0.3, 0.3), partial(0, 0, 1, -6, -6)};
  loads.nodal.push_back({{false, {last}}, {-50e3, 0, 0, 0, 3e6, 1e6}});
  loads.temperature.push_back({{true, {}}, 0, 0, 15});
  if (pieces == 1) {
    loads.points = point(model::PointLoad::Kind::force, 2, -force, 7.0 / 16).points;
  } else {
    loads.nodal.push_back(
        {{false, {static_cast<model::Number>(7 * pieces / 16 + 1)}}, {0, 0, -force}});
  }
  add_case(model, loads);
  add_sum(model, {{1, 1.0}});
  return with_forces(model);
}

TEST(ForcesInSecondOrder, AreThoseOfAFineSubdivision) {
  constexpr std::size_t pieces = 32;
  const model::Model whole = cut_beam(1), fine = cut_beam(pieces);
  const model::CombinationEvaluator of_fine(fine);
  const auto five = model::CombinationEvaluator(whole).evaluate(0, 1, model::Side::maximum);
  const InnerForces inner(whole);
  const std::vector<model::CombinationPlan::CaseFactor> cases{{0, 1.0}};
  std::array<double, 6> largest{};
  std::array<double, 6> error{};
  for (std::size_t element = 0; element < pieces; ++element) {
    const auto expected = of_fine.evaluate(element, 1, model::Side::maximum);
    for (std::size_t position = 1; position < 5; ++position) {
      const double x =
          span * (static_cast<double>(element) + static_cast<double>(position) / 4) / pieces;
      const auto found = inner.forces_at(0, cases, *five, x);
      for (std::size_t i = 0; i < 6; ++i) {
        const double value = expected->at[position][i];
        largest[i] = std::max(largest[i], std::abs(value));
        error[i] = std::max(error[i], std::abs(found[i] - value));
      }
    }
  }
  // The five positions are as exact as eight pieces: 1e-4 here.
  for (const Component i : {n, fy, fz, my, mz}) EXPECT_LE(error[i], 1e-4 * largest[i]) << i;
}

TEST(PeaksInSecondOrder, AreNotExceededAnywhere) {
  const model::Model model = cut_beam(1);
  const Weights weights{.n = 1.0 / 3000, .my = 1.0 / 2.5e5, .mz = 1.0 / 2.7e4};
  const auto sum = [&](const auto& f, double y, double z) {
    return weights.n * double{f[n]} + y * weights.my * double{f[my]} +
           z * weights.mz * double{f[mz]};
  };
  const auto five = model::CombinationEvaluator(model).evaluate(0, 1, model::Side::maximum);
  const InnerForces inner(model);
  const auto places = peaks_of(model, 1, {weights});
  ASSERT_FALSE(places.empty());
  for (const auto& [y, z] : sign_pairs) {
    double low = 0.0, high = 0.0;
    const auto extend = [&, y = y, z = z](const auto& forces) {
      low = std::min(low, sum(forces, y, z));
      high = std::max(high, sum(forces, y, z));
    };
    for (const auto& at : five->at) extend(at);
    for (const PlaceForces& place : places) extend(place.forces);
    for (int i = 0; i <= 2000; ++i) {
      const auto value =
          sum(inner.forces_at(0, std::vector<model::CombinationPlan::CaseFactor>{{0, 1.0}}, *five,
                              span * i / 2000),
              y, z);
      // An extreme beyond the positions counts from a millionth on.
      EXPECT_LE(value, high + 2e-6 * (high - low));
      EXPECT_GE(value, low - 2e-6 * (high - low));
    }
  }
}

}  // namespace
}  // namespace aluframe::forces

// Combinations of a model whose members are bowed and lean before they are loaded, at the five
// positions and between them, against closed forms (Timoshenko and Gere, Theory of Elastic
// Stability, chapter 1).

#include <algorithm>
#include <functional>
#include <numbers>

#include "aluframe/forces/analyse_sets.h"
#include "tests/unit/aluframe/forces/peaks.h"

namespace aluframe::forces {
namespace {

constexpr double span = 4000.0, moment = 4e6, bow = 1.0 / 300;
constexpr double euler = std::numbers::pi * std::numbers::pi * ei_y / (span * span);

/// A simple beam that bends about its y alone.
model::Model strut(const model::Imperfections& imperfections) {
  model::Model model = simple_beam(span);
  model::Section section = plain_section();
  section.given.izz = 1e9;
  model.sections.replace(section);
  model.analysis = {.second_order = true, .imperfections = imperfections};
  return model;
}

/// Pushed at its end, with a moment at its start.
model::CaseLoads push_and_moment(double push, double at_start) {
  model::CaseLoads loads;
  loads.nodal.push_back({{false, {10}}, {-push}});
  loads.nodal.push_back({{false, {20}}, {0, 0, 0, 0, at_start, 0}});
  return loads;
}

/// The largest value of a function of x along the beam, and its place.
PlaceForces largest_of(const std::function<double(double)>& value) {
  PlaceForces best;
  constexpr int steps = 40000;
  for (int i = 0; i <= steps; ++i) {
    const double x = span * i / steps, here = value(x);
    if (here <= best.forces[my]) continue;
    best.x = x;
    best.forces[my] = here;
  }
  return best;
}

/// Moment of the parabola: 8·EI·e/L²·(cos(k·(x - L/2))/cos(k·L/2) - 1).
double of_parabola(double x, double k) {
  return 8 * ei_y * bow / span * (std::cos(k * (x - span / 2)) / std::cos(k * span / 2) - 1);
}

/// Moment of an end moment: M0·sin(k·(L - x))/sin(k·L).
double of_end_moment(double x, double k) {
  return moment * std::sin(k * (span - x)) / std::sin(k * span);
}

void expect_peak(const std::vector<PlaceForces>& found, const PlaceForces& expected) {
  ASSERT_EQ(found.size(), 1U);
  EXPECT_NEAR(found[0].x, expected.x, 1e-3 * span);
  EXPECT_NEAR(found[0].forces[my], expected.forces[my], 1e-5 * expected.forces[my]);
}

TEST(PeakOfABowedMember, IsThatOfItsParabolaAndItsLoads) {
  const double push = 0.5 * euler, k = std::sqrt(push / ei_y);
  const auto places = peaks_under(strut({.bow_y = bow}), push_and_moment(push, moment));
  expect_peak(places,
              largest_of([&](double x) { return of_parabola(x, k) + of_end_moment(x, k); }));
}

TEST(PeakOfABowedMember, IsThatOfItsBucklingModeAndItsLoads) {
  constexpr double amplitude = 12.0, share = 0.5;
  const double push = share * euler, k = std::sqrt(push / ei_y);
  const auto places = peaks_under(strut({.mode = amplitude}), push_and_moment(push, moment));
  expect_peak(places, largest_of([&](double x) {
                return push * amplitude / (1 - share) * std::sin(std::numbers::pi * x / span) +
                       of_end_moment(x, k);
              }));
}

/// My in the middle of the beam, which is cut there or not.
float middle_moment(const model::Model& model, std::size_t position) {
  return model::CombinationEvaluator(model).evaluate(0, 1, model::Side::maximum)->at[position][my];
}

model::Model cut_strut(bool as_one_member) {
  model::Model model = strut({.bow_y = bow});
  add_node(model, 30, span / 2, 0, 0);
  model.elements.replace(beam(5, 20, 30));
  model.elements.add(beam(6, 30, 10));
  if (as_one_member)
    model.members.add({.number = 1, .name = "", .elements = {5, 6}, .length_factors = {}});
  add_case(model, push_and_moment(0.5 * euler, 0.0));
  add_sum(model, {{1, 1.0}});
  return with_forces(model);
}

TEST(BowOfAMember, GoesOverAllItsElements) {
  const double k = std::sqrt(0.5 * euler / ei_y), whole = of_parabola(span / 2, k);
  EXPECT_NEAR(std::abs(middle_moment(cut_strut(true), 4)), whole, 1e-5 * whole);
}

TEST(BowOfAMember, IsThatOfEachElementWithoutMembers) {
  // Both halves, bowed the same way by an eighth of the whole's, add less.
  const double k = std::sqrt(0.5 * euler / ei_y), whole = of_parabola(span / 2, k);
  EXPECT_LT(std::abs(middle_moment(cut_strut(false), 4)), 0.5 * whole);
}

TEST(Imperfections, ActInEveryStateOfAnEnvelope) {
  model::Model model = strut({.bow_y = bow});
  add_case(model, push_and_moment(0.5 * euler, 0.0));
  add_case(model, push_and_moment(0.25 * euler, 0.0));
  using Source = model::CombinationTerm::Source;
  model.combinations.add({.number = 1,
                          .name = "",
                          .kind = model::CombinationKind::envelope,
                          .terms = {{Source::load_case, 1, 1.0}, {Source::load_case, 2, 1.0}}});
  model = with_forces(model);
  const model::CombinationEvaluator evaluator(model);
  // The bow, towards +z without another load, makes My negative.
  const double more = -of_parabola(span / 2, std::sqrt(0.5 * euler / ei_y));
  const double less = -of_parabola(span / 2, std::sqrt(0.25 * euler / ei_y));
  EXPECT_NEAR(evaluator.evaluate(0, 1, model::Side::maximum)->at[2][my], less, -1e-5 * less);
  EXPECT_NEAR(evaluator.evaluate(0, 1, model::Side::minimum)->at[2][my], more, -1e-5 * more);
}

TEST(Imperfections, ActInSetsOfLoadsThatAreAnalysedAlone) {
  model::Model model = strut({.bow_y = bow});
  add_case(model, push_and_moment(0.5 * euler, 0.0));
  const LoadSet set{{0, 1.0}};
  const auto solved = analyse_sets(model, {&set, 1}, Order::second);
  const auto& answers = std::get<std::vector<analysis::SecondOrderResult>>(solved);
  const double expected = -of_parabola(span / 2, std::sqrt(0.5 * euler / ei_y));
  EXPECT_NEAR(answers[0].result.forces[0][2][my], expected, -1e-5 * expected);
}

}  // namespace
}  // namespace aluframe::forces

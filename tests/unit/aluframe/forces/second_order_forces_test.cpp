// Forces of combinations that are analysed on their own, each on the displaced frame.

#include <gtest/gtest.h>

#include <cmath>

#include "aluframe/forces/analyse_sets.h"
#include "aluframe/model/combinations.h"
#include "tests/unit/aluframe/forces/models.h"

namespace aluframe::forces {
namespace {

using Source = model::CombinationTerm::Source;
using testing::FloatNear;
using testing::HasSubstr;

constexpr double length = 3000.0, push = 1000.0, weight = 20000.0;

/// Larger than the error of eight pieces an element, smaller than any effect in question.
constexpr float tolerance = 1e-4F;

/// Amplification of a cantilever's base moment under a side load H and an axial load N on its tip:
/// H·l·tan(u)/u with u = l·sqrt(N/EI) (Timoshenko and Gere, beam-columns).
double base_moment(double side, double axial) {
  const double u = length * std::sqrt(axial / ei_y);
  return side * length * std::tan(u) / u;
}

model::CaseLoads tip_load(std::size_t component, double value) {
  model::CaseLoads loads;
  model::NodalLoad load;
  load.nodes.numbers = {10};
  load.components[component] = value;
  loads.nodal.push_back(load);
  return loads;
}

void combine(model::Model& model, model::Number number, model::CombinationKind kind,
             const std::vector<model::CombinationTerm>& terms) {
  model.combinations.add({.number = number, .name = "", .kind = kind, .terms = terms});
}

/// A cantilever along X, pushed along Z by case 1 and axially by case 2; combination 1 has both
/// once, combination 2 both twice. Bending about y, held in the plane.
model::Model cantilever() {
  model::Model model = straight_beam(length);
  model.analysis.second_order = true;
  add_support(model, 20, clamped);
  add_support(model, 10, {false, true, false, true, false, true});
  add_case(model, tip_load(2, -push));
  add_case(model, tip_load(0, -weight));
  for (const model::Number number : {1U, 2U}) {
    combine(model, number, model::CombinationKind::linear,
            {{Source::load_case, 1, 1.0 * number}, {Source::load_case, 2, 1.0 * number}});
  }
  return model;
}

float base_my(const model::Model& model, model::Number combination, model::Side side) {
  const model::CombinationEvaluator evaluator(model);
  return evaluator.evaluate(0, combination, side)->at[0][my];
}

auto about_moment(double expected) {
  return FloatNear(static_cast<float>(expected),
                   tolerance * static_cast<float>(std::abs(expected)));
}

TEST(SecondOrder, MakesTheMomentOfACantileverLargerAsTheBeamColumnHasIt) {
  const model::Model model = with_forces(cantilever());
  EXPECT_THAT(base_my(model, 1, model::Side::maximum), about_moment(-base_moment(push, weight)));
}

TEST(SecondOrder, OfTwiceTheLoadsIsMoreThanTwice) {
  const model::Model model = with_forces(cantilever());
  EXPECT_THAT(base_my(model, 2, model::Side::maximum),
              about_moment(-base_moment(2 * push, 2 * weight)));
  EXPECT_GT(base_my(model, 2, model::Side::maximum) / base_my(model, 1, model::Side::maximum),
            2.05F);
}

TEST(SecondOrder, OfAnEnvelopeHasTheExtremesOfItsTermsOnTheirOwn) {
  model::Model model = cantilever();
  combine(
      model, 3, model::CombinationKind::envelope,
      {{Source::combination, 1, 1.0}, {Source::combination, 2, 1.0}, {Source::load_case, 1, -1.0}});
  model = with_forces(model);
  EXPECT_THAT(base_my(model, 3, model::Side::minimum),
              about_moment(-base_moment(2 * push, 2 * weight)));
  EXPECT_THAT(base_my(model, 3, model::Side::maximum), about_moment(push * length));
}

TEST(SecondOrder, GivesLoadCasesNoForcesOfTheirOwn) {
  const model::Model model = with_forces(cantilever());
  EXPECT_EQ(model.forces.find(0, 0), nullptr);
}

TEST(SecondOrder, LeavesOutCombinationsThatAreOnlyPartsOfOthers) {
  model::Model model = cantilever();
  model::Combination part = model.combinations[1];
  part.design = false;
  model.combinations.replace(part);
  auto computed = compute_forces(model);
  EXPECT_EQ(std::get<Summary>(computed).second_order_analyses, 1U);
  EXPECT_EQ(model.combined_forces.find(0, model::side_place(1, 0)), nullptr);
}

TEST(SecondOrder, AnalysesEverySetOfLoadsOnce) {
  model::Model model = cantilever();
  combine(model, 3, model::CombinationKind::envelope,
          {{Source::combination, 1, 1.0}, {Source::combination, 2, 1.0}});
  const auto computed = compute_forces(model);
  EXPECT_EQ(std::get<Summary>(computed).second_order_analyses, 2U);
  EXPECT_GT(std::get<Summary>(computed).iterations, 0);
}

TEST(SecondOrder, OfLoadsBeyondTheBucklingLoadNamesTheCombination) {
  // The Euler load of a cantilever is π²EI/(2l)², 230 kN here.
  model::Model model = cantilever();
  const double euler = M_PI * M_PI * ei_y / (4 * length * length);
  combine(model, 9, model::CombinationKind::linear,
          {{Source::load_case, 2, 1.01 * euler / weight}});
  EXPECT_THAT(problem_of(model), testing::StartsWith("combination 9: "));
  EXPECT_EQ(model.combined_forces, model::ForceTable());
}

TEST(SecondOrder, RefusesACaseWithoutLoads) {
  model::Model model = cantilever();
  add_case(model, {});
  combine(model, 4, model::CombinationKind::linear, {{Source::load_case, 3, 1.0}});
  EXPECT_EQ(problem_of(model),
            "combination 4: load case 3 has no loads, and second order cannot use forces that are "
            "given");
}

TEST(SecondOrder, RefusesGivenForces) {
  model::Model model = cantilever();
  model.forces.resize(1, 2);
  model.forces.set(0, 1, {});
  EXPECT_EQ(
      problem_of(model),
      "element 5 has given forces in load case 2, which second order cannot use: it needs loads "
      "alone");
}

TEST(SecondOrder, RefusesSumsWithAnEnvelope) {
  model::Model model = cantilever();
  combine(model, 3, model::CombinationKind::envelope, {{Source::load_case, 1, 1.0}});
  combine(model, 4, model::CombinationKind::linear, {{Source::combination, 3, 1.0}});
  EXPECT_THAT(problem_of(model), HasSubstr("combination 4 adds an envelope"));
}

TEST(CompleteGivenForces, MakeAnAnalysisNeedless) {
  // Nothing supports the beam: an analysis would fail.
  model::Model model = straight_beam(length);
  add_case(model, tip_load(2, -push));
  model.forces.resize(1, 1);
  model.forces.set(0, 0, {});
  const auto computed = compute_forces(model);
  EXPECT_EQ(std::get<Summary>(computed).load_cases, 0U);
}

TEST(AnalysedSets, AddUpTheirCasesInFirstOrder) {
  // Tip deflection F·l³/3EI of 2.5 times the push.
  const model::Model model = cantilever();
  const std::vector<LoadSet> sets{{{0, 2.5}}, {{0, 1.0}, {1, 1.0}}};
  const auto solved = analyse_sets(model, sets, Order::first);
  const auto& answers = std::get<std::vector<analysis::SecondOrderResult>>(solved);
  const double unit = push * std::pow(length, 3) / (3 * ei_y);
  EXPECT_NEAR(answers[0].result.displacements[1][2], -2.5 * unit, 1e-9 * unit);
  EXPECT_NEAR(answers[1].result.displacements[1][2], -unit, 1e-9 * unit);
  EXPECT_EQ(answers[1].iterations, 0);
}

TEST(AnalysedSets, InSecondOrderMoveMoreUnderCompression) {
  // Tip deflection H·l³/3EI times 3(tan u - u)/u³ (Timoshenko and Gere, beam-columns).
  const model::Model model = cantilever();
  const std::vector<LoadSet> sets{{{0, 1.0}, {1, 1.0}}};
  const auto solved = analyse_sets(model, sets, Order::second);
  const auto& answers = std::get<std::vector<analysis::SecondOrderResult>>(solved);
  const double u = length * std::sqrt(weight / ei_y);
  const double expected =
      push * std::pow(length, 3) / (3 * ei_y) * 3 * (std::tan(u) - u) / (u * u * u);
  EXPECT_NEAR(answers[0].result.displacements[1][2], -expected, 1e-4 * expected);
  EXPECT_GT(answers[0].iterations, 0);
}

}  // namespace
}  // namespace aluframe::forces

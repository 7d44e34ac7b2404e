// What computing forces adds to a model, and what it leaves as it was.

#include <gtest/gtest.h>

#include "tests/unit/aluframe/forces/models.h"

namespace aluframe::forces {
namespace {

using testing::HasSubstr;

model::CaseLoads weight() {
  model::CaseLoads loads;
  loads.self_weight = {0, 0, -1};
  return loads;
}

/// Two simple beams, elements 5 and 6, each on its own supports.
model::Model two_beams() {
  model::Model model = simple_beam(4000);
  add_node(model, 30, 0, 5000, 0);
  add_node(model, 40, 4000, 5000, 0);
  model.elements.add(beam(6, 30, 40));
  add_support(model, 30, {true, true, true, true, false, false});
  add_support(model, 40, {false, true, true, false, false, false});
  return model;
}

/// Forces that no analysis would give.
const model::CaseForces given{.at = {{{1, 2, 3, 4, 5, 6}}}, .inner = false};

TEST(GivenForces, StayAndDoNotChangeThoseOfOtherElements) {
  model::Model model = two_beams();
  model::CaseLoads loads;
  loads.span.push_back(uniform(downwards, -3));
  add_case(model, loads);
  model.forces.resize(2, 1);
  model.forces.set(0, 0, given);
  model = with_forces(model);
  ASSERT_NE(model.forces.find(0, 0), nullptr);
  EXPECT_EQ(*model.forces.find(0, 0), given);
  EXPECT_THAT(forces_at(model, 6, 2)[my], about(6e6));
}

TEST(GivenForces, OfACaseWithoutLoadsStay) {
  model::Model model = two_beams();
  add_case(model, weight());
  add_case(model, {});
  model.forces.resize(2, 2);
  model.forces.set(1, 1, given);
  model = with_forces(model);
  ASSERT_NE(model.forces.find(1, 1), nullptr);
  EXPECT_EQ(*model.forces.find(1, 1), given);
}

TEST(ComputedForces, AreAtAllFivePositions) {
  model::Model model = two_beams();
  add_case(model, weight());
  model = with_forces(model);
  ASSERT_NE(model.forces.find(1, 0), nullptr);
  EXPECT_TRUE(model.forces.find(1, 0)->inner);
}

TEST(ComputedForces, AreNoneForACaseWithoutLoads) {
  model::Model model = two_beams();
  add_case(model, {});
  add_case(model, weight());
  model = with_forces(model);
  EXPECT_EQ(model.forces.find(0, 0), nullptr);
  EXPECT_NE(model.forces.find(0, 1), nullptr);
}

TEST(ModelWithoutLoads, StaysAsItIsEvenWhenNothingSupportsIt) {
  model::Model model = straight_beam(1000);
  add_case(model, {});
  EXPECT_EQ(problem_of(model), "");
  EXPECT_EQ(model.forces, model::ForceTable());
}

TEST(ModelThatCannotStand, IsToldInWordsAndStaysAsItIs) {
  model::Model model = straight_beam(1000);
  add_case(model, weight());
  model.forces.resize(1, 1);
  const model::ForceTable before = model.forces;
  EXPECT_EQ(problem_of(model), "nothing supports the structure with nodes 10, 20");
  EXPECT_EQ(model.forces, before);
}

TEST(ModelThatCannotStand, HasItsNodesNamedByTheirNumbers) {
  // Two beams that meet in hinges on both sides.
  model::Model model = bare_model();
  for (const model::Number i : {12U, 13U, 14U}) add_node(model, i, 1000.0 * i, 0, 0);
  model::Element left = beam(1, 12, 14), right = beam(2, 14, 13);
  left.released[6 + my] = right.released[my] = true;
  model.elements.add(left);
  model.elements.add(right);
  add_support(model, 12, clamped);
  add_support(model, 13, clamped);
  add_case(model, weight());
  EXPECT_EQ(problem_of(model),
            "node 14 can rotate freely about Y: every element there is released");
}

TEST(SectionWithoutTorsionConstant, IsToldByItsElement) {
  // Optional for a section given by its properties, which the checks do not need it for.
  model::Model model = simple_beam(1000);
  model::Section section = plain_section();
  section.given.it.reset();
  model.sections.replace(section);
  add_case(model, weight());
  EXPECT_EQ(problem_of(model), "element 5: its torsion constant is 0, must be positive");
}

TEST(LoadsTooLargeToCompute, AreToldAndLeaveTheModelAsItIs) {
  // 1e38 N at 10 m: beyond single precision.
  model::Model model = straight_beam(10000);
  add_support(model, 20, clamped);
  model::CaseLoads loads;
  loads.nodal.push_back({{false, {10}}, {0, 0, -1e38}});
  add_case(model, loads);
  EXPECT_THAT(problem_of(model), HasSubstr("the forces are too large to compute with"));
  EXPECT_EQ(model.forces, model::ForceTable());
}

TEST(AnalyseModel, GivesDisplacementsAndReactions) {
  // P·L³/(3·E·Iyy) at the tip; P and P·L at the clamp.
  model::Model model = straight_beam(3000);
  add_support(model, 20, clamped);
  model::CaseLoads loads;
  loads.nodal.push_back({{false, {10}}, {0, 0, -700}});
  add_case(model, loads);
  const auto solved = analyse_model(model);
  ASSERT_TRUE(std::holds_alternative<analysis::Solution>(solved));
  const analysis::CaseResult& result = std::get<analysis::Solution>(solved).cases.at(0);
  EXPECT_NEAR(result.displacements[1][2], -700 * 2.7e10 / (3 * ei_y), 1e-9);
  ASSERT_EQ(result.reactions.size(), 1U);
  EXPECT_NEAR(result.reactions[0].value[2], 700, 1e-9);
  EXPECT_NEAR(result.reactions[0].value[4], -700.0 * 3000, 1e-5);
}

TEST(AnalyseModel, AnswersWithZerosToACaseWithoutLoads) {
  model::Model model = simple_beam(3000);
  add_case(model, {});
  add_case(model, weight());
  const auto solved = analyse_model(model);
  ASSERT_TRUE(std::holds_alternative<analysis::Solution>(solved));
  const auto& cases = std::get<analysis::Solution>(solved).cases;
  ASSERT_EQ(cases.size(), 2U);
  EXPECT_EQ(cases[0].forces[0], analysis::ElementForces{});
  EXPECT_NE(cases[1].forces[0], analysis::ElementForces{});
}

struct OneLoad {
  const char* name;
  void (*add)(model::CaseLoads&);
};

void PrintTo(const OneLoad& load, std::ostream* stream) {
  *stream << load.name;
}

class LoadOfAnyKind : public testing::TestWithParam<OneLoad> {};
INSTANTIATE_TEST_SUITE_P(
    Kinds, LoadOfAnyKind,
    testing::Values(
        OneLoad{"SelfWeight", [](model::CaseLoads& l) { l.self_weight = {0, 0, -1}; }},
        OneLoad{"Nodal", [](model::CaseLoads& l) { l.nodal.emplace_back(); }},
        OneLoad{"Span", [](model::CaseLoads& l) { l.span.emplace_back(); }},
        OneLoad{"Points", [](model::CaseLoads& l) { l.points.emplace_back(); }},
        OneLoad{"Temperature", [](model::CaseLoads& l) { l.temperature.emplace_back(); }},
        OneLoad{"Settlements", [](model::CaseLoads& l) { l.settlements.emplace_back(); }}),
    [](const auto& load) { return load.param.name; });

TEST_P(LoadOfAnyKind, MakesItsCaseOneToAnalyse) {
  model::Model model = simple_beam(1000);
  add_case(model, {});
  EXPECT_FALSE(has_loads(model.load_cases[0]));
  model::CaseLoads loads;
  GetParam().add(loads);
  add_case(model, loads);
  EXPECT_TRUE(has_loads(model.load_cases[1]));
}

}  // namespace
}  // namespace aluframe::forces

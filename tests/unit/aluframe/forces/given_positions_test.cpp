// Forces that are given at the two ends of elements, beside forces at five positions.

#include <gtest/gtest.h>

#include "tests/unit/aluframe/forces/peaks.h"

namespace aluframe::forces {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr double span = 4000.0;

/// Fz = 2 kN all along, My from -3 to 5 kN·m: in equilibrium over 4 m without a load.
model::CaseForces unloaded() {
  model::CaseForces out;
  out.at[0] = {-1000, 30, 2000, 4e4, -3e6, 2e4};
  out.at[4] = {-1000, 30, 2000, 4e4, 5e6, 1.4e5};
  return out;
}

/// Two cases, of which the first has these forces and the second five positions, and their sum.
model::Model mixed(const model::CaseForces& forces, const model::CaseLoads& loads = {}) {
  model::Model model = simple_beam(span);
  add_case(model, loads);
  add_case(model, {});
  add_sum(model, {{1, 1.0}, {2, 1.0}});
  model.forces.resize(1, 2);
  model.forces.set(0, 0, forces);
  model.forces.set(0, 1, {.inner = true});
  return model;
}

model::CaseForces with(std::size_t position, std::size_t component, float value) {
  model::CaseForces out = unloaded();
  out.at[position][component] = value;
  return out;
}

TEST(ForcesGivenAtTwoEnds, BesideFivePositionsAreLinearBetweenWhereNoLoadActs) {
  const model::Model model = with_forces(mixed(unloaded()));
  const model::CaseForces& forces = *model.forces.find(0, 0);
  EXPECT_TRUE(forces.inner);
  EXPECT_EQ(forces.at[1], (model::SectionForces{-1000, 30, 2000, 4e4, -1e6, 5e4}));
  EXPECT_EQ(forces.at[2], (model::SectionForces{-1000, 30, 2000, 4e4, 1e6, 8e4}));
  EXPECT_EQ(forces.at[3], (model::SectionForces{-1000, 30, 2000, 4e4, 3e6, 1.1e5}));
  EXPECT_EQ(forces.at[0], unloaded().at[0]);
  EXPECT_EQ(forces.at[4], unloaded().at[4]);
}

TEST(ForcesGivenAtTwoEnds, ByThemselvesStayAsTheyAre) {
  model::Model model = simple_beam(span);
  add_case(model, {});
  add_sum(model, {{1, 1.0}});
  model.forces.resize(1, 1);
  model.forces.set(0, 0, unloaded());
  model = with_forces(model);
  EXPECT_EQ(*model.forces.find(0, 0), unloaded());
}

TEST(ForcesGivenAtTwoEnds, BesideOnesThatAreComputedAreCompletedToo) {
  model::Model model = simple_beam(span);
  add_case(model, {});
  model::CaseLoads loads;
  loads.self_weight = {0, 0, -1};
  add_case(model, loads);
  add_sum(model, {{1, 1.0}, {2, 1.0}});
  model.forces.resize(1, 2);
  model.forces.set(0, 0, unloaded());
  model = with_forces(model);
  EXPECT_TRUE(model.forces.find(0, 0)->inner);
  EXPECT_TRUE(model.forces.find(0, 1)->inner);
}

struct Unbalanced {
  const char* name;
  std::size_t component;
  float value;  ///< at the end, in place of the one in equilibrium
};

void PrintTo(const Unbalanced& one, std::ostream* stream) {
  *stream << one.name;
}

class LoadBetweenTwoEnds : public testing::TestWithParam<Unbalanced> {};
INSTANTIATE_TEST_SUITE_P(Components, LoadBetweenTwoEnds,
                         testing::Values(Unbalanced{"N", n, -1010}, Unbalanced{"Fy", fy, 31},
                                         Unbalanced{"Fz", fz, 1980}, Unbalanced{"Mx", mx, 4.1e4F},
                                         Unbalanced{"My", my, 5.1e6F},
                                         Unbalanced{"Mz", mz, 1.5e5F}),
                         [](const auto& one) { return one.param.name; });

TEST_P(LoadBetweenTwoEnds, IsSeenFromTheEquilibriumOfTheEndsAndRefused) {
  model::Model model = mixed(with(4, GetParam().component, GetParam().value));
  const model::ForceTable before = model.forces;
  EXPECT_EQ(problem_of(model),
            "forces of element 5 in load case 1: found those of the two ends though a load acts "
            "between them (the two ends are not in equilibrium without one), and combination 1 "
            "adds them to forces at five positions; give them at five positions too");
  EXPECT_EQ(model.forces, before);
}

TEST(ForcesGivenAtTwoEnds, OfThreeDigitsAreInEquilibriumWithinThoseDigits) {
  // 1.99 for 2 kN and 5.02 for 5 kN·m.
  model::CaseForces forces = with(4, fz, 1990);
  forces.at[4][my] = 5.02e6F;
  model::Model model = mixed(forces);
  EXPECT_EQ(problem_of(model), "");
}

TEST(ForcesGivenAtTwoEnds, OfALoadOfTheModelAreRefusedBesideFivePositions) {
  model::Model model = mixed(unloaded(), only(partial(2, 0, 0.5, -1, -1)));
  EXPECT_THAT(problem_of(model), HasSubstr("(the load case has one there)"));
}

TEST(ForcesGivenAtTwoEnds, OfACaseInNoDesignCombinationAreNotRefused) {
  model::Model model = mixed(with(4, fz, 0), {});
  model::Combination part = model.combinations[0];
  part.design = false;
  model.combinations.replace(part);
  const auto computed = compute_forces(model);
  ASSERT_TRUE(std::holds_alternative<Summary>(computed));
  EXPECT_THAT(std::get<Summary>(computed).without_inner, IsEmpty());
}

TEST(ForcesGivenAtTwoEnds, UnderALoadAndByThemselvesAreListedAsWithoutInnerPositions) {
  model::Model model = mixed(with(4, fz, 0));
  model::Combination alone = model.combinations[0];
  alone.terms.pop_back();
  model.combinations.replace(alone);
  const auto computed = compute_forces(model);
  ASSERT_TRUE(std::holds_alternative<Summary>(computed));
  EXPECT_THAT(std::get<Summary>(computed).without_inner, ElementsAre(ElementCase{5, 1}));
}

TEST(ForcesGivenAtTwoEnds, WithoutALoadAreNotListed) {
  model::Model model = mixed(unloaded());
  const auto computed = compute_forces(model);
  ASSERT_TRUE(std::holds_alternative<Summary>(computed));
  EXPECT_THAT(std::get<Summary>(computed).without_inner, IsEmpty());
}

}  // namespace
}  // namespace aluframe::forces

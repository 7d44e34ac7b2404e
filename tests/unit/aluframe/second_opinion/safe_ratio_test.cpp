// The safe ratio of a position: the largest of the checks and of the answers.

#include <cmath>

#include "tests/unit/aluframe/second_opinion/elements.h"

namespace aluframe::second_opinion {
namespace {

TEST(SafeRatio, IsThatOfTheChecksWhereNoRuleApplies) {
  // A stocky pipe, compressed and bent: no plate is slender, magnitudes are added.
  const Forces forces{.n = -100e3, .my = 8e6, .mz = -2e6};
  const SafeRatio found = safe_of(pipe(), forces);
  EXPECT_EQ(found.safe, found.code);
  EXPECT_TRUE(found.rules.empty());
}

TEST(SafeRatio, IsTheLargestAnswerWithItsRules) {
  const SafeRatio found = safe_of(h200(), {.my = -30e6});
  EXPECT_EQ(found.rules, RuleSet(Rule::c3));
  EXPECT_EQ(found.item, RALU_STABILITY);
  EXPECT_NEAR(found.safe, 479.8 / 200.0, three_digits * 476.0 / 200.0);
  // The checks have strength alone: 30e6/219,547 of 200.
  EXPECT_NEAR(found.code, 30e6 / 219546.67 / 200.0, 1e-6);
}

TEST(SafeRatio, GivesAPositionWithoutChecksARatio) {
  // Shear alone at a hinged end: no check, 7.25 of 115 by hand.
  const SafeRatio found = safe_of(h200(), {.fz = 10e3});
  EXPECT_TRUE(found.any);
  EXPECT_EQ(found.item, RALU_SHEAR_Z);
  EXPECT_EQ(found.rules, RuleSet(Rule::c5));
  EXPECT_NEAR(found.safe, 7.2536 / 115.0, 1e-5);
}

TEST(SafeRatio, NoForceHasNone) {
  EXPECT_FALSE(safe_of(h200(), {}).any);
}

TEST(SafeRatio, OneOfTheChecksThatIsNoNumberStays) {
  // A truss has no coefficients for the critical moment (docs/behaviour.md, C9).
  ALU_DGN_DATA data = h200(ALU_MEMBER_TRUSS, 3000.0);
  const SafeRatio found = safe_of(data, {.n = -10e3, .my = 0.1e6});
  EXPECT_FALSE(std::isfinite(found.code));
  EXPECT_FALSE(std::isfinite(found.safe));
  EXPECT_EQ(found.item, RALU_COMBINED_STABILITY);
  EXPECT_TRUE(found.rules.empty());
}

TEST(SafeRatio, APlaceOfItsOwnIsChecked) {
  Engine engine;
  ElementOpinion opinion(engine, h200());
  const AluDgnSectForce force = force_of({.my = 30e6});
  const SafeRatio found = opinion.at(force, opinion.checks_of(force));
  // 479.8 of 200 are the checks' own answer there.
  EXPECT_NEAR(found.code, 479.8 / 200.0, three_digits * 476.0 / 200.0);
  EXPECT_EQ(found.safe, found.code);
}

/// Sections of all kinds under forces of all signs, some of noise.
class AnySection : public testing::TestWithParam<ALU_DGN_DATA> {
 protected:
  template <class Act>
  static void for_each_force(Act act) {
    for (const double n : {-60e3, -0.1, 0.0, 0.1, 60e3}) {
      for (const double my : {-4e6, -1.0, 0.0, 1.0, 4e6}) {
        for (const double mz : {-1e6, -1.0, 0.0, 1e6}) {
          act(Forces{.n = n, .fy = 1e3, .fz = -5e3, .mx = 1e5, .my = my, .mz = mz});
        }
      }
    }
  }
};

TEST_P(AnySection, IsNeverBelowTheRatioOfTheChecks) {
  for_each_force([](const Forces& forces) {
    const SafeRatio found = safe_of(GetParam(), forces, {.shear_centre_y = -20.0});
    if (!found.any || !std::isfinite(found.code)) return;
    EXPECT_GE(found.safe, found.code) << forces.n << ' ' << forces.my << ' ' << forces.mz;
    EXPECT_TRUE(std::isfinite(found.safe));
  });
}

TEST_P(AnySection, IsExactlyThatOfTheChecksWithoutARule) {
  for_each_force([](const Forces& forces) {
    const SafeRatio found = safe_of(GetParam(), forces, {.shear_centre_y = -20.0});
    if (!found.any || !std::isfinite(found.code)) return;
    EXPECT_EQ(found.rules.empty(), found.safe == found.code)
        << forces.n << ' ' << forces.my << ' ' << forces.mz;
  });
}

INSTANTIATE_TEST_SUITE_P(
    SafeRatio, AnySection,
    testing::Values(h200(), h200(ALU_MEMBER_BRACE), welded(h200()), mullion(), welded(mullion()),
                    tee(), welded(tee()), pipe(),
                    element_of(stocky_h(60, 40), ALU_MEMBER_COLUMN, 3000.0),
                    element_of(section_of(model::Shape::channel, {100, 50, 5, 6, 50, 6}),
                               ALU_MEMBER_BEAM, 2500.0),
                    element_of(section_of(model::Shape::double_channel, {100, 50, 5, 6, 10}),
                               ALU_MEMBER_COLUMN, 2500.0),
                    element_of(section_of(model::Shape::solid_round, {60}), ALU_MEMBER_BEAM,
                               2000.0)));

}  // namespace
}  // namespace aluframe::second_opinion

#include <gtest/gtest.h>

#include "tests/unit/aluframe/combinations/made_models.h"

// Factors of JGJ 102-2003, 5.4.

namespace aluframe::combinations {
namespace {

using testing::HasSubstr;
using testing::UnorderedElementsAre;

const CombinationRule curtain_wall{.rule = "JGJ 102-2003"};

TEST(CurtainWallRule, GravityGovernsAloneWithItsLargestFactor) {
  // 1.2G lies between 1.35G and G, whatever G gives.
  EXPECT_THAT(names_of(model_of({{"G", dead}}), CombinationType::fundamental, curtain_wall),
              UnorderedElementsAre("1.35G", "G"));
}

TEST(CurtainWallRule, WindActsInFullBesideHalfTheEarthquake) {
  const auto model = model_of({{"G", dead}, {"W", wind}, {"E", earthquake}});
  EXPECT_THAT(names_of(model, CombinationType::seismic, curtain_wall),
              UnorderedElementsAre("1.2G+0.5·1.3E+1.4W", "1.2G-0.5·1.3E+1.4W", "1.2G+0.5·1.3E",
                                   "1.2G-0.5·1.3E", "G+0.5·1.3E+1.4W", "G-0.5·1.3E+1.4W",
                                   "G+0.5·1.3E", "G-0.5·1.3E"));
}

TEST(CurtainWallRule, ActionsThatTheRuleDoesNotKnowAreRefused) {
  const Action warm{.kind = ActionKind::temperature};
  const Fault fault = fault_of(model_of({{"G", dead}, {"T", warm}}), curtain_wall);
  EXPECT_EQ(fault.place, "/load_cases/1/action/kind");
  EXPECT_THAT(fault.text, HasSubstr("JGJ 102-2003 has no row for temperature"));
}

}  // namespace
}  // namespace aluframe::combinations

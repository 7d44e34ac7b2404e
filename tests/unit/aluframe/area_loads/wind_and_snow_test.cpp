// Wind profiles against the formulas of GB 50009-2012, worked out apart from the program.
#include "aluframe/area_loads/wind_and_snow.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace aluframe::area_loads {
namespace {

using model::Roughness;

/// Metres, and μz and βgz there, with Python as a calculator: k·(z/10)^2α and 1 + 5·I10·(z/10)^-α.
struct Height {
  Roughness roughness;
  double metres, mu_z, beta_gz;
};

class WindProfiles : public testing::TestWithParam<Height> {};

TEST_P(WindProfiles, HaveTheValuesOfTheFormulas) {
  const auto& [roughness, metres, mu, beta] = GetParam();
  const Profile profile = profile_of({.w0 = 1e-3, .roughness = roughness, .height = 1.0});
  EXPECT_NEAR(mu_z(profile, 1000.0 * metres), mu, 1e-12 * mu);
  EXPECT_NEAR(beta_gz(profile, 1000.0 * metres), beta, 1e-12 * beta);
}

INSTANTIATE_TEST_SUITE_P(
    Heights, WindProfiles,
    testing::Values(Height{Roughness::a, 3, 1.09, 1.6520409175156348},  // below the lowest
                    Height{Roughness::a, 10, 1.284, 1.6},
                    Height{Roughness::a, 300, 2.9045183518979365, 1.398930002598816},
                    Height{Roughness::a, 600, 2.9045183518979365, 1.398930002598816},  // beyond
                    Height{Roughness::b, 5, 1.0, 1.7}, Height{Roughness::b, 10, 1.0, 1.7},
                    Height{Roughness::b, 50, 1.6206565966927624, 1.5498605211622352},
                    Height{Roughness::b, 450, 2.9054968792442244, 1.4106651350449206},
                    Height{Roughness::c, 10, 0.65, 2.0518595718716743},
                    Height{Roughness::c, 100, 1.4983004146159626, 1.6929435239855115},
                    Height{Roughness::c, 550, 2.9041056099755274, 1.4977268704251792},
                    Height{Roughness::d, 20, 0.51, 2.4024850319834856},
                    Height{Roughness::d, 50, 0.688150284753787, 2.203216032304019},
                    Height{Roughness::d, 550, 2.900807469279515, 1.5860380363912583}));

TEST(WindPressure, NamesTheNumbersOfTheModelAsSuch) {
  model::WindPressure wind{.w0 = 0.5e-3, .height = 25e3};
  wind.profile.mu_10 = 1.1;
  const auto steps = steps_of(wind, {});
  EXPECT_EQ(steps[0].source, "GB 50009-2012, 8.2.1 with numbers of the model");
  EXPECT_EQ(steps[0].formula, "max(1, 1.1·(min(z, 350)/10)^0.3)");
  EXPECT_EQ(steps[0].numbers, "max(1, 1.1·(25/10)^0.3)");
}

TEST(WindPressure, IsToldInTheUnitsOfTheModel) {
  // 1 kN/m² is 1e-3 N/mm².
  const model::Units units{.force = model::ForceUnit::newton,
                           .length = model::LengthUnit::millimetre};
  const model::WindPressure wind{.w0 = 0.5e-3, .height = 8e3, .shape = -1.4};
  const auto steps = steps_of(wind, units);
  EXPECT_EQ(steps.back().unit, "N/mm²");
  EXPECT_NEAR(steps.back().value, -1.4 * 1.7 * 0.5e-3, 1e-18);
  EXPECT_EQ(steps.back().numbers, "1.7·(-1.4)·1·0.0005");
}

TEST(SnowPressure, ActsDownwards) {
  const model::SnowPressure snow{.s0 = 0.4e-3, .mu_r = 0.8};
  EXPECT_DOUBLE_EQ(pressure_of(snow), -0.32e-3);
  const auto steps = steps_of(snow, {});
  ASSERT_EQ(steps.size(), 1U);
  EXPECT_EQ(steps[0].numbers, "0.8·0.4");
  EXPECT_DOUBLE_EQ(steps[0].value, 0.32);
}

TEST(APressure, ThatIsGivenHasNoSteps) {
  EXPECT_TRUE(steps_of(1.5e-3, {}).empty());
}

}  // namespace
}  // namespace aluframe::area_loads

#include "aluframe/catalogue/profiles.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "aluframe/catalogue/profile_tables.h"
#include "aluframe/section/section_properties.h"

namespace aluframe::catalogue {
namespace {

constexpr double mm2_per_in2 = 645.16;
/// lb/ft per in²: 0.098 lb/in³ of 6061.
constexpr double weight_per_area = 1.176;

double area_in_square_inches(const Profile& profile) {
  return section::properties_of(section_of(profile)).area / mm2_per_in2;
}

TEST(StandardProfiles, AreAtLeastAHundredWithNamesOfTheirOwn) {
  std::set<std::string> names;
  for (const Profile& profile : profiles()) names.insert(profile.name);
  EXPECT_GE(profiles().size(), 100U);
  EXPECT_EQ(names.size(), profiles().size());
}

TEST(StandardProfiles, EachHaveASourceOrRule) {
  for (const Profile& profile : profiles()) {
    EXPECT_FALSE(profile.series.empty()) << profile.name;
    EXPECT_TRUE(profile.name.starts_with(profile.series)) << profile.name;
    EXPECT_FALSE(profile.source.empty()) << profile.name;
  }
}

TEST(StandardProfiles, CanAllBeBuilt) {
  for (const Profile& profile : profiles()) {
    const auto problem = section::find_dimension_problem(section_of(profile));
    EXPECT_FALSE(problem.has_value()) << profile.name << ": " << problem->text;
  }
}

// The published weights are rounded to 0.001 lb/ft and the areas behind them to 0.001 in²: 0.07 %
// of the smallest, 0.577 lb/ft.
TEST(StandardProfiles, WeighWhatIsPublished) {
  const auto check = [](std::span<const FlangedRow> rows, std::size_t first) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
      const Profile& profile = profiles()[first + i];
      EXPECT_NEAR(area_in_square_inches(profile) * weight_per_area, rows[i].weight,
                  7e-4 * rows[i].weight)
          << profile.name;
    }
  };
  check(standard_i_beams(), 0);
  check(standard_channels(), standard_i_beams().size());
}

// Pipe of 2 in, schedule 40: π/4·(2.375² − 2.067²) = 1.07453 in², the published 1.07.
TEST(StandardProfiles, PipesHaveTheAreaOfTheirRing) {
  const Profile* pipe = find_profile("NPS 2 SCH 40");
  ASSERT_NE(pipe, nullptr);
  EXPECT_NEAR(area_in_square_inches(*pipe), 1.07453, 1e-5);
}

TEST(StandardProfiles, AreFoundByTheirExactName) {
  EXPECT_NE(find_profile("AA I 3x1.64"), nullptr);
  EXPECT_NE(find_profile("B 100x50x3"), nullptr);
  EXPECT_EQ(find_profile("aa i 3x1.64"), nullptr);
  EXPECT_EQ(find_profile(""), nullptr);
}

}  // namespace
}  // namespace aluframe::catalogue

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

// Aluminum Design Manual, pipe of 6061 in schedules 40 and 80, lb/ft to 0.001 (the largest to
// 0.01).
TEST(StandardProfiles, PipesWeighWhatIsPublished) {
  constexpr struct {
    const char* size;
    double schedule_40, schedule_80;
  } weights[] = {
      {"1/2", 0.294, 0.376},   {"3/4", 0.391, 0.510},   {"1", 0.581, 0.751},
      {"1 1/4", 0.786, 1.037}, {"1 1/2", 0.940, 1.256}, {"2", 1.264, 1.737},
      {"2 1/2", 2.004, 2.650}, {"3", 2.621, 3.547},     {"3 1/2", 3.151, 4.326},
      {"4", 3.733, 5.183},     {"5", 5.057, 7.188},     {"6", 6.564, 9.884},
      {"8", 9.878, 15.01},
  };
  const auto weight = [](const std::string& name) {
    const Profile* pipe = find_profile(name);
    return pipe != nullptr ? area_in_square_inches(*pipe) * weight_per_area : 0.0;
  };
  for (const auto& [size, schedule_40, schedule_80] : weights) {
    const std::string name = std::string("NPS ") + size;
    EXPECT_NEAR(weight(name + " SCH 40"), schedule_40, 6e-4) << name;
    EXPECT_NEAR(weight(name + " SCH 80"), schedule_80, schedule_80 > 10.0 ? 6e-3 : 6e-4) << name;
  }
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

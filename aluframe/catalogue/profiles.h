#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "aluframe/model/section.h"

namespace aluframe::catalogue {

/// Where a profile's dimensions come from.
struct ProfileSource {
  std::string_view name;  ///< as `aluframe section --list` shows it
  std::string_view rule;  ///< the publication, or the rule that makes the series
};

/// A standard profile: its name in model files, its shape and its dimensions.
struct Profile {
  std::string name;
  model::Shape shape = model::Shape::other;
  std::array<double, 8> dimensions{};  ///< mm, in the order of `model::dimension_names`
  const ProfileSource* source = nullptr;
};

/// All standard profiles, series by series, small ones first.
std::span<const Profile> profiles();
/// The profile of this name, or null. Exact and case-sensitive.
const Profile* find_profile(std::string_view name);
/// A section of the profile.
model::Section section_of(const Profile& profile);

}  // namespace aluframe::catalogue

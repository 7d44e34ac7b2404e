#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "aluframe/model/section.h"

namespace aluframe::catalogue {

/// A profile of a catalogue, ours or a user's.
struct Profile {
  std::string name;  ///< by which model files call it
  model::Shape shape = model::Shape::other;
  std::array<double, 8> dimensions{};  ///< mm, in the order of `model::dimension_names`
  std::string series;                  ///< standard profiles: what their names begin with
  std::string source;                  ///< the publication, or the rule that makes the series
};

/// All standard profiles, series by series, small ones first.
std::span<const Profile> profiles();
/// The standard profile of this name, or null. Exact and case-sensitive.
const Profile* find_profile(std::string_view name);
/// A section of the profile.
model::Section section_of(const Profile& profile);

}  // namespace aluframe::catalogue

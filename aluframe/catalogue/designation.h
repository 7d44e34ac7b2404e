#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "aluframe/catalogue/profiles.h"
#include "aluframe/model/section.h"

namespace aluframe::catalogue {

/// A section by its name: one of the user's `own` profiles, a standard profile ("AA I 6x4.03"), or
/// a shape and its dimensions in mm in the order of `model::dimension_names` ("H 300x150x8x12", "C
/// 200x80x6x10x60x8"), of which those with a default may be left out. "x", "X" and "×" separate;
/// blanks do not matter there.
///
/// @return the section, or what was found and what is allowed. Whether the shape can be built is
///   for `section::find_dimension_problem` to say
std::variant<model::Section, std::string> section_named(std::string_view name,
                                                        std::span<const Profile> own = {});

}  // namespace aluframe::catalogue

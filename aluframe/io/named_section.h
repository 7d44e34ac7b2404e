#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "aluframe/catalogue/profiles.h"
#include "aluframe/model/section.h"

namespace aluframe::io {

/// A section that can be built, by the name of a profile or by its designation
/// (catalogue/designation.h).
///
/// @param own the user's profiles, found before the standard ones
/// @return the section, or one message: what was found, what is allowed, which names are near
std::variant<model::Section, std::string> named_section(std::string_view name,
                                                        std::span<const catalogue::Profile> own);

}  // namespace aluframe::io

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "aluframe/catalogue/profiles.h"
#include "aluframe/tables/output_table.h"

namespace aluframe::cli {

/// The user's profiles and the standard ones, of one shape or of all.
std::string profile_list(const std::vector<catalogue::Profile>& own,
                         std::optional<model::Shape> shape, tables::Format format);

}  // namespace aluframe::cli

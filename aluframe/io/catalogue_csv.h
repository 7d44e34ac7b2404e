#pragma once

#include <filesystem>
#include <vector>

#include "aluframe/catalogue/profiles.h"
#include "aluframe/io/problem.h"

namespace aluframe::io {

/// Appends the profiles of a user's catalogue (CSV, described in docs/sections.md) to `own`: a
/// header line, then a profile a row. Columns in any order and any case: name, shape, the
/// dimensions by their names (an empty cell has the default), and optionally unit (mm when empty)
/// and source.
///
/// Every profile can be built, and no name is given twice or means another section already.
/// @return the number of profiles, or the first problem with its line; `own` is then as it was
Result<std::size_t> read_catalogue_csv(const std::filesystem::path& path,
                                       std::vector<catalogue::Profile>& own);

}  // namespace aluframe::io

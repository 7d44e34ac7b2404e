#pragma once

#include <optional>
#include <string>
#include <vector>

#include "aluframe/catalogue/profiles.h"
#include "aluframe/model/section.h"
#include "apps/cli/output_table.h"

namespace aluframe::cli {

/// One section to be shown.
struct ShownSection {
  const model::Section& section;
  const std::vector<catalogue::Profile>& own;  ///< where it may come from
  int across = 4;                              ///< cells of the mesh across the thinnest plate
};

/// Dimensions, sketch and constants, and torsion and warping by formula and on the mesh.
std::string section_text(const ShownSection& shown, Format format);

/// The user's profiles and the standard ones, of one shape or of all.
std::string profile_list(const std::vector<catalogue::Profile>& own,
                         std::optional<model::Shape> shape, Format format);

}  // namespace aluframe::cli

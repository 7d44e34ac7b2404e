#pragma once

#include <string>
#include <vector>

#include "aluframe/catalogue/profiles.h"
#include "aluframe/model/section.h"
#include "aluframe/tables/output_table.h"

namespace aluframe::cli {

/// Of the alloys of GB 50429-2007, kg/m³; kg/m of one mm².
inline constexpr double aluminium_density = 2700.0;
inline constexpr double mass_per_area = aluminium_density * 1e-6;

/// "H 300  B1 150  tw 8", in mm.
std::string dimensions_text(const model::Section& section);

/// One section to be shown.
struct ShownSection {
  const model::Section& section;
  const std::vector<catalogue::Profile>& own;  ///< where it may come from
  int across = 4;                              ///< cells of the mesh across the thinnest plate
};

/// Dimensions, sketch and constants, and torsion and warping by formula and on the mesh.
std::string section_text(const ShownSection& shown, tables::Format format);

}  // namespace aluframe::cli

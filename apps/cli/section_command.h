#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "aluframe/model/section.h"
#include "aluframe/tables/output_table.h"

namespace aluframe::cli {

/// Cells of the mesh across the thinnest plate: more give nothing but waiting.
inline constexpr int most_cells_across = 16;

struct SectionOptions {
  std::optional<std::string> name;                ///< of a profile, or a designation
  bool list = false;                              ///< the catalogue in place of one section
  std::optional<model::Shape> shape;              ///< of the list: only this one
  std::vector<std::filesystem::path> catalogues;  ///< the user's, beside the standard one
  std::optional<std::filesystem::path> svg;       ///< where to draw the section
  int across = 4;
  tables::Format format = tables::Format::table;
};

/// Prints the constants of one section, or the catalogue. @return the exit status
int run_section_command(const SectionOptions& options);

}  // namespace aluframe::cli

#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "aluframe/tables/output_table.h"

namespace aluframe::desktop {

/// Writes a table as a workbook (.xlsx) with one sheet: headings in the language in use, bold,
/// standing still and with filters; numbers as numbers; ratios over 1 marked. Texts stay texts,
/// also those that begin as a formula does. The file takes its place in one step.
/// @param sheet its name
/// @return why it could not be written; an earlier file is then as it was
std::optional<std::string> write_spreadsheet(const tables::OutputTable& table,
                                             const std::string& sheet,
                                             const std::filesystem::path& path);

}  // namespace aluframe::desktop

#pragma once

#include <QString>
#include <filesystem>
#include <optional>
#include <string>

#include "aluframe/tables/output_table.h"

class QWidget;

namespace aluframe::desktop {

/// Writes a table to a file, a workbook or comma-separated values by its extension. English keys
/// and all digits in the latter, as the command line writes them.
/// @param name of the table
/// @return why it could not be written; an earlier file is then as it was
std::optional<std::string> write_table_file(const tables::OutputTable& table,
                                            const std::string& name,
                                            const std::filesystem::path& path);

/// Asks for the file of a table. @param proposal its path, without extension
/// @return nothing when the user has none
std::optional<std::filesystem::path> choose_table_file(QWidget* parent, const QString& proposal);

}  // namespace aluframe::desktop

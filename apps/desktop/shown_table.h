#pragma once

#include <QString>
#include <array>
#include <string>

#include "aluframe/tables/output_table.h"
#include "apps/desktop/row_elements.h"

namespace aluframe::desktop {

class Workspace;

/// What there is to look at as a table.
enum class TableKind {
  overview,
  checks,
  forces,
  not_checked,
  remarks,
  buckling,
  displacements,
  nodes,
  elements,
  members,
  sections,
  materials,
  load_cases,
  combinations
};

/// In the order of the chooser: results, then the model.
inline constexpr std::array all_tables{
    TableKind::overview,   TableKind::checks,      TableKind::forces,        TableKind::not_checked,
    TableKind::remarks,    TableKind::buckling,    TableKind::displacements, TableKind::nodes,
    TableKind::elements,   TableKind::members,     TableKind::sections,      TableKind::materials,
    TableKind::load_cases, TableKind::combinations};

/// In the language in use.
QString name_of(TableKind kind);
/// For files: "checks", "load-cases".
QString file_name_of(TableKind kind);
/// Whether a table is of the stored results, else of the model.
bool is_of_results(TableKind kind);

/// A table, and what its rows are about.
struct ShownTable {
  tables::OutputTable table;
  RowElements elements;
  std::string why_empty;  ///< in place of a table without rows, in the language in use
};

/// A table of the open model or its results, all but that of forces, which takes an analysis. It is
/// the one that the command line writes, where that has it.
ShownTable shown_table(TableKind kind, const Workspace& workspace);

}  // namespace aluframe::desktop

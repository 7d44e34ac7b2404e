#pragma once

#include <string>
#include <utility>
#include <variant>

#include "aluframe/model/units.h"
#include "aluframe/run/input.h"
#include "aluframe/tables/output_table.h"
#include "apps/exit_status.h"

namespace aluframe::cli {

/// Options that several commands share.
struct CommonOptions {
  run::Selection selection;
  tables::Format format = tables::Format::table;
};

using UnitPair = std::pair<model::ForceUnit, model::LengthUnit>;

/// Reads "kN,m". @return the units, or what is wrong with the text
std::variant<UnitPair, std::string> parse_unit_pair(const std::string& text);

/// Prints why a run stops. @return the exit status
ExitStatus stop(const run::Problem& problem);

}  // namespace aluframe::cli

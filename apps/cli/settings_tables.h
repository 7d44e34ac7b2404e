#pragma once

#include <string>
#include <vector>

#include "aluframe/model/model.h"
#include "aluframe/tables/output_table.h"

namespace aluframe::cli {

/// The settings and materials of a model, in any of the formats: two tables; a JSON object with
/// "settings", "settings_given" (false: the model has none, these are the defaults) and
/// "materials"; or CSV with a value a row (record, number, key, value). Stresses in N/mm².
std::string settings_text(const model::Model& model, tables::Format format);

/// What differs between the settings and materials of two models, a value a row.
tables::OutputTable settings_difference(const model::Model& before, const model::Model& after);

/// The difference for reading: "gamma_re_strength 0.8 -> 0.75", "material 3: fu 160 -> 265".
std::string difference_text(const tables::OutputTable& difference);

}  // namespace aluframe::cli

#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "aluframe/model/model.h"
#include "aluframe/run/results.h"
#include "aluframe/run/told.h"
#include "aluframe/services/report_run.h"
#include "aluframe/store/result_file.h"

namespace aluframe::tables {

/// What the results that the report goes by cover of the model, and what they tell of the elements
/// that it is of.
struct ReportBasis {
  std::optional<run::Coverage> coverage;  ///< nothing without a result file
  run::Told told;
  store::RunInfo info;
};

/// @throws std::runtime_error when the results cannot be read
ReportBasis report_basis(const services::ReportSummary& summary,
                         const std::filesystem::path& results);

/// The end of a report on the screen.
/// @param place where the report is, in the user's words
std::string report_summary_text(const model::Model& model, const services::ReportSummary& summary,
                                const std::string& place, const ReportBasis& basis);

/// What stands behind the readable copy: nobody should file a report without.
/// Its last line says that the copy is whole.
std::string report_appendix(const model::Model& model, const services::ReportSummary& summary,
                            const ReportBasis& basis);

}  // namespace aluframe::tables

#include "aluframe/tables/report_texts.h"

#include <algorithm>
#include <filesystem>
#include <vector>

#include "aluframe/model/number_ranges.h"
#include "aluframe/tables/check_summary.h"
#include "aluframe/tables/not_checked_tables.h"
#include "aluframe/tables/result_tables.h"
#include "aluframe/texts/text.h"

namespace aluframe::tables {

namespace {

std::string number_list(const std::vector<model::Number>& numbers, Lists lists) {
  return shown_list(model::join_as_ranges(numbers), lists);
}

std::string elements_text(std::size_t count) {
  return texts::counted(count, texts::translatable("{} element"),
                        texts::translatable("{} elements"));
}

/// How many failing elements the report says nothing of, and of which nobody can tell.
std::string unprinted_text(const services::UnprintedFailures& unprinted, Lists lists) {
  std::string text =
      unprinted.elements.empty()
          ? texts::translated(", 0 of which no line of the report says so")
          : texts::translated(", {} of which no line of the report says so: element {}",
                              unprinted.elements.size(), number_list(unprinted.elements, lists));
  if (!unprinted.unclear.empty()) {
    text += texts::translated("; whether it does of element {} cannot be told",
                              number_list(unprinted.unclear, lists));
  }
  return text;
}

/// The combinations that the report is of, and the ratios of its elements, as `check` ends with
/// them.
std::string ratios_text(const model::Model& model, const services::ReportSummary& summary,
                        const ReportBasis& basis, Lists lists) {
  std::string text;
  if (basis.coverage) {
    text =
        texts::translated("Combinations: {}\n", number_list(basis.coverage->combinations, lists));
  }
  return text + tables::ratios_text(model, basis.told, unprinted_text(summary.unprinted, lists));
}

}  // namespace

ReportBasis report_basis(const services::ReportSummary& summary,
                         const std::filesystem::path& results) {
  ReportBasis basis;
  if (std::filesystem::exists(results)) {
    const auto reader = store::ResultReader::open(results);
    std::vector<model::Number> elements = summary.reported;
    elements.insert(elements.end(), summary.not_reported.begin(), summary.not_reported.end());
    std::ranges::sort(elements);
    basis.coverage = run::coverage_of(*reader);
    basis.told = run::told_by(*reader, elements);
    basis.info = reader->info();
  }
  // Without a result file no element could be taken up: only the report knows why.
  basis.told.not_checked = summary.not_checked;
  return basis;
}

std::string report_summary_text(const model::Model& model, const services::ReportSummary& summary,
                                const std::string& place, const ReportBasis& basis) {
  std::string text = texts::translated("Report of {}, complete: {}\n",
                                       elements_text(summary.reported.size()), place);
  if (basis.coverage)
    text += texts::translated("Covered: {}\n", run::coverage_text(*basis.coverage));
  for (const store::GoverningRow& row : summary.unprinted.checks) {
    text += texts::translated("Fails without a line in the report: element {}, {} {}\n",
                              row.element, texts::translation_of(item_name(row.item)),
                              short_number(row.governing.Ratio()));
  }
  return text + ratios_text(model, summary, basis, Lists::shortened) + told_text(model, basis.told);
}

std::string report_appendix(const model::Model& model, const services::ReportSummary& summary,
                            const ReportBasis& basis) {
  std::string text = texts::translated(
      "\n\nSecond opinion (no part of the calculation report; docs/behaviour.md)\n");
  if (basis.coverage) {
    text += texts::translated("Covered: {}\n", run::coverage_text(*basis.coverage));
  }
  text += ratios_text(model, summary, basis, Lists::whole);
  if (!basis.told.safe_rows.empty()) {
    text += to_text(safe_table(basis.told.safe_rows, basis.info), false) + "\n";
  }
  return text + told_text(model, basis.told, Lists::whole) +
         texts::translated("\nComplete: report of {}\n", elements_text(summary.reported.size()));
}

}  // namespace aluframe::tables

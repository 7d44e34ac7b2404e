#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "aluframe/model/number_ranges.h"
#include "aluframe/run/element_result.h"
#include "aluframe/run/problem.h"
#include "aluframe/store/result_file.h"

// Stored results: where they are, what of them is wanted, and whether they are to be trusted.

namespace aluframe::run {

/// Where the results of a model are kept: beside it, with the extension ".aluresult".
std::filesystem::path result_path_of(std::filesystem::path model);

/// The result file that the user means: itself, or the one of a model.
std::filesystem::path result_file_of(const std::filesystem::path& input);

/// Which elements are wanted, and in which order.
struct ResultsQuery {
  model::NumberRanges elements;    ///< empty: all
  std::string sort = "element";    ///< one of `sort_names`
  std::optional<std::size_t> top;  ///< only so many of the first
  std::optional<double> over;      ///< only those with a larger ratio, safe ratios included
};

/// Second opinions by element; empty when the run went without.
std::map<std::uint32_t, store::SafeRow> safe_by_element(store::ResultReader& reader);

/// What results can be sorted by: "element", "ratio", "safe", or a check item.
std::string sort_names();
bool is_sort_name(const std::string& name);

/// The wanted elements with their governing checks. What the query names must exist.
Result<std::vector<ElementResult>> elements_of(store::ResultReader& reader,
                                               const ResultsQuery& query);

/// All records of an element, of the wanted combinations only; these must exist.
Result<std::vector<store::StoredRecord>> records_of(store::ResultReader& reader,
                                                    model::Number element,
                                                    const model::NumberRanges& combinations);

/// What the user should know before trusting the results of `input`, which are in `file`.
std::vector<std::string> cautions(const std::filesystem::path& input,
                                  const std::filesystem::path& file, store::RunState state);

}  // namespace aluframe::run

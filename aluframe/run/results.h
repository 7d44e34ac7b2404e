#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "aluframe/model/number_ranges.h"
#include "aluframe/run/element_result.h"
#include "aluframe/run/input.h"
#include "aluframe/run/problem.h"
#include "aluframe/run/second_opinion.h"
#include "aluframe/store/result_file.h"

// Stored results: where they are, what of them is wanted, and whether they are to be trusted.

namespace aluframe::run {

/// Where the results of a model are kept: beside it, with the extension ".aluresult".
std::filesystem::path result_path_of(std::filesystem::path model);

/// The result file that the user means: itself, or the one of a model.
std::filesystem::path result_file_of(const std::filesystem::path& input);

/// The file of the model that the results are of, links resolved; nothing when there are no results
/// in the file that can be read, or they do not say.
std::optional<std::filesystem::path> model_of_results(const std::filesystem::path& results);

/// Which elements are wanted, and in which order.
struct ResultsQuery {
  model::NumberRanges elements;    ///< empty: all
  std::string sort = "element";    ///< one of `sort_names`
  std::optional<std::size_t> top;  ///< only so many of the first
  std::optional<double> over;      ///< only those with a larger ratio, safe ratios included
};

/// Second opinions by element; empty when the run went without.
std::map<std::uint32_t, store::SafeRow> safe_by_element(store::ResultReader& reader);

/// A check item by its name: "strength", "shear-y", "combined-stability", ...
std::optional<int> parse_item(std::string_view name);
std::string_view item_name(int item);
/// "strength, shear-y, ...".
std::string item_names();

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

/// What of a model the results cover.
struct Coverage {
  std::size_t elements = 0;  ///< that the run took up, with results or named as not checked
  std::size_t of_elements = 0;
  std::vector<model::Number> combinations;  ///< of the model, an envelope once; rising
  std::size_t of_combinations = 0;          ///< for design
  /// What was checked one by one: combinations, or in their place their states.
  std::vector<model::Number> states;
  std::size_t of_states = 0;
  bool by_states = false;  ///< an envelope was checked by its states
  std::string analysis;    ///< where forces come from, as `RunSetup` has it
  SecondOpinion second_opinion = SecondOpinion::on;

  bool is_whole() const { return elements == of_elements && states.size() == of_states; }
};

Coverage coverage_of(store::ResultReader& reader);

/// "1 of 2", or "1 of 2 (as 3 of 5 states)".
std::string combinations_text(const Coverage& coverage);
/// "elements 2 of 3, combinations 1 of 2, forces: linear", for the user; and that the second
/// opinion was off, when it was.
std::string coverage_text(const Coverage& coverage);

/// The options that the run in the result file was made with, where these here do not say
/// otherwise: its file of forces, and second order on request.
InputOptions as_checked(const InputOptions& options, const std::filesystem::path& file,
                        const store::RunInfo& info);

/// Reads the input of a report: as the results that it goes by were made, and of the combinations
/// that they cover. Without a result file the whole model.
Result<Input> prepare_like(const std::filesystem::path& results, const InputOptions& options,
                           const Selection& selection);

/// What the user should know before trusting results: their run did not end, or they are of another
/// state of the model, its catalogues or its forces. `input` may be the result file itself, which
/// leaves nothing to compare with.
/// @param known the digest of the input when it was read already, as its options say; nothing: it is
///   read
std::vector<std::string> cautions(const InputOptions& input, const std::filesystem::path& file,
                                  store::ResultReader& reader,
                                  const std::optional<std::string>& known = std::nullopt);
/// Of them, that they are of another state of the model.
std::string other_state_text(const std::filesystem::path& model, const std::filesystem::path& file);
/// Of them, that a later run has left a partial file beside these results.
std::optional<std::string> later_run_text(const std::filesystem::path& file);
/// Of them, that their run did not end.
std::optional<std::string> unfinished_text(const std::filesystem::path& file,
                                           store::RunState state);
/// Where results may be found that a run which ended early has left in place of the missing file;
/// nothing when the file is there or nothing is left.
std::optional<std::string> left_instead_text(const std::filesystem::path& file);
/// What stands in the way of going by the results of a model: there are none. Nothing when the file
/// is there.
std::optional<Problem> missing_results(const std::filesystem::path& file,
                                       const std::filesystem::path& model);

}  // namespace aluframe::run

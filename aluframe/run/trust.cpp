// Whether stored results are to be trusted: what they cover, how they were made, and whether the
// model is still as it was.

#include <algorithm>
#include <set>
#include <stdexcept>
#include <utility>
#include <variant>

#include "aluframe/files/file_kind.h"
#include "aluframe/platform/path_text.h"
#include "aluframe/run/buckling.h"
#include "aluframe/run/results.h"
#include "aluframe/run/setup.h"
#include "aluframe/texts/sentence.h"
#include "aluframe/texts/text.h"

namespace aluframe::run {

namespace fs = std::filesystem;

Coverage coverage_of(store::ResultReader& reader) {
  const store::RunInfo& info = reader.info();
  const std::vector<std::uint32_t> stored = reader.elements();
  std::set<std::uint32_t> elements(stored.begin(), stored.end());
  for (const store::NotChecked& item : reader.not_checked()) {
    if (!item.combination) elements.insert(item.element);
  }
  Coverage coverage{.elements = elements.size(),
                    .of_elements = info.model_elements,
                    .combinations = {},
                    .of_combinations = info.model_combinations,
                    .states = {},
                    .of_states = info.model_states,
                    .by_states = !info.envelope_states.empty(),
                    .analysis = info.setup.analysis,
                    .second_opinion = second_opinion_of(info.setup)};
  std::set<model::Number> combinations;
  for (const store::CombinationRow& row : info.combinations) {
    coverage.states.push_back(row.number);
    coverage.by_states = coverage.by_states || row.state_of.has_value();
    combinations.insert(row.state_of.value_or(row.number));
  }
  // Another combination may stand for a state.
  for (const store::EnvelopeState& row : info.envelope_states) combinations.insert(row.envelope);
  coverage.combinations = {combinations.begin(), combinations.end()};
  return coverage;
}

std::string combinations_text(const Coverage& coverage) {
  std::string text =
      texts::translated("{} of {}", coverage.combinations.size(), coverage.of_combinations);
  if (!coverage.by_states) return text;
  const std::size_t states = coverage.states.size();
  if (states != coverage.of_states) {
    return texts::translated("{} (as {} of {} states)", text, states, coverage.of_states);
  }
  return states == 1 ? texts::translated("{} (as 1 state)", text)
                     : texts::translated("{} (as {} states)", text, states);
}

std::string coverage_text(const Coverage& coverage) {
  const std::string text = texts::translated(
      "elements {} of {}, combinations {}, forces: {}", coverage.elements, coverage.of_elements,
      combinations_text(coverage), texts::sentence_in_words(coverage.analysis));
  return coverage.second_opinion == SecondOpinion::off
             ? texts::translated("{}, second opinion: off", text)
             : text;
}

InputOptions as_checked(const InputOptions& options, const fs::path& file,
                        const store::RunInfo& info) {
  InputOptions out = options;
  const bool is_large = info.setup.analysis == large_displacements;
  out.second_order = out.second_order || (info.setup.second_order_asked && !is_large);
  out.large_displacements = out.large_displacements || (info.setup.second_order_asked && is_large);
  if (buckling_of(info.setup) == FrameBuckling::off) out.buckling = FrameBuckling::off;
  if (!out.forces && !info.setup.forces_file.empty()) {
    out.forces =
        (file.parent_path() / platform::path_of(info.setup.forces_file)).lexically_normal();
  }
  return out;
}

Result<Input> prepare_like(const fs::path& results, const InputOptions& options,
                           const Selection& selection) {
  if (!fs::exists(results)) return prepare(options, selection);
  const auto reader = store::ResultReader::open(results);
  auto prepared = prepare(as_checked(options, results, reader->info()), selection);
  auto* input = std::get_if<Input>(&prepared);
  if (input == nullptr) return prepared;
  const Coverage coverage = coverage_of(*reader);
  if (coverage.states.size() < coverage.of_states) {
    input->combinations = {coverage.states.begin(), coverage.states.end()};
  }
  return prepared;
}

std::optional<fs::path> model_of_results(const fs::path& results) {
  if (files::kind_of(results) != files::FileKind::results) return std::nullopt;
  try {
    const std::string model = store::ResultReader::open(results)->info().setup.model_file;
    if (model.empty()) return std::nullopt;
    return (fs::weakly_canonical(results).parent_path() / platform::path_of(model))
        .lexically_normal();
  } catch (const std::runtime_error&) {
    return std::nullopt;  // of another version or damaged: nobody can tell any more
  }
}

std::optional<std::string> unfinished_text(const fs::path& file, store::RunState state) {
  switch (state) {
    case store::RunState::complete:
      if (file.extension() != store::partial_path_of("results").extension()) return std::nullopt;
      return texts::translated("{}: these results are whole but could not be put in their place",
                               file.string());
    case store::RunState::running:
      return texts::translated("{}: these results are of a run that did not finish", file.string());
    default:
      return texts::translated("{}: these results are of a run that was stopped before its end",
                               file.string());
  }
}

std::optional<std::string> later_run_text(const fs::path& file) {
  const fs::path partial = store::partial_path_of(file);
  std::error_code ignored;
  if (!fs::exists(partial, ignored)) return std::nullopt;
  return texts::translated(
      "{}: a later run is going on or ended early; these results are of an earlier one",
      partial.string());
}

std::optional<std::string> left_instead_text(const fs::path& file) {
  const fs::path partial = store::partial_path_of(file);
  std::error_code ignored;
  if (fs::exists(file, ignored) || !fs::exists(partial, ignored)) return std::nullopt;
  return texts::translated(
      "{}: there is no such file yet; {} holds what a run that is going on or ended "
      "early has stored",
      file.string(), partial.string());
}

std::string other_state_text(const fs::path& model, const fs::path& file) {
  return texts::translated(
      "{}: these results are of another state of {} or its forces; check it again", file.string(),
      model.string());
}

std::vector<std::string> cautions(const InputOptions& input, const fs::path& file,
                                  store::ResultReader& reader,
                                  const std::optional<std::string>& known) {
  std::vector<std::string> out;
  if (auto text = unfinished_text(file, reader.state())) out.push_back(*std::move(text));
  if (auto text = later_run_text(file)) out.push_back(*std::move(text));
  if (input.model == file) return out;
  const InputOptions checked = as_checked(input, file, reader.info());
  if (known && checked == input) {
    if (*known != reader.info().model_digest) out.push_back(other_state_text(input.model, file));
    return out;
  }
  const auto read = read_input(checked);
  if (const auto* problem = std::get_if<Problem>(&read)) {
    out.push_back(texts::translated("{}: cannot be compared with the model: {}", file.string(),
                                    problem->text));
  } else if (std::get<Input>(read).digest != reader.info().model_digest) {
    out.push_back(other_state_text(input.model, file));
  }
  return out;
}

std::optional<Problem> missing_results(const fs::path& file, const fs::path& model) {
  if (const auto text = left_instead_text(file)) return Problem{*text};
  std::error_code ignored;
  if (fs::exists(file, ignored)) return std::nullopt;
  return Problem{
      texts::translated("{}: there is no such file; check the model first: aluframe check {}",
                        file.string(), model.string())};
}

}  // namespace aluframe::run

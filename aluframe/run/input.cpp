#include "aluframe/run/input.h"

#include <fmt/format.h>

#include <utility>
#include <variant>

#include "aluframe/io/model_file.h"
#include "aluframe/members/find_members.h"
#include "aluframe/members/length_factors.h"
#include "aluframe/model/envelopes.h"
#include "aluframe/run/remarks.h"
#include "aluframe/texts/sentence.h"
#include "aluframe/texts/text.h"

namespace aluframe::run {

namespace {

namespace fs = std::filesystem;

std::vector<model::Number> element_numbers(const model::Model& model) {
  std::vector<model::Number> numbers;
  for (const model::Element& element : model.elements) numbers.push_back(element.number);
  return numbers;
}

/// Limits the input to what is selected. @return the message when something of it does not exist
std::optional<std::string> limit(const Selection& selection, Input& input) {
  if (!selection.elements.empty()) {
    auto chosen = model::select(selection.elements, element_numbers(input.model), "element");
    if (const auto* text = std::get_if<std::string>(&chosen)) return "--elements: " + *text;
    input.elements = std::get<std::vector<model::Number>>(std::move(chosen));
  }
  if (!selection.combinations.empty()) {
    const auto chosen = model::select(selection.combinations, model::design_numbers(input.model),
                                      texts::translated("design combination"));
    if (const auto* text = std::get_if<std::string>(&chosen)) return "--combinations: " + *text;
    input.combinations =
        model::checked_combinations(input.model, std::get<std::vector<model::Number>>(chosen));
  }
  return std::nullopt;
}

void find_length_factors(Input& input) {
  input.length_factors = members::length_factors(input.model);
  if (input.buckling == FrameBuckling::off) return;
  if (!members::need_modes(input.model, input.length_factors)) return;
  input.modes = frame_modes_of_all(input);
  input.length_factors = members::length_factors(input.model, input.modes->modes);
}

}  // namespace

Result<Input> read_input(const InputOptions& options, const Selection& selection) {
  io::FileNotes notes;
  auto read = io::read_model(options.model, &notes, options.allow_outside);
  if (const auto* problem = std::get_if<io::Problem>(&read)) return Problem{problem->message()};
  Input input;
  input.file = options.model;
  input.buckling = options.buckling;
  input.model = std::get<model::Model>(std::move(read));
  input.found_members = members::complete(input.model);
  if (options.forces) {
    const auto rows = io::read_forces_csv(*options.forces, input.model);
    if (const auto* problem = std::get_if<io::Problem>(&rows)) return Problem{problem->message()};
  }
  const model::AnalysisSettings given = input.model.analysis;
  model::AnalysisSettings& analysis = input.model.analysis;
  analysis.large_displacements = given.large_displacements || options.large_displacements;
  if (analysis.large_displacements && given.imperfections.any()) {
    return Problem{options.model.string() + ": /analysis/imperfections: " +
                   std::string(texts::translation_of(no_large_imperfections))};
  }
  analysis.second_order =
      given.second_order || options.second_order || analysis.large_displacements;
  input.origins = {.given_settings = std::move(notes.given_settings),
                   .forces = options.forces,
                   .second_order_asked = analysis != given};
  input.digest = io::model_digest(input.model);
  if (const auto text = model::expand_envelopes(input.model)) {
    return Problem{options.model.string() + ": " + *text};
  }
  if (const auto problem = limit(selection, input)) {
    return Problem{options.model.string() + ": " + *problem};
  }
  return input;
}

Result<Input> prepare(const InputOptions& options, const Selection& selection) {
  auto read = read_input(options, selection);
  auto* input = std::get_if<Input>(&read);
  if (input == nullptr) return read;
  const store::SettingRow analysis = analysis_setting(input->model, input->origins);
  const auto computed = forces::compute_forces(input->model);
  if (const auto* problem = std::get_if<analysis::Problem>(&computed)) {
    return problem_of(options.model, *problem);
  }
  input->forces = std::get<forces::Summary>(computed);
  find_length_factors(*input);
  input->restrained = restrained_elements(*input, input->length_factors);
  input->setup = setup_of(input->model, input->origins, input->length_factors, analysis);
  if (auto row = restraints_row(input->model, input->restrained)) {
    input->setup.settings.push_back(std::move(*row));
  }
  input->remarks = input_remarks(*input);
  return read;
}

Problem problem_of(const fs::path& file, const analysis::Problem& problem) {
  using Kind = analysis::Problem::Kind;
  std::string place;
  if (problem.element) place = fmt::format("/elements/{}: ", *problem.element);
  if (problem.node) place = fmt::format("/nodes/{}: ", *problem.node);
  const bool is_of_input = problem.kind == Kind::input || problem.kind == Kind::mechanism ||
                           problem.kind == Kind::buckling;
  return {fmt::format("{}: {}{}", file.string(), place, texts::sentence_in_words(problem.text)),
          is_of_input ? Problem::Kind::input : Problem::Kind::failure};
}

}  // namespace aluframe::run

#include "apps/cli/run_input.h"

#include <fmt/format.h>

#include <system_error>
#include <vector>

#include "aluframe/io/model_file.h"
#include "apps/cli/number_ranges.h"
#include "apps/cli/terminal.h"

namespace aluframe::cli {

namespace {

template <class Entities>
std::vector<model::Number> numbers_of(const Entities& entities) {
  std::vector<model::Number> numbers;
  for (const auto& entity : entities) numbers.push_back(entity.number);
  return numbers;
}

std::vector<model::Number> design_combinations(const model::Model& model) {
  std::vector<model::Number> numbers;
  for (const model::Combination& combination : model.combinations) {
    if (combination.design) numbers.push_back(combination.number);
  }
  return numbers;
}

}  // namespace

std::variant<model::Model, std::string> load_model(
    const std::filesystem::path& file, const std::optional<std::filesystem::path>& forces) {
  auto read = io::read_model(file);
  if (const auto* problem = std::get_if<io::Problem>(&read)) return problem->message();
  auto& model = std::get<model::Model>(read);
  if (forces) {
    const auto rows = io::read_forces_csv(*forces, model);
    if (const auto* problem = std::get_if<io::Problem>(&rows)) return problem->message();
  }
  return std::move(model);
}

std::optional<std::string> limit(const model::Model& model, const CommonOptions& common,
                                 services::SessionOptions& out) {
  out.model_digest = io::model_digest(model);
  if (!common.elements.empty()) {
    auto selected = select(common.elements, numbers_of(model.elements), "element");
    if (const auto* text = std::get_if<std::string>(&selected)) return "--elements: " + *text;
    out.selected = std::get<std::vector<model::Number>>(std::move(selected));
  }
  if (!common.combinations.empty()) {
    auto selected = select(common.combinations, design_combinations(model), "design combination");
    if (const auto* text = std::get_if<std::string>(&selected)) return "--combinations: " + *text;
    const auto& numbers = std::get<std::vector<model::Number>>(selected);
    out.combinations = {numbers.begin(), numbers.end()};
  }
  return std::nullopt;
}

std::variant<UnitPair, std::string> parse_unit_pair(const std::string& text) {
  const std::size_t comma = text.find(',');
  const auto force = model::parse_force_unit(text.substr(0, comma));
  const auto length =
      comma == std::string::npos ? std::nullopt : model::parse_length_unit(text.substr(comma + 1));
  if (!force || !length) {
    return fmt::format("found '{}', must be a force unit ({}), a comma and a length unit ({})",
                       text, model::force_unit_names(), model::length_unit_names());
  }
  return UnitPair{*force, *length};
}

void warn_about_results(const std::filesystem::path& input, const std::filesystem::path& file,
                        store::RunState state) {
  if (state == store::RunState::running) {
    print_message(file.string() + ": these results are of a run that did not finish");
  } else if (state != store::RunState::complete) {
    print_message(file.string() + ": these results are of a run that was stopped before its end");
  }
  std::error_code error;
  if (input != file &&
      std::filesystem::last_write_time(input, error) >
          std::filesystem::last_write_time(file, error) &&
      !error) {
    print_message(input.string() + " is newer than its results; check it again");
  }
}

}  // namespace aluframe::cli

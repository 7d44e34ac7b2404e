#include "apps/cli/run_input.h"

#include <fmt/format.h>

#include <system_error>
#include <vector>

#include "aluframe/io/model_file.h"
#include "aluframe/members/find_members.h"
#include "aluframe/model/envelopes.h"
#include "apps/cli/number_ranges.h"
#include "apps/cli/terminal.h"

namespace aluframe::cli {

namespace {

namespace fs = std::filesystem;

template <class Entities>
std::vector<model::Number> numbers_of(const Entities& entities) {
  std::vector<model::Number> numbers;
  for (const auto& entity : entities) numbers.push_back(entity.number);
  return numbers;
}

}  // namespace

std::variant<Input, std::string> load_input(const InputOptions& options) {
  auto read = io::read_model(options.model);
  if (const auto* problem = std::get_if<io::Problem>(&read)) return problem->message();
  auto& model = std::get<model::Model>(read);
  const std::size_t found = members::complete(model);
  if (options.forces) {
    const auto rows = io::read_forces_csv(*options.forces, model);
    if (const auto* problem = std::get_if<io::Problem>(&rows)) return problem->message();
  }
  if (options.second_order) model.analysis.second_order = true;
  std::string digest = io::model_digest(model);
  if (const auto text = model::expand_envelopes(model)) {
    return fmt::format("{}: {}", options.model.string(), *text);
  }
  return Input{std::move(model), found, std::move(digest)};
}

Stop stop_of(const fs::path& file, const analysis::Problem& problem) {
  using Kind = analysis::Problem::Kind;
  std::string place;
  if (problem.element) place = fmt::format("/elements/{}: ", *problem.element);
  if (problem.node) place = fmt::format("/nodes/{}: ", *problem.node);
  const bool is_of_input = problem.kind == Kind::input || problem.kind == Kind::mechanism ||
                           problem.kind == Kind::buckling;
  return {fmt::format("{}: {}{}", file.string(), place, problem.text),
          is_of_input ? exit_input_error : exit_failure};
}

std::variant<forces::Summary, Stop> add_forces(const fs::path& file, model::Model& model) {
  auto computed = forces::compute_forces(model);
  if (const auto* problem = std::get_if<analysis::Problem>(&computed)) {
    return stop_of(file, *problem);
  }
  return std::get<forces::Summary>(computed);
}

std::string forces_text(const forces::Summary& summary) {
  const auto plural = [](std::size_t count) { return count == 1 ? "" : "s"; };
  if (summary.second_order_analyses > 0) {
    return fmt::format("{} second-order analys{}, at most {} iterations, residual {:.1e}",
                       summary.second_order_analyses,
                       summary.second_order_analyses == 1 ? "is" : "es", summary.iterations,
                       summary.residual);
  }
  return fmt::format("linear analysis of {} load case{}, residual {:.1e}", summary.load_cases,
                     plural(summary.load_cases), summary.residual);
}

std::optional<std::string> limit(const Input& input, const CommonOptions& common,
                                 services::SessionOptions& out) {
  const model::Model& model = input.model;
  out.model_digest = input.digest;
  if (!common.elements.empty()) {
    auto selected = select(common.elements, numbers_of(model.elements), "element");
    if (const auto* text = std::get_if<std::string>(&selected)) return "--elements: " + *text;
    out.selected = std::get<std::vector<model::Number>>(std::move(selected));
  }
  if (!common.combinations.empty()) {
    auto selected = select(common.combinations, model::design_numbers(model), "design combination");
    if (const auto* text = std::get_if<std::string>(&selected)) return "--combinations: " + *text;
    out.combinations =
        model::checked_combinations(model, std::get<std::vector<model::Number>>(selected));
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

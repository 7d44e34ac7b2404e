#include "apps/cli/analyse_command.h"

#include <fmt/format.h>

#include <algorithm>
#include <tuple>
#include <utility>
#include <variant>

#include "aluframe/forces/analyse_sets.h"
#include "aluframe/forces/load_sets.h"
#include "aluframe/services/report_file.h"
#include "apps/cli/output_file.h"
#include "apps/cli/terminal.h"

namespace aluframe::cli {

namespace {

constexpr AnalysisTable all_tables[] = {AnalysisTable::summary, AnalysisTable::displacements,
                                        AnalysisTable::reactions, AnalysisTable::forces};

/// Sets of loads to analyse, and the numbers of what they are of.
struct Subjects {
  bool of_combinations = false;
  std::vector<model::Number> numbers;
  std::vector<forces::LoadSet> sets;
};

[[noreturn]] void stop(const AnalyseOptions& options, const std::string& text) {
  throw Stop{options.input.model.string() + ": " + text, exit_input_error};
}

/// The numbers that the user named, all of them when none.
std::vector<model::Number> chosen(const AnalyseOptions& options, const char* name,
                                  const NumberRanges& ranges,
                                  const std::vector<model::Number>& existing,
                                  const std::string& what) {
  if (ranges.empty()) return existing;
  auto selected = select(ranges, existing, what);
  if (const auto* text = std::get_if<std::string>(&selected)) {
    stop(options, fmt::format("{}: {}", name, *text));
  }
  return std::get<std::vector<model::Number>>(std::move(selected));
}

void require_loads(const AnalyseOptions& options, const model::Model& model,
                   const std::string& subject, const forces::LoadSet& set) {
  for (const auto& entry : set) {
    const model::LoadCase& load_case = model.load_cases[entry.load_case];
    if (forces::has_loads(load_case)) continue;
    stop(options, fmt::format("{}load case {} has no loads", subject, load_case.number));
  }
}

Subjects chosen_cases(const AnalyseOptions& options, const model::Model& model) {
  Subjects subjects;
  std::vector<model::Number> with_loads;
  for (const model::LoadCase& load_case : model.load_cases) {
    if (forces::has_loads(load_case)) with_loads.push_back(load_case.number);
  }
  subjects.numbers = chosen(options, "--cases", options.cases, with_loads, "load case with loads");
  if (subjects.numbers.empty()) stop(options, "has no loads to analyse");
  for (const model::Number number : subjects.numbers) {
    subjects.sets.push_back({{model.load_cases.position(number), 1.0}});
  }
  return subjects;
}

Subjects chosen_combinations(const AnalyseOptions& options, const model::Model& model) {
  Subjects subjects{.of_combinations = true, .numbers = {}, .sets = {}};
  std::vector<model::Number> existing;
  for (const model::Combination& combination : model.combinations) {
    if (!combination.state_of) existing.push_back(combination.number);
  }
  const auto plans = model::compile_combinations(model);
  std::vector<model::Number> envelopes;
  for (const model::Number number :
       chosen(options, "--combinations", options.combinations, existing, "combination")) {
    const model::CombinationPlan& plan = plans[model.combinations.position(number)];
    if (plan.two_sides) {
      envelopes.push_back(number);
      continue;
    }
    require_loads(options, model, fmt::format("combination {}: ", number), plan.cases);
    subjects.numbers.push_back(number);
    subjects.sets.push_back(plan.cases);
  }
  if (!envelopes.empty()) {
    std::ranges::sort(envelopes);
    print_message(
        fmt::format("left out: combination {}; the two sides of an envelope are no state "
                    "of the frame",
                    join_as_ranges(envelopes)));
  }
  if (subjects.numbers.empty()) stop(options, "has no combination to analyse");
  return subjects;
}

/// Load cases in first order; in second order, where they do not add up, combinations; but what the
/// user names goes first.
Subjects chosen_subjects(const AnalyseOptions& options, const model::Model& model) {
  const bool wants_combinations =
      !options.combinations.empty() ||
      (model.analysis.second_order && options.cases.empty() && !model.combinations.empty());
  return wants_combinations ? chosen_combinations(options, model) : chosen_cases(options, model);
}

model::Units units_of(const AnalyseOptions& options, const model::Model& model) {
  if (!options.units) return model.units;
  const auto parsed = parse_unit_pair(*options.units);
  if (const auto* text = std::get_if<std::string>(&parsed)) {
    throw Stop{"--units: " + *text, exit_input_error};
  }
  model::Units units = model.units;
  std::tie(units.force, units.length) = std::get<UnitPair>(parsed);
  return units;
}

/// Refuses numbers that do not exist, and tells which are shown.
template <class Entities>
std::function<bool(model::Number)> shows(const AnalyseOptions& options, const char* name,
                                         const NumberRanges& ranges, const Entities& entities,
                                         const std::string& what) {
  std::vector<model::Number> existing;
  for (const auto& entity : entities) existing.push_back(entity.number);
  chosen(options, name, ranges, existing, what);
  return [ranges](model::Number number) { return ranges.empty() || ranges.contains(number); };
}

AnalysisView analysed(const AnalyseOptions& options, const model::Model& model) {
  AnalysisView view;
  view.model = &model;
  view.units = units_of(options, model);
  view.shows_node = shows(options, "--nodes", options.nodes, model.nodes, "node");
  view.shows_element = shows(options, "--elements", options.elements, model.elements, "element");
  view.second_order = model.analysis.second_order;
  Subjects subjects = chosen_subjects(options, model);
  auto solved = forces::analyse_sets(
      model, subjects.sets, view.second_order ? forces::Order::second : forces::Order::first);
  if (auto* problem = std::get_if<analysis::Problem>(&solved)) {
    if (problem->load_case) {
      problem->text =
          fmt::format("{} {}: {}", subjects.of_combinations ? "combination" : "load case",
                      subjects.numbers[*problem->load_case], problem->text);
    }
    throw stop_of(options.input.model, *problem);
  }
  view.answers = std::get<std::vector<analysis::SecondOrderResult>>(std::move(solved));
  view.of_combinations = subjects.of_combinations;
  view.subjects = std::move(subjects.numbers);
  return view;
}

std::string text_of(const AnalyseOptions& options, const AnalysisView& view) {
  std::string out;
  for (const AnalysisTable table : all_tables) {
    if (!options.show.empty() && !options.show.contains(table)) continue;
    std::string text = render(analysis_table(table, view), options.format, false);
    if (options.format == Format::csv) return text;
    if (options.format == Format::json) {
      if (text.ends_with('\n')) text.pop_back();
      out += fmt::format("{}\"{}\": {}", out.empty() ? "{" : ",\n", name_of(table), text);
    } else {
      out += fmt::format("{}{}\n{}", out.empty() ? "" : "\n", heading_of(table), text);
    }
  }
  return options.format == Format::json ? out + "}\n" : out;
}

/// The model and what was analysed, above the tables.
std::string title_text(const AnalysisView& view) {
  const std::string title = view.model->title.empty() ? "Untitled model" : view.model->title;
  return fmt::format("{}: {} analysis\n\n", title, view.second_order ? "second-order" : "linear");
}

int run(const AnalyseOptions& options) {
  if (options.format == Format::csv && options.show.size() != 1) {
    throw Stop{"--format csv writes one table: name it with --show", exit_input_error};
  }
  if (!options.cases.empty() && !options.combinations.empty()) {
    throw Stop{"--cases and --combinations do not go together", exit_input_error};
  }
  if (options.output && services::is_same_file(*options.output, options.input.model)) {
    throw Stop{"--output: " + options.output->string() + " is the input", exit_input_error};
  }
  const auto loaded = load_input(options.input);
  if (const auto* text = std::get_if<std::string>(&loaded)) throw Stop{*text, exit_input_error};
  const AnalysisView view = analysed(options, std::get<Input>(loaded).model);
  const std::string title = options.format == Format::table ? title_text(view) : "";
  return write_output(title + text_of(options, view), options.output);
}

}  // namespace

int run_analyse_command(const AnalyseOptions& options) {
  try {
    return run(options);
  } catch (const Stop& stop) {
    print_message(stop.message);
    return stop.status;
  }
}

}  // namespace aluframe::cli

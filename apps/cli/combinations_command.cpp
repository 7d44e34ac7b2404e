#include "apps/cli/combinations_command.h"

#include <fmt/format.h>

#include <variant>
#include <vector>

#include "aluframe/combinations/make_combinations.h"
#include "aluframe/io/model_edit.h"
#include "aluframe/io/model_file.h"
#include "aluframe/model/combinations.h"
#include "aluframe/texts/text.h"
#include "apps/cli/combinations_table.h"
#include "apps/cli/terminal.h"
#include "apps/exit_status.h"

namespace aluframe::cli {

namespace {

using Made = std::vector<combinations::MadeCombination>;

/// What the rule makes: that of the command, else of the model; nothing when there is none.
std::variant<Made, combinations::Fault> made_of(const CombinationsOptions& options,
                                                model::Model& model) {
  if (options.rule) {
    model::CombinationRule rule = model.combination_rule.value_or(model::CombinationRule());
    if (rule.rule != *options.rule) rule = {.rule = *options.rule, .table = rule.table};
    model.combination_rule = std::move(rule);
  }
  if (!model.combination_rule) return Made();
  auto made = combinations::make_combinations(model, *model.combination_rule);
  auto* fault = std::get_if<combinations::Fault>(&made);
  if (fault != nullptr && options.rule && fault->place == "/combinations/rule") {
    fault->place = "--rule";
  }
  return made;
}

/// Combinations that the file has, as it has them, without those of its rule.
std::vector<model::Combination> own_of(const model::Model& model) {
  std::vector<model::Combination> own;
  for (const model::Combination& combination : model.combinations) {
    if (!combination.by_rule) own.push_back(combination);
  }
  return own;
}

io::Problem problem_of(const CombinationsOptions& options, const combinations::Fault& fault) {
  return {options.model.string(), fault.place, fault.text};
}

int stop_at(const io::Problem& problem) {
  print_message(problem.message());
  return problem.kind == io::Problem::Kind::failure ? exit_failure : exit_input_error;
}

int show(const CombinationsOptions& options, model::Model model) {
  const auto made = made_of(options, model);
  if (const auto* fault = std::get_if<combinations::Fault>(&made)) {
    return stop_at(problem_of(options, *fault));
  }
  const tables::OutputTable table =
      combinations_table(model, own_of(model), std::get<Made>(made),
                         options.explain ? Detail::explained : Detail::brief);
  print_text(tables::render(table, options.format, false));
  if (!model.combination_rule && model.combinations.empty()) {
    print_message(texts::translated("{} has no combinations and names no rule; --rule makes some",
                                    options.model.string()));
  }
  return exit_done;
}

int write(const CombinationsOptions& options) {
  std::size_t made_count = 0;
  const auto choose = [&](const model::Model& now) -> io::Result<io::ModelChanges> {
    model::Model model = now;
    const auto made = made_of(options, model);
    if (const auto* fault = std::get_if<combinations::Fault>(&made)) {
      return problem_of(options, *fault);
    }
    std::vector<model::Combination> all = own_of(model);
    made_count = std::get<Made>(made).size();
    for (const combinations::MadeCombination& each : std::get<Made>(made)) {
      all.push_back(combinations::combination_of(each));
      all.back().by_rule = false;
    }
    io::ModelChanges changes;
    if (made_count > 0) changes.combinations = std::move(all);
    return changes;
  };
  if (const auto problem = io::change_model_file(options.model, choose, options.allow_outside)) {
    return stop_at(*problem);
  }
  if (made_count == 0) {
    print_message(texts::translated("{}: no rule makes combinations; nothing to change",
                                    options.model.string()));
    return exit_done;
  }
  print_message(texts::counted(made_count, texts::translatable("{} combination written"),
                               texts::translatable("{} combinations written")));
  return exit_done;
}

}  // namespace

int run_combinations_command(const CombinationsOptions& options) {
  if (options.write) return write(options);
  auto read = io::read_model(options.model, nullptr, options.allow_outside);
  if (const auto* problem = std::get_if<io::Problem>(&read)) return stop_at(*problem);
  return show(options, std::get<model::Model>(std::move(read)));
}

}  // namespace aluframe::cli

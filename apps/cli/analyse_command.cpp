#include "apps/cli/analyse_command.h"

#include <fmt/format.h>

#include <functional>
#include <tuple>
#include <utility>
#include <variant>

#include "aluframe/files/output_guard.h"
#include "aluframe/model/number_ranges.h"
#include "aluframe/run/imperfections_text.h"
#include "aluframe/run/remarks.h"
#include "aluframe/texts/sentence.h"
#include "aluframe/texts/text.h"
#include "apps/cli/output_file.h"
#include "apps/cli/terminal.h"

namespace aluframe::cli {

namespace {

using tables::AnalysisTable;
using tables::AnalysisView;
using tables::Format;

constexpr AnalysisTable all_tables[] = {AnalysisTable::area_loads,    AnalysisTable::pressures,
                                        AnalysisTable::line_loads,    AnalysisTable::summary,
                                        AnalysisTable::displacements, AnalysisTable::reactions,
                                        AnalysisTable::forces};

model::Units units_of(const AnalyseOptions& options, const model::Model& model) {
  if (!options.units) return model.units;
  const auto parsed = parse_unit_pair(*options.units);
  if (const auto* text = std::get_if<std::string>(&parsed)) {
    throw run::Problem{"--units: " + *text};
  }
  model::Units units = model.units;
  std::tie(units.force, units.length) = std::get<UnitPair>(parsed);
  return units;
}

/// Refuses numbers that do not exist, and tells which are shown.
template <class Entities>
std::function<bool(model::Number)> shows(const AnalyseOptions& options, const char* name,
                                         const model::NumberRanges& ranges,
                                         const Entities& entities, const std::string& what) {
  std::vector<model::Number> existing;
  for (const auto& entity : entities) existing.push_back(entity.number);
  const auto selected = model::select(ranges, existing, what);
  if (const auto* text = std::get_if<std::string>(&selected)) {
    throw run::Problem{fmt::format("{}: {}: {}", options.input.model.string(), name, *text)};
  }
  return [ranges](model::Number number) { return ranges.empty() || ranges.contains(number); };
}

AnalysisView view_of(const AnalyseOptions& options, const model::Model& model) {
  AnalysisView view;
  view.model = &model;
  view.units = units_of(options, model);
  view.shows_node = shows(options, "--nodes", options.nodes, model.nodes, "node");
  view.shows_element = shows(options, "--elements", options.elements, model.elements, "element");
  return view;
}

run::Analysis analysed(const AnalyseOptions& options, const run::Input& input) {
  auto answered = run::analyse(input, options.subjects);
  if (auto* problem = std::get_if<run::Problem>(&answered)) throw std::move(*problem);
  auto& analysis = std::get<run::Analysis>(answered);
  if (!analysis.left_out.empty()) {
    print_message(texts::translated(
        "left out: combination {}; the two sides of an envelope are no state of the "
        "frame",
        model::join_as_ranges(analysis.left_out)));
  }
  for (std::size_t i = 0; i < analysis.subjects.size(); ++i) {
    const analysis::SecondOrderResult& answer = analysis.answers[i];
    if (answer.growing.empty()) continue;
    const std::string name =
        analysis.of_combinations
            ? fmt::format(texts::translatable("combination {}"), analysis.subjects[i])
            : fmt::format(texts::translatable("load case {}"), analysis.subjects[i]);
    print_message(texts::translated("remark: {}", texts::sentence_in_words(run::growth_remark(
                                                      name, name, answer.growth, answer.growing))));
  }
  return std::move(analysis);
}

std::string text_of(const AnalyseOptions& options, const AnalysisView& view) {
  std::string out;
  for (const AnalysisTable table : all_tables) {
    if (!options.show.empty() && !options.show.contains(table)) continue;
    const tables::OutputTable content = analysis_table(table, view);
    // Most models have no area loads: their tables come when they hold something or are asked for.
    const bool is_of_area = table == AnalysisTable::area_loads ||
                            table == AnalysisTable::pressures || table == AnalysisTable::line_loads;
    if (is_of_area && content.rows.empty() && options.show.empty()) continue;
    std::string text = render(content, options.format, false);
    if (options.format == Format::csv) return text;
    if (options.format == Format::json) {
      if (text.ends_with('\n')) text.pop_back();
      out += fmt::format("{}\"{}\": {}", out.empty() ? "{" : ",\n", name_of(table), text);
    } else {
      out += fmt::format("{}{}\n{}", out.empty() ? "" : "\n",
                         texts::translation_of(heading_of(table)), text);
    }
  }
  return options.format == Format::json ? out + "}\n" : out;
}

/// The model and what was analysed, above the tables.
std::string title_text(const AnalysisView& view) {
  const std::string title =
      view.model->title.empty() ? texts::translated("Untitled model") : view.model->title;
  const std::string analysis =
      view.model->analysis.large_displacements ? texts::translated("large-displacement analysis")
      : view.analysis->second_order            ? texts::translated("second-order analysis")
                                               : texts::translated("linear analysis");
  const std::string imperfections =
      view.analysis->second_order ? texts::sentence_in_words(run::imperfections_text(*view.model))
                                  : "";
  return imperfections.empty()
             ? texts::translated("{}: {}\n\n", title, analysis)
             : texts::translated("{}: {} with {}\n\n", title, analysis, imperfections);
}

int analyse(const AnalyseOptions& options) {
  if (options.format == Format::csv && options.show.size() != 1) {
    throw run::Problem{texts::translated("--format csv writes one table: name it with --show")};
  }
  if (!options.subjects.cases.empty() && !options.subjects.combinations.empty()) {
    throw run::Problem{texts::translated("--cases and --combinations do not go together")};
  }
  // A table of forces may take the place of an older one.
  const bool writes_forces =
      options.format == Format::csv && options.show.contains(AnalysisTable::forces);
  const auto kind = writes_forces ? files::FileKind::forces : files::FileKind::other;
  if (const auto problem =
          files::find_overwriting({{texts::translatable("the output"), options.output, kind}},
                                  {{texts::translatable("the model"), options.input.model}})) {
    throw run::Problem{*problem};
  }
  const auto read = run::read_input(options.input);
  if (const auto* problem = std::get_if<run::Problem>(&read)) throw *problem;
  const auto& input = std::get<run::Input>(read);
  AnalysisView view = view_of(options, input.model);
  const run::Analysis analysis = analysed(options, input);
  view.analysis = &analysis;
  const std::string title = options.format == Format::table ? title_text(view) : "";
  return write_output(title + text_of(options, view), options.output);
}

}  // namespace

int run_analyse_command(const AnalyseOptions& options) {
  try {
    return analyse(options);
  } catch (const run::Problem& problem) {
    return stop(problem);
  }
}

}  // namespace aluframe::cli

#include "aluframe/run/picture.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <stdexcept>

#include "aluframe/run/chosen_numbers.h"
#include "aluframe/run/deflections.h"
#include "aluframe/run/displaced_lines.h"
#include "aluframe/run/force_lines.h"
#include "aluframe/run/results.h"
#include "aluframe/texts/text.h"

namespace aluframe::run {

namespace {

using picture::Content;

/// The first thing that is wrong with what is wanted, as `Problem`; thrown on the way to it.
template <class Value>
Value value_of(Result<Value> result) {
  if (auto* problem = std::get_if<Problem>(&result)) throw std::move(*problem);
  return std::get<Value>(std::move(result));
}

template <class Table>
std::vector<model::Number> numbers_of(const Table& table) {
  std::vector<model::Number> numbers;
  for (const auto& entity : table) numbers.push_back(entity.number);
  return numbers;
}

/// Refuses a number that does not exist.
template <class Table>
void check_number(const Input& input, const char* option, std::optional<model::Number> number,
                  const Table& table, const std::string& what) {
  if (!number || table.find(*number) != nullptr) return;
  throw about(input, texts::translated("{}: there is no {} {}", option, what, *number));
}

template <class Table>
void check_numbers(const Input& input, const char* option, const picture::Numbers& numbers,
                   const Table& table, const std::string& what) {
  value_of(chosen_numbers(input, option, numbers.only, numbers_of(table), what));
}

/// A state of an envelope is none of the file's combinations.
bool is_state(const model::Model& model, model::Number combination) {
  return model.combinations.find(combination)->state_of.has_value();
}

void check_options(const Input& input, const PictureOptions& wanted) {
  const model::Model& model = input.model;
  if (model.elements.empty()) throw about(input, texts::translated("has no elements to draw"));
  if (wanted.diagram && wanted.load_case.has_value() == wanted.combination.has_value()) {
    throw Problem{texts::translated("--diagram: needs --case or --combination, one of them")};
  }
  if (!wanted.diagram && (wanted.load_case || wanted.combination)) {
    throw Problem{texts::translated("--case and --combination go with --diagram only")};
  }
  check_number(input, "--loads", wanted.loads, model.load_cases, texts::translated("load case"));
  check_number(input, "--deformed", wanted.deformed, model.load_cases,
               texts::translated("load case"));
  check_number(input, "--case", wanted.load_case, model.load_cases, texts::translated("load case"));
  check_number(input, "--combination", wanted.combination, model.combinations,
               texts::translated("combination"));
  if (wanted.combination && is_state(model, *wanted.combination)) {
    throw about(
        input, texts::translated("--combination: there is no combination {}", *wanted.combination));
  }
  check_numbers(input, "--nodes", wanted.node_numbers, model.nodes, texts::translated("node"));
  check_numbers(input, "--elements", wanted.element_numbers, model.elements,
                texts::translated("element"));
}

std::string case_text(const Input& input, model::Number number) {
  const std::string& name = input.model.load_cases.find(number)->name;
  return name.empty() ? texts::translated("load case {}", number)
                      : texts::translated("load case {} \"{}\"", number, name);
}

std::string combination_text(const Input& input, model::Number number) {
  const std::string& name = input.model.combinations.find(number)->name;
  return name.empty() ? texts::translated("combination {}", number)
                      : texts::translated("combination {} \"{}\"", number, name);
}

std::string analysis_text(const model::AnalysisSettings& analysis, const ForceLines& lines) {
  if (!lines.has_computed) return texts::translated("given forces");
  const std::string order = !analysis.second_order ? texts::translated("linear analysis")
                            : analysis.large_displacements
                                ? texts::translated("large displacements")
                                : texts::translated("second-order analysis");
  return lines.has_given ? texts::translated("{} and given forces", order) : order;
}

/// @param of what the forces are of
void add_diagram(const Input& input, picture::ForceComponent component, const std::string& of,
                 const model::AnalysisSettings& analysis, ForceLines lines, Content& content) {
  if (lines.lines.empty())
    throw about(input, texts::translated("--diagram: {} has neither loads nor forces", of));
  const bool has_sides = std::ranges::any_of(
      lines.lines, [](const picture::ForceLine& line) { return !line.minimum.empty(); });
  picture::add_note(content.notes, lines.without_forces, texts::translated("no forces are known"));
  picture::add_note(
      content.notes, lines.ends_only,
      texts::translated(
          "forces are known at the ends only, straight lines are drawn between them"));
  if (has_sides)
    content.notes.emplace_back(
        texts::translated("an envelope: its largest and its smallest values"));
  const std::string by = analysis_text(analysis, lines);
  content.diagram =
      picture::Diagram{component, texts::translated("{}, {}", of, by), std::move(lines.lines)};
}

void add_diagram_of_case(const Input& input, picture::ForceComponent component,
                         model::Number number, Content& content) {
  const std::string of = case_text(input, number);
  add_diagram(input, component, of, {}, value_of(force_lines_of_case(input, number, component)),
              content);
}

void add_diagram_of_combination(const Input& input, picture::ForceComponent component,
                                model::Number number, Content& content) {
  const std::string of = combination_text(input, number);
  add_diagram(input, component, of, input.model.analysis,
              value_of(force_lines_of_combination(input, number, component)), content);
}

void add_deformed(const Input& input, model::Number load_case, Content& content) {
  content.deformed =
      picture::Deformed{texts::translated("{}, linear analysis", case_text(input, load_case)),
                        value_of(displaced_lines(input, load_case))};
}

/// Elements whose safe ratio exceeds 1 though no check does.
std::vector<model::Number> safe_over_one(store::ResultReader& reader,
                                         const picture::Ratios& ratios) {
  std::vector<model::Number> out;
  for (const auto& [element, row] : safe_by_element(reader)) {
    const auto found = ratios.find(element);
    const bool is_over = found != ratios.end() && !(found->second <= 1.0);
    if (!(row.safe <= 1.0) && !is_over) out.push_back(element);
  }
  return out;
}

void add_ratios(store::ResultReader& reader, Content& content) {
  for (const ElementResult& element : by_element(reader.governing())) {
    content.ratios[element.element] = element.worst().governing.Ratio();
  }
  picture::add_note(
      content.notes, safe_over_one(reader, content.ratios),
      texts::translated("the safe ratio exceeds 1, though no ratio of the checks does"));
}

void add_deflections(store::ResultReader& reader, Content& content) {
  const auto rows = reader.displacements();
  content.ratios = deflection_ratios(rows);
  picture::add_note(content.notes, unknown_deflections(rows),
                    texts::translated("a deflection is limited and not known"));
}

void add_results(const Input& input, const InputOptions& options, const PictureOptions& wanted,
                 PictureContent& out) {
  Content& content = out.content;
  const auto file = wanted.results.value_or(result_path_of(input.file));
  if (const auto text = left_instead_text(file)) throw Problem{*text};
  const auto reader = store::ResultReader::open(file);
  const bool is_of_checks = wanted.colour == picture::ColourBy::ratio;
  is_of_checks ? add_ratios(*reader, content) : add_deflections(*reader, content);
  std::erase_if(content.ratios,
                [&](const auto& of) { return input.model.elements.find(of.first) == nullptr; });
  out.cautions = cautions(options, file, *reader);
  content.notes.insert(content.notes.end(), out.cautions.begin(), out.cautions.end());
  if (!is_of_checks) return;
  const Coverage coverage = coverage_of(*reader);
  content.notes.push_back(texts::translated("ratios of a check of {}", coverage_text(coverage)));
}

PictureContent gathered(const Input& input, const InputOptions& options,
                        const PictureOptions& wanted) {
  check_options(input, wanted);
  PictureContent out{.content = {.view = wanted.view.value_or(picture::natural_view(input.model)),
                                 .node_numbers = wanted.node_numbers,
                                 .element_numbers = wanted.element_numbers,
                                 .local_axes = wanted.local_axes,
                                 .loads = wanted.loads,
                                 .diagram = {},
                                 .deformed = {},
                                 .colour = wanted.colour,
                                 .ratios = {},
                                 .notes = {}},
                     .cautions = {}};
  Content& content = out.content;
  if (wanted.diagram && wanted.load_case) {
    add_diagram_of_case(input, *wanted.diagram, *wanted.load_case, content);
  }
  if (wanted.diagram && wanted.combination) {
    add_diagram_of_combination(input, *wanted.diagram, *wanted.combination, content);
  }
  if (wanted.deformed) add_deformed(input, *wanted.deformed, content);
  if (picture::is_by_ratio(wanted.colour)) add_results(input, options, wanted, out);
  return out;
}

}  // namespace

Result<PictureContent> picture_content(const Input& input, const InputOptions& options,
                                       const PictureOptions& wanted) {
  try {
    return gathered(input, options, wanted);
  } catch (Problem& problem) {
    return std::move(problem);
  } catch (const std::runtime_error& error) {
    return Problem{error.what()};
  }
}

Result<Picture> draw(const Input& input, const InputOptions& options,
                     const PictureOptions& wanted) {
  auto gathered = picture_content(input, options, wanted);
  if (auto* problem = std::get_if<Problem>(&gathered)) return std::move(*problem);
  auto& [content, cautions] = std::get<PictureContent>(gathered);
  return Picture{picture::draw(input.model, content), std::move(cautions)};
}

}  // namespace aluframe::run

#include "apps/cli/results_command.h"

#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <utility>
#include <variant>

#include "aluframe/files/output_guard.h"
#include "aluframe/run/deflections.h"
#include "aluframe/run/told.h"
#include "aluframe/tables/buckling_tables.h"
#include "aluframe/tables/displacement_tables.h"
#include "aluframe/tables/not_checked_tables.h"
#include "aluframe/tables/remark_tables.h"
#include "aluframe/tables/result_tables.h"
#include "aluframe/texts/sentence.h"
#include "aluframe/texts/text.h"
#include "apps/cli/output_file.h"
#include "apps/cli/terminal.h"
#include "apps/exit_status.h"

namespace aluframe::cli {

namespace {

namespace fs = std::filesystem;

/// Input that cannot be used; the text is for the user.
struct InputError {
  std::string text;
};

tables::ResultView view_of(const std::optional<std::string>& units) {
  if (!units) return {};
  const auto parsed = parse_unit_pair(*units);
  if (const auto* text = std::get_if<std::string>(&parsed)) throw InputError{"--units: " + *text};
  const auto& [force, length] = std::get<UnitPair>(parsed);
  const double millimetres = model::millimetres_per(length);
  return {millimetres * millimetres / model::newtons_per(force),
          fmt::format("{}/{}²", model::name_of(force), model::name_of(length))};
}

/// The value, or the problem as an exception.
template <class Value>
Value value_of(run::Result<Value> result) {
  if (const auto* problem = std::get_if<run::Problem>(&result)) throw InputError{problem->text};
  return std::get<Value>(std::move(result));
}

/// The results' states by their envelopes. @param reader must outlive what is returned
run::ModelCombination model_combinations(store::ResultReader& reader) {
  return [&info = reader.info()](model::Number number) {
    return tables::number_of_combination(info, number);
  };
}

/// Remarks and what was not checked, by the combinations that the model has.
std::string told_text(store::ResultReader& reader, std::vector<store::RemarkRow> told,
                      std::vector<store::NotChecked> items) {
  const run::ModelCombination of_model = model_combinations(reader);
  const auto remarks = run::with_envelopes(std::move(told), of_model);
  const auto not_checked = run::with_envelopes(std::move(items), of_model);
  std::string out;
  if (!std::ranges::all_of(remarks, tables::is_told_as_not_checked))
    out += "\n" + tables::remarks_text(remarks);
  if (!not_checked.empty()) out += "\n" + tables::not_checked_text(not_checked, remarks);
  return out;
}

std::string list_text(store::ResultReader& reader, const ResultsOptions& options,
                      const tables::ResultView& view) {
  const auto elements = value_of(run::elements_of(reader, options.query));
  if (options.format != tables::Format::table) {
    tables::OutputTable table =
        tables::governing_table(elements, reader.info(), view, run::safe_by_element(reader));
    tables::add_told_columns(table, elements, run::second_opinion_of(reader.info().setup),
                             reader.remarks());
    return tables::render(table, options.format, false);
  }
  std::string out =
      tables::to_text(tables::overview_table(elements, reader.info(), run::safe_by_element(reader)),
                      !options.output && stdout_wants_colour());
  out += told_text(reader, reader.remarks(), reader.not_checked());
  const std::string buckling =
      tables::buckling_line(run::buckling_of(reader.info().setup), reader.buckling());
  out += texts::translated("\nBuckling: {}\n", buckling);
  const std::string displacements = tables::displacement_line(reader.displacements());
  if (!displacements.empty()) out += texts::translated("Deflections: {}\n", displacements);
  return out + texts::translated("Covered: {}\n", run::coverage_text(run::coverage_of(reader)));
}

std::string governing_text(store::ResultReader& reader, model::Number element,
                           const tables::ResultView& view, bool colour) {
  std::vector<store::GoverningRow> rows;
  for (const store::GoverningRow& row : reader.governing()) {
    if (row.element == element) rows.push_back(row);
  }
  return texts::translated("Element {}: governing checks\n", element) +
         tables::to_text(tables::governing_table(run::by_element(rows), reader.info(), view),
                         colour) +
         "\n";
}

/// Remarks on one element, and what of it was not checked.
std::string told_text(store::ResultReader& reader, model::Number element) {
  std::vector<store::NotChecked> not_checked = reader.not_checked();
  std::erase_if(not_checked, [element](const auto& item) { return item.element != element; });
  return told_text(reader, run::remarks_about(element, reader), std::move(not_checked));
}

std::string element_text(store::ResultReader& reader, model::Number element,
                         const ResultsOptions& options, const tables::ResultView& view) {
  const auto records = value_of(run::records_of(reader, element, options.combinations));
  if (options.format != tables::Format::table) {
    return tables::render(tables::all_checks_table(element, records, reader.info(), view),
                          options.format, false);
  }
  const bool colour = !options.output && stdout_wants_colour();
  std::string out;
  // The governing checks are those of all combinations.
  if (options.combinations.empty()) out = governing_text(reader, element, view, colour);
  const auto safe = run::safe_by_element(reader);
  if (const auto found = safe.find(element); found != safe.end()) {
    out += tables::safe_text(found->second, reader.info()) + "\n\n";
  }
  out += texts::translated("Element {}: ratios of every combination and position\n", element);
  out += tables::to_text(tables::position_ratios_table(records, reader.info()), colour);
  return out + told_text(reader, element);
}

std::string remarks_text(store::ResultReader& reader, const ResultsOptions& options) {
  if (options.element) value_of(run::records_of(reader, *options.element, {}));  // it must exist
  const auto remarks =
      options.element ? run::remarks_about(*options.element, reader) : reader.remarks();
  return options.format == tables::Format::table
             ? tables::remarks_text(run::with_envelopes(remarks, model_combinations(reader)),
                                    tables::Lists::whole)
             : tables::render(tables::remarks_table(remarks), options.format, false);
}

std::string buckling_text(store::ResultReader& reader, const ResultsOptions& options) {
  const auto rows = reader.buckling();
  if (rows.empty())
    throw InputError{texts::translated("the run did not look at the buckling of the frame")};
  return tables::render(tables::stored_buckling_table(rows), options.format, false);
}

std::string displacements_text(store::ResultReader& reader, const ResultsOptions& options) {
  const auto rows = reader.displacements();
  if (rows.empty()) {
    throw InputError{
        texts::translated("the model had no combination for serviceability when it was checked")};
  }
  for (const store::RemarkRow& remark : reader.remarks()) {
    if (remark.kind == run::unknown_displacements) {
      print_message(texts::sentence_in_words(remark.text));
    }
  }
  return tables::render_displacements(rows, options.format,
                                      !options.output && stdout_wants_colour());
}

std::string text_of(store::ResultReader& reader, const ResultsOptions& options,
                    const tables::ResultView& view) {
  if (options.not_checked) {
    return tables::render(tables::not_checked_table(reader.not_checked(), reader.remarks()),
                          options.format, false);
  }
  if (options.remarks) return remarks_text(reader, options);
  if (options.buckling) return buckling_text(reader, options);
  if (options.deflections) return displacements_text(reader, options);
  return options.element ? element_text(reader, *options.element, options, view)
                         : list_text(reader, options, view);
}

/// What the user should know of the results and does not read in what is written.
void say_what_to_know(store::ResultReader& reader, const ResultsOptions& options,
                      const fs::path& file) {
  for (const std::string& text : run::cautions(
           {.model = options.input, .allow_outside = options.allow_outside}, file, reader))
    print_message(text);
  const run::Coverage coverage = run::coverage_of(reader);
  const bool is_list = !options.element && !options.not_checked && !options.remarks &&
                       !options.buckling && !options.deflections;
  const bool is_said = options.format == tables::Format::table && is_list;
  const bool is_full = coverage.is_whole() && coverage.second_opinion == run::SecondOpinion::on;
  if (!is_full && !is_said) {
    print_message(
        texts::translated("{}: covered are {}", file.string(), run::coverage_text(coverage)));
  }
}

}  // namespace

int run_results_command(const ResultsOptions& options) {
  const fs::path file = run::result_file_of(options.input);
  std::unique_ptr<store::ResultReader> reader;
  try {
    const tables::ResultView view = view_of(options.units);
    if (const auto problem =
            files::find_overwriting({{texts::translatable("the table"), options.output}},
                                    {{texts::translatable("the result file"), file},
                                     {texts::translatable("the model"), options.input}})) {
      print_message(*problem);
      return exit_input_error;
    }
    if (const auto text = run::left_instead_text(file)) throw std::runtime_error(*text);
    reader = store::ResultReader::open(file);
    say_what_to_know(*reader, options, file);
    return write_output(text_of(*reader, options, view), options.output);
  } catch (const InputError& error) {
    print_message(file.string() + ": " + error.text);
    return exit_input_error;
  } catch (const std::runtime_error& error) {
    print_message(error.what());
    return reader == nullptr ? exit_input_error : exit_failure;
  }
}

}  // namespace aluframe::cli

#include "apps/cli/explain_command.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>
#include <sstream>
#include <stdexcept>
#include <variant>

#include "aluframe/document/derivation_page.h"
#include "aluframe/document/explained_place.h"
#include "aluframe/explain/explanation_text.h"
#include "aluframe/files/output_guard.h"
#include "aluframe/model/plain_text.h"
#include "aluframe/run/results.h"
#include "aluframe/store/result_file.h"
#include "aluframe/tables/names.h"
#include "aluframe/texts/sentence.h"
#include "aluframe/texts/text.h"
#include "apps/cli/output_file.h"
#include "apps/cli/terminal.h"
#include "apps/exit_status.h"

namespace aluframe::cli {

namespace {

const char* side_name(const run::ExplainedCheck& check) {
  return check.place.min_side == 0 ? "max" : "min";
}

std::string footing() {
  return texts::translated(
      "Forces N, N·mm, lengths mm. Names of rules in brackets, such as (F1): docs/behaviour.md; "
      "what is shown and how: docs/explain.md");
}

std::string text_of(const run::ExplainedCheck& check) {
  return document::place_of(check) + texts::translated(": ") +
         texts::sentence_in_words(check.explanation.check) + "\n\n" +
         explain::to_text(check.explanation.ratio) + "\n" + footing() + "\n";
}

std::string page_of(const run::ExplainedCheck& check) {
  std::ostringstream page;
  document::write_derivation_page(page, {document::place_of(check), footing()}, check.explanation);
  return page.str();
}

std::string json_of(const run::ExplainedCheck& check) {
  nlohmann::ordered_json json = nlohmann::ordered_json::object();
  json["element"] = check.elements.front();
  json["member_type"] = tables::member_type_name(check.member_type);
  json["item"] = tables::item_name(check.place.item);
  json["combination"] = check.combination;
  json["combination_name"] = check.combination_name;
  json["side"] = check.has_sides ? nlohmann::ordered_json(side_name(check)) : nullptr;
  json["position"] = tables::position_name(check.place.position);
  json["check"] = check.explanation.check;
  json["steps"] = explain::to_json(check.explanation.ratio);
  return model::for_json(
             json.dump(1, ' ', false, nlohmann::ordered_json::error_handler_t::replace)) +
         "\n";
}

std::optional<std::string> overwriting_problem(const ExplainOptions& options,
                                               const std::filesystem::path& results) {
  return files::find_overwriting(
      {{texts::translatable("the explanation"), options.output}},
      {{texts::translatable("the result file"), results},
       {texts::translatable("the model"), options.input.model},
       {texts::translatable("the table of forces"), options.input.forces}});
}

std::string shown(const run::ExplainedCheck& check, ExplanationFormat format) {
  switch (format) {
    case ExplanationFormat::json:
      return json_of(check);
    case ExplanationFormat::html:
      return page_of(check);
    case ExplanationFormat::table:
      break;
  }
  return text_of(check);
}

int explain(const ExplainOptions& options, const std::filesystem::path& results) {
  auto explained =
      run::explain_check({.input = options.input, .results = results, .wanted = options.wanted});
  if (const auto* problem = std::get_if<run::Problem>(&explained)) return stop(*problem);
  return write_output(shown(std::get<run::ExplainedCheck>(explained), options.format),
                      options.output);
}

}  // namespace

std::optional<ExplanationFormat> parse_explanation_format(const std::string& name) {
  if (name == "table") return ExplanationFormat::table;
  if (name == "json") return ExplanationFormat::json;
  return name == "html" ? std::optional(ExplanationFormat::html) : std::nullopt;
}

std::optional<int> parse_side(const std::string& name) {
  if (name == "max") return 0;
  return name == "min" ? std::optional(1) : std::nullopt;
}

std::optional<int> parse_position(const std::string& name) {
  for (int position = 0; position < kCheckPositions; ++position) {
    if (tables::position_name(position) == name) return position;
  }
  return std::nullopt;
}

int run_explain_command(const ExplainOptions& options) {
  const std::filesystem::path results =
      options.results.value_or(run::result_path_of(options.input.model));
  if (const auto problem = overwriting_problem(options, results)) return stop({*problem});
  try {
    return explain(options, results);
  } catch (const std::runtime_error& error) {
    print_message(error.what());
    return exit_input_error;
  }
}

}  // namespace aluframe::cli

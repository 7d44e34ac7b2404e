#pragma once

#include <optional>
#include <string>

#include "aluframe/model/number_ranges.h"
#include "aluframe/run/input.h"
#include "aluframe/run/second_opinion.h"
#include "aluframe/run/strictness.h"
#include "aluframe/tables/output_table.h"
#include "aluframe/texts/language.h"
#include "aluframe/texts/text.h"
#include "apps/cli/parser.h"

// Options of the command line that several commands have.

namespace aluframe::cli {

/// A range that "nan" is not in either.
CLI::Validator number_between(double low, double high);

/// An option whose text is read by `parse`, which returns nothing or a message when it cannot.
template <class Value, class Parse>
CLI::Option* add_parsed(CLI::App& app, const std::string& name, Value& value, const Parse& parse,
                        const std::string& help) {
  return app
      .add_option_function<std::string>(
          name, [&value, parse, name](const std::string& text) { value = parse(name, text); }, help)
      ->type_name("VALUE");
}

/// Numbers and ranges of an option, "1,3,10-20".
/// @throws CLI::ValidationError with what is wrong with the text
model::NumberRanges ranges_or_throw(const std::string& name, const std::string& text);

/// Reads one of a few words.
template <class Parse>
auto one_of(Parse parse, const std::string& allowed) {
  return [parse, allowed](const std::string& name, const std::string& text) {
    const auto value = parse(text);
    if (!value) {
      throw CLI::ValidationError(name,
                                 texts::translated("found '{}', must be one of {}", text, allowed));
    }
    return *value;
  };
}

std::optional<run::SecondOpinion> parse_second_opinion(const std::string& word);

void add_second_order(CLI::App& app, run::InputOptions& input);
void add_allow_outside(CLI::App& app, bool& allow_outside);
/// The model, its forces and how they are computed.
void add_input(CLI::App& app, run::InputOptions& input);
void add_elements(CLI::App& app, model::NumberRanges& elements);
void add_combinations(CLI::App& app, model::NumberRanges& combinations);
void add_format(CLI::App& app, tables::Format& format,
                const std::string& help = texts::translated("How to print: table, json or csv"));
void add_language(CLI::App& app);
/// The language that a command line asks for, else that of the environment, before the command line
/// is parsed: its help is in that language. What is wrong with it the parser says.
texts::Language wanted_language(int argc, const char* const* argv);
void add_strict(CLI::App& command, run::Strictness& strict);

}  // namespace aluframe::cli

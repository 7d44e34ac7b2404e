#include "apps/cli/shared_options.h"

#include <cmath>
#include <utility>
#include <variant>

#include "aluframe/texts/text.h"

namespace aluframe::cli {

namespace {

std::optional<run::Strictness> parse_strictness(const std::string& word) {
  if (word == "checks") return run::Strictness::checks;
  return word == "safe" ? std::optional(run::Strictness::safe) : std::nullopt;
}

}  // namespace

/// A range that "nan" is not in either.
CLI::Validator number_between(double low, double high) {
  CLI::Validator range = CLI::Range(low, high);
  range.operation([range = CLI::Range(low, high), low, high](std::string& text) {
    double value = 0.0;
    const bool is_nan = CLI::detail::lexical_cast(text, value) && std::isnan(value);
    return is_nan ? texts::translated("Value {} not in range {:f} to {:f}", text, low, high)
                  : range(text);
  });
  return range;
}

model::NumberRanges ranges_or_throw(const std::string& name, const std::string& text) {
  auto parsed = model::parse_number_ranges(text);
  if (const auto* problem = std::get_if<std::string>(&parsed)) {
    throw CLI::ValidationError(name, *problem);
  }
  return std::get<model::NumberRanges>(std::move(parsed));
}

void add_second_order(CLI::App& app, run::InputOptions& input) {
  app.add_flag("--second-order", input.second_order,
               texts::translated("Compute forces in second order, each combination on its own"));
  app.add_flag("--large-displacements", input.large_displacements,
               texts::translated(
                   "The same with displacements of any size, up to where the frame snaps through"));
}

void add_allow_outside(CLI::App& app, bool& allow_outside) {
  app.add_flag("--allow-outside", allow_outside,
               texts::translated("Read catalogues that lie outside of the model's folder"));
}

void add_input(CLI::App& app, run::InputOptions& input) {
  app.add_option("MODEL", input.model, texts::translated("Model file"))->required()->type_name("");
  app.add_option("--forces", input.forces,
                 texts::translated("Element forces (CSV) in place of the model's"))
      ->type_name("FILE");
  add_second_order(app, input);
  add_allow_outside(app, input.allow_outside);
}

void add_elements(CLI::App& app, model::NumberRanges& elements) {
  add_parsed(app, "--elements", elements, ranges_or_throw,
             texts::translated("Only these elements, such as 1,3,10-20"));
}

void add_combinations(CLI::App& app, model::NumberRanges& combinations) {
  add_parsed(app, "--combinations", combinations, ranges_or_throw,
             texts::translated("Only these combinations, such as 1,3,10-20"));
}

void add_format(CLI::App& app, tables::Format& format, const std::string& help) {
  add_parsed(app, "--format", format, one_of(tables::parse_format, "table, json, csv"), help);
}

void add_language(CLI::App& app) {
  const auto parse = one_of(texts::parse_language, "en, zh");
  app.add_option_function<std::string>(
         "--lang", [parse](const std::string& text) { texts::use_language(parse("--lang", text)); },
         texts::translated(
             "Language of what people read: en or zh; that of the environment when not given"))
      ->type_name("VALUE");
}

texts::Language wanted_language(int argc, const char* const* argv) {
  constexpr std::string_view option = "--lang";
  for (int i = 1; i < argc; ++i) {
    const std::string_view word = argv[i];
    std::optional<texts::Language> language;
    if (word == option && i + 1 < argc) language = texts::parse_language(argv[i + 1]);
    if (word.starts_with(option) && word.substr(option.size()).starts_with('=')) {
      language = texts::parse_language(word.substr(option.size() + 1));
    }
    if (language) return *language;
  }
  return texts::language_of_environment();
}

std::optional<run::SecondOpinion> parse_second_opinion(const std::string& word) {
  if (word == "on") return run::SecondOpinion::on;
  return word == "off" ? std::optional(run::SecondOpinion::off) : std::nullopt;
}

void add_strict(CLI::App& command, run::Strictness& strict) {
  command.add_flag("--strict{checks}")
      ->description(texts::translated(
          "Exit with status 4 when a ratio exceeds 1, the frame buckles or a displacement passes "
          "its "
          "limit; --strict=safe also looks at safe ratios and at what is not checked or not known"))
      ->each([&strict](const std::string& word) {
        strict = one_of(parse_strictness, "checks, safe")("--strict", word);
      });
}

}  // namespace aluframe::cli

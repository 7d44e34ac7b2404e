#include "apps/cli/parser_texts.h"

#include <string>
#include <string_view>
#include <vector>

#include "aluframe/texts/sentence.h"
#include "aluframe/texts/text.h"

namespace aluframe::cli {

namespace {

using texts::translatable;

/// What the parser may say of a command line; {} stands for names and values.
constexpr const char* faults[] = {
    translatable("The value {} is not an allowed value for {}"),
    translatable("Could not convert: {} = {}"),
    translatable("{}: too many inputs for a flag"),
    translatable("{}: Should be true/false or a number"),
    translatable("{} is required"),
    translatable("{}: 1 required {} missing"),
    translatable("{}: {} required {} missing"),
    translatable("{} was given a disallowed flag override"),
    translatable("{}: At least {} required but received {}"),
    translatable("{}: At Most {} required but received {}"),
    translatable("Expected exactly {} arguments to {}, got {}"),
    translatable("Expected at least {} arguments to {}, got {}"),
    translatable("{} requires {}"),
    translatable("{} excludes {}"),
    translatable("The following argument was not expected: {}"),
    translatable("The following arguments were not expected: {}"),
    translatable("{}: Value {} not in range {} to {}"),
    translatable("{}: Value {} could not be converted"),
};

constexpr const char* labels[] = {
    translatable("Usage"),      translatable("Positionals"), translatable("OPTIONS"),
    translatable("SUBCOMMAND"), translatable("REQUIRED"),    translatable("Needs"),
    translatable("Excludes"),
};

std::string fault_in_words(std::string_view fault) {
  for (const char* text : faults) {
    const auto arguments = texts::arguments_of(fault, text);
    if (!arguments) continue;
    return texts::reworded({arguments->begin(), arguments->end()}, texts::translation_of(text));
  }
  return std::string(fault);
}

std::string failure_text(const CLI::App* app, const CLI::Error& error) {
  return fault_in_words(error.what()) + "\n" +
         texts::translated("Run with {} for more information.\n", app->get_help_ptr()->get_name());
}

void translate(CLI::App& app) {
  for (const char* label : labels) {
    app.get_formatter()->label(label, std::string(texts::translation_of(label)));
  }
  app.get_help_ptr()->description(texts::translated("Print this help message and exit"));
  for (CLI::Option* option : app.get_options()) {
    if (option->get_group() == "Options") option->group(texts::translated("Options"));
  }
  app.failure_message(failure_text);
}

}  // namespace

void translate_parser(CLI::App& app) {
  translate(app);
  for (CLI::App* command : app.get_subcommands({})) {
    translate(*command);
    command->group(texts::translated("Subcommands"));
  }
}

}  // namespace aluframe::cli

#include "apps/cli/common_options.h"

#include "aluframe/texts/text.h"
#include "apps/cli/terminal.h"

namespace aluframe::cli {

std::variant<UnitPair, std::string> parse_unit_pair(const std::string& text) {
  const std::size_t comma = text.find(',');
  const auto force = model::parse_force_unit(text.substr(0, comma));
  const auto length =
      comma == std::string::npos ? std::nullopt : model::parse_length_unit(text.substr(comma + 1));
  if (!force || !length) {
    return texts::translated(
        "found '{}', must be a force unit ({}), a comma and a length unit ({})", text,
        model::force_unit_names(), model::length_unit_names());
  }
  return UnitPair{*force, *length};
}

ExitStatus stop(const run::Problem& problem) {
  print_message(problem.text);
  return problem.kind == run::Problem::Kind::input ? exit_input_error : exit_failure;
}

}  // namespace aluframe::cli

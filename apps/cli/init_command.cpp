#include "apps/cli/init_command.h"

#include <system_error>
#include <utility>
#include <variant>

#include "aluframe/files/output_guard.h"
#include "aluframe/io/model_file.h"
#include "aluframe/texts/text.h"
#include "apps/cli/output_file.h"
#include "apps/cli/terminal.h"
#include "apps/exit_status.h"

namespace aluframe::cli {

namespace {

/// Why the file may not be written; nothing when it may.
std::optional<std::string> refusal(const InitOptions& options) {
  std::error_code error;
  if (options.output.empty()) return texts::translated("the file to write has no name");
  const bool exists = std::filesystem::exists(options.output, error);
  if (exists && !options.force) {
    return texts::translated("{}: exists already; --force writes over it", options.output.string());
  }
  if (exists && files::kind_of(options.output) == files::FileKind::other) {
    return texts::translated("{}: exists and is no model; --force writes over models only",
                             options.output.string());
  }
  return files::find_overwriting(
      {{texts::translated("the new model"), options.output, files::FileKind::model}}, {});
}

}  // namespace

int run_init_command(const InitOptions& options) {
  auto made = starting::make(options.kind, options.sizes);
  if (const auto* text = std::get_if<std::string>(&made)) {
    print_message(*text);
    return exit_input_error;
  }
  if (const auto text = refusal(options)) {
    print_message(*text);
    return exit_input_error;
  }
  const auto& model = std::get<model::Model>(made);
  const int status = write_output(io::write_model(model), options.output);
  if (status != exit_done) return status;
  print_message(
      texts::translated("{}: {}, {}, {}", options.output.string(), model.title,
                        texts::counted(model.nodes.size(), texts::translatable("{} node"),
                                       texts::translatable("{} nodes")),
                        texts::counted(model.elements.size(), texts::translatable("{} element"),
                                       texts::translatable("{} elements"))));
  return exit_done;
}

}  // namespace aluframe::cli

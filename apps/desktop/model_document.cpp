#include "apps/desktop/model_document.h"

#include <utility>

#include "aluframe/run/input.h"
#include "aluframe/texts/text.h"

namespace aluframe::desktop {

std::variant<ModelDocument, std::string> ModelDocument::open(const std::filesystem::path& path) {
  auto read = run::read_input({.model = path});
  if (const auto* problem = std::get_if<run::Problem>(&read)) return problem->text;
  return ModelDocument(std::get<run::Input>(std::move(read)));
}

ModelDocument::ModelDocument(run::Input input)
    : path_(std::move(input.file)),
      model_(std::move(input.model)),
      digest_(std::move(input.digest)),
      saved_design_(model_.design),
      saved_materials_(model_.materials) {}

io::ModelChanges ModelDocument::changes() const {
  return io::changes_since(saved_design_, saved_materials_, model_);
}

std::optional<std::string> ModelDocument::save() {
  const auto choose = [this](const model::Model& now) -> io::Result<io::ModelChanges> {
    if (!io::changes_since(saved_design_, saved_materials_, now).empty()) {
      return io::Problem{path_.string(), "",
                         texts::translated("another program has changed its settings or materials "
                                           "since it was opened; open it again")};
    }
    return changes();
  };
  if (const auto problem = io::change_model_file(path_, choose)) return problem->message();
  saved_design_ = model_.design;
  saved_materials_ = model_.materials;
  return std::nullopt;
}

}  // namespace aluframe::desktop

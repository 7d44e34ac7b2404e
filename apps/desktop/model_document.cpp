#include "apps/desktop/model_document.h"

#include <utility>

#include "aluframe/run/input.h"
#include "aluframe/texts/text.h"

namespace aluframe::desktop {

std::variant<ModelDocument, std::string> ModelDocument::open(const std::filesystem::path& path) {
  auto read = run::read_input({.model = path});
  if (const auto* problem = std::get_if<run::Problem>(&read)) return problem->text;
  return ModelDocument(path, std::get<run::Input>(std::move(read)).model);
}

ModelDocument::ModelDocument(std::filesystem::path path, model::Model model)
    : path_(std::move(path)), model_(std::move(model)), saved_(io::editable_of(model_)) {}

io::ModelChanges ModelDocument::changes() const {
  return io::changes_since(saved_, model_);
}

std::optional<std::string> ModelDocument::save() {
  const auto choose = [this](const model::Model& now) -> io::Result<io::ModelChanges> {
    if (!io::changes_since(saved_, now).empty()) {
      return io::Problem{path_.string(), "",
                         texts::translated("another program has changed its settings, materials, "
                                           "sections or design attributes since it was opened; "
                                           "open it again")};
    }
    return changes();
  };
  if (const auto problem = io::change_model_file(path_, choose)) return problem->message();
  saved_ = io::editable_of(model_);
  return std::nullopt;
}

}  // namespace aluframe::desktop

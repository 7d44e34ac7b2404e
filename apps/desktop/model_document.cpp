#include "apps/desktop/model_document.h"

#include <utility>

#include "aluframe/io/model_file.h"
#include "aluframe/members/find_members.h"

namespace aluframe::desktop {

std::variant<ModelDocument, std::string> ModelDocument::open(const std::filesystem::path& path) {
  auto read = io::read_model(path);
  if (const auto* problem = std::get_if<io::Problem>(&read)) return problem->message();
  auto& model = std::get<model::Model>(read);
  members::complete(model);
  return ModelDocument(path, std::move(model));
}

ModelDocument::ModelDocument(std::filesystem::path path, model::Model model)
    : path_(std::move(path)),
      model_(std::move(model)),
      saved_design_(model_.design),
      saved_materials_(model_.materials) {}

io::ModelChanges ModelDocument::changes() const {
  return io::changes_since(saved_design_, saved_materials_, model_);
}

std::optional<std::string> ModelDocument::save() {
  if (const auto problem = io::save_changes(path_, changes())) return problem->message();
  saved_design_ = model_.design;
  saved_materials_ = model_.materials;
  return std::nullopt;
}

}  // namespace aluframe::desktop

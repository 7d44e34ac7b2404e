#include "apps/desktop/model_edit_command.h"

#include <utility>

namespace aluframe::desktop {

namespace {

template <class Entity>
std::vector<Entity> changed(const model::Table<Entity>& table, const model::Table<Entity>& other) {
  std::vector<Entity> out;
  for (const Entity& entity : table) {
    const Entity* its = other.find(entity.number);
    if (its != nullptr && *its != entity) out.push_back(entity);
  }
  return out;
}

template <class Entity>
void replace(model::Table<Entity>& table, const std::vector<Entity>& entities) {
  for (const Entity& entity : entities) table.replace(entity);
}

}  // namespace

bool EditedParts::empty() const {
  return !design && materials.empty() && sections.empty() && elements.empty() && members.empty();
}

EditedParts parts_changed(const model::Model& model, const model::Model& other) {
  EditedParts out;
  if (model.design != other.design) out.design = model.design;
  out.materials = changed(model.materials, other.materials);
  out.sections = changed(model.sections, other.sections);
  out.elements = changed(model.elements, other.elements);
  out.members = changed(model.members, other.members);
  return out;
}

ModelEditCommand::ModelEditCommand(Workspace& workspace, const QString& text, EditedParts before,
                                   EditedParts after)
    : QUndoCommand(text),
      workspace_(workspace),
      before_(std::move(before)),
      after_(std::move(after)) {}

void ModelEditCommand::apply(const EditedParts& parts) {
  model::Model& model = workspace_.document()->editable();
  if (parts.design) model.design = *parts.design;
  replace(model.materials, parts.materials);
  replace(model.sections, parts.sections);
  replace(model.elements, parts.elements);
  replace(model.members, parts.members);
  workspace_.tell_edited();
}

}  // namespace aluframe::desktop

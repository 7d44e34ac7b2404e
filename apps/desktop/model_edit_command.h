#pragma once

#include <QUndoCommand>
#include <optional>
#include <vector>

#include "apps/desktop/workspace.h"

namespace aluframe::desktop {

/// What of a model an edit changes: entities that take the place of those with their numbers.
struct EditedParts {
  /// Nothing: the settings stay as they are. A model may be without settings.
  std::optional<std::optional<model::DesignSettings>> design;
  std::vector<model::Material> materials;
  std::vector<model::Section> sections;
  std::vector<model::Element> elements;
  std::vector<model::Member> members;

  bool empty() const;
};

/// The parts of a model that differ from another one: of the first as they are there.
EditedParts parts_changed(const model::Model& model, const model::Model& other);

/// An edit of the open model that can be undone.
class ModelEditCommand : public QUndoCommand {
 public:
  /// @param before, after of the same entities
  ModelEditCommand(Workspace& workspace, const QString& text, EditedParts before,
                   EditedParts after);

  void undo() override { apply(before_); }
  void redo() override { apply(after_); }

 private:
  void apply(const EditedParts& parts);

  Workspace& workspace_;
  EditedParts before_, after_;
};

}  // namespace aluframe::desktop

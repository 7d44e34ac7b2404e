#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <variant>

#include "aluframe/io/model_edit.h"
#include "aluframe/model/model.h"
#include "aluframe/run/input.h"

namespace aluframe::desktop {

/// A model file that is open: its model, and whether its settings or materials differ from what is
/// saved.
class ModelDocument {
 public:
  /// @return a message when the file is no model
  static std::variant<ModelDocument, std::string> open(const std::filesystem::path& path);

  const std::filesystem::path& path() const { return path_; }
  const model::Model& model() const { return model_; }
  /// Of the model as it was read or saved (run::Input).
  const std::string& digest() const { return digest_; }
  /// For the dialogs: only the design settings and the materials may be changed.
  model::Model& editable() { return model_; }
  /// What is not saved yet.
  io::ModelChanges changes() const;
  bool is_modified() const { return !changes().empty(); }
  /// Writes the changes to the file, whose other content stays; nothing when there are none.
  /// @return a message when that failed; the file is then as it was
  std::optional<std::string> save();

 private:
  explicit ModelDocument(run::Input input);

  std::filesystem::path path_;
  model::Model model_;
  std::string digest_;
  /// What the file holds of what can be changed.
  std::optional<model::DesignSettings> saved_design_;
  model::Table<model::Material> saved_materials_;
};

}  // namespace aluframe::desktop

#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <variant>

#include "aluframe/io/model_edit.h"
#include "aluframe/model/model.h"
#include "aluframe/run/input.h"

namespace aluframe::desktop {

/// A model file that is open: its model, and what of it differs from what is saved.
class ModelDocument {
 public:
  /// @return a message when the file is no model
  static std::variant<ModelDocument, std::string> open(const std::filesystem::path& path);

  const std::filesystem::path& path() const { return path_; }
  const model::Model& model() const { return model_; }
  /// Of the model as it was read or saved (run::Input).
  const std::string& digest() const { return digest_; }
  /// Only what io::Editable has of a model may be changed.
  model::Model& editable() { return model_; }
  /// What is not saved yet.
  io::ModelChanges changes() const;
  bool is_modified() const { return !changes().empty(); }
  /// Writes the changes to the file, whose other content stays; nothing when there are none. A file
  /// that is gone is written again as it was read or saved, with the changes.
  /// @return a message when that failed; the file is then as it was
  std::optional<std::string> save();
  /// Writes the file, or what it held when it is gone, with the changes under another name, which
  /// is the open file then.
  /// @return a message when that failed; nothing has changed then
  std::optional<std::string> save_as(const std::filesystem::path& path);

 private:
  ModelDocument(run::Input input, std::string text);

  bool is_gone() const;
  void note_saved();

  std::filesystem::path path_;
  std::string text_;  ///< of the file as it was read or saved
  model::Model model_;
  std::string digest_;
  io::Editable saved_;  ///< as the file holds it
};

}  // namespace aluframe::desktop

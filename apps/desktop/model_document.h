#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <variant>

#include "aluframe/io/model_edit.h"
#include "aluframe/io/model_merge.h"
#include "aluframe/model/model.h"
#include "aluframe/run/input.h"

namespace aluframe::desktop {

/// What came of saving.
struct SaveEnd {
  /// Why it failed; nothing has changed then.
  std::optional<std::string> problem = std::nullopt;
  bool is_cancelled = false;         ///< by the user: nothing has changed
  bool was_changed_outside = false;  ///< the file has more in it now than the model had

  bool is_saved() const { return !problem && !is_cancelled; }
};

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
  /// The changes as they are to be made in what the file holds now.
  io::Merge merge_into(const model::Model& theirs, io::Keep keep) const {
    return io::merge_changes(saved_, model_, theirs, keep);
  }
  /// Writes the changes to the file, whose other content stays, what another program has changed
  /// meanwhile included; nothing when there are none. A file that is gone is written again as it
  /// was read or saved, with the changes.
  /// @param ask about values that both have changed; empty: they are a problem
  SaveEnd save(const io::AskKeep& ask = {});
  /// Writes the file, or what it held when it is gone, with the changes under another name, which
  /// is the open file then.
  SaveEnd save_as(const std::filesystem::path& path, const io::AskKeep& ask = {});

 private:
  ModelDocument(run::Input input, std::string text);

  bool is_gone() const;
  SaveEnd write_copy(const std::filesystem::path& path, const io::AskKeep& ask) const;
  void note_saved(bool was_changed_outside);

  std::filesystem::path path_;
  std::string text_;  ///< of the file as it was read or saved
  model::Model model_;
  std::string digest_;
  io::Editable saved_;  ///< as the file holds it
};

}  // namespace aluframe::desktop

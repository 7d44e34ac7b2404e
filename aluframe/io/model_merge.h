#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "aluframe/io/model_changes.h"
#include "aluframe/io/model_edit.h"
#include "aluframe/io/problem.h"

/// Changes of a model whose file another program has changed meanwhile: both sides' changes come
/// into the file value by value, and where both have changed the same value the user says whose it
/// is to have.
///
///     const auto ask = [](const std::vector<io::Conflict>& conflicts) { ... };
///     const io::Saved saved = io::save_merged("frame.json", opened, model, ask);
namespace aluframe::io {

/// A value that both sides have changed, each to another one. Values are JSON in the units of the
/// file as it is now; empty: there is none.
struct Conflict {
  std::string path;    ///< in the file as it is now, "/settings/safety_class"
  std::string opened;  ///< when the model was read
  std::string mine;    ///< in the model
  std::string theirs;  ///< in the file now

  friend bool operator==(const Conflict&, const Conflict&) = default;
};

/// A line for every conflict, with its path and the three values.
std::string conflicts_text(const std::vector<Conflict>& conflicts);

/// Whose value is kept in a conflict.
enum class Keep { mine, theirs };

struct Merge {
  ModelChanges changes;  ///< to be made in the model as the file has it now
  std::vector<Conflict> conflicts;
};

/// What of the user's changes is to be made in a model that another program has changed.
/// Settings, materials, sections, design attributes and length factors are compared value by value.
/// What only has a meaning together stays together: an alloy with its strengths when both sides
/// have chosen one, a shape with its dimensions when it is not the same on both sides. An entity
/// that the user has changed and the file lacks is a conflict too.
/// @param opened what the file held when the user's model was read
/// @param keep decides the conflicts
Merge merge_changes(const Editable& opened, const model::Model& mine, const model::Model& theirs,
                    Keep keep);

/// Asks the user about conflicts. @return nothing: nothing is to be saved
using AskKeep = std::function<std::optional<Keep>(const std::vector<Conflict>&)>;

struct Saved {
  /// Why nothing was saved; the file is then as it was.
  std::optional<Problem> problem = std::nullopt;
  bool is_cancelled = false;  ///< the user did not want to, which is no problem
};

/// Saves the user's changes into a model file, whatever another program has changed in it since it
/// was read. Without changes the file is not touched.
/// @param ask empty: nobody can be asked, and a conflict is a problem
Saved save_merged(const std::filesystem::path& path, const Editable& opened,
                  const model::Model& mine, const AskKeep& ask, bool allow_outside = false);

}  // namespace aluframe::io

#pragma once

#include <QDateTime>
#include <QTimer>
#include <atomic>
#include <filesystem>
#include <memory>
#include <optional>

#include "apps/desktop/background_job.h"
#include "apps/desktop/model_edit_command.h"
#include "apps/desktop/workspace.h"

namespace aluframe::desktop {

/// What a session that ended unexpectedly has left of changes that were not saved.
struct LeftChanges {
  QDateTime time;
  EditedParts before, after;  ///< in the model as its file has it
};

/// Keeps changes that are not saved in a file of the program's own, a while after every change,
/// until they are saved or dropped: a crash loses little.
class Autosave : public QObject {
 public:
  /// @param folder where the program keeps such files
  Autosave(Workspace& workspace, std::filesystem::path folder);

  /// What of the file's last session is left and can still be put into it; nothing mostly.
  std::optional<LeftChanges> left_for(const ModelDocument& document) const;
  /// The changes are saved, or nobody wants them.
  void drop();
  /// Keeps them now; waits for nothing.
  void keep();

 private:
  std::filesystem::path file_of(const std::filesystem::path& model) const;

  Workspace& workspace_;
  std::filesystem::path folder_;
  QTimer later_;
  BackgroundJob job_;
  /// Whether what is being written is still wanted; a thread looks at it.
  std::shared_ptr<std::atomic<bool>> is_wanted_;
};

}  // namespace aluframe::desktop

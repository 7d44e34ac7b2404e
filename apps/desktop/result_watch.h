#pragma once

#include <QFileSystemWatcher>
#include <QTimer>

#include "apps/desktop/workspace.h"

namespace aluframe::desktop {

/// Has the results read again when another program writes, replaces or deletes their file, so that
/// the window never shows what is not stored any more.
class ResultWatch {
 public:
  explicit ResultWatch(Workspace& workspace);

 private:
  void follow();
  void look();

  Workspace& workspace_;
  QFileSystemWatcher watcher_;
  QTimer written_;  ///< until a program has written all
};

}  // namespace aluframe::desktop

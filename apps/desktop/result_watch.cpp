#include "apps/desktop/result_watch.h"

#include <filesystem>

#include "aluframe/run/results.h"

namespace aluframe::desktop {

ResultWatch::ResultWatch(Workspace& workspace) : workspace_(workspace) {
  constexpr int written_after = 300;  // ms
  written_.setSingleShot(true);
  written_.setInterval(written_after);
  const auto wait = [this] { written_.start(); };
  QObject::connect(&watcher_, &QFileSystemWatcher::fileChanged, &written_, wait);
  QObject::connect(&watcher_, &QFileSystemWatcher::directoryChanged, &written_, wait);
  QObject::connect(&written_, &QTimer::timeout, &written_, [this] { look(); });
  QObject::connect(&workspace_, &Workspace::results_changed, &written_, [this] { follow(); });
  // What happened to the file during a run waited for its end.
  QObject::connect(&workspace_, &Workspace::busy_changed, &written_, wait);
}

/// The folder tells that the file has come or gone, the file that it has changed in its place.
void ResultWatch::follow() {
  const std::filesystem::path results = run::result_path_of(workspace_.document()->path());
  const QStringList before = watcher_.files() + watcher_.directories();
  if (!before.isEmpty()) watcher_.removePaths(before);
  const std::filesystem::path folder = std::filesystem::absolute(results).parent_path();
  watcher_.addPath(QString::fromStdString(folder.string()));
  std::error_code ignored;
  if (std::filesystem::exists(results, ignored)) {
    watcher_.addPath(QString::fromStdString(results.string()));
  }
}

void ResultWatch::look() {
  if (workspace_.document() == nullptr || workspace_.is_busy()) return;
  if (workspace_.have_results_changed()) workspace_.refresh_results();
}

}  // namespace aluframe::desktop

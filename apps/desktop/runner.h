#pragma once

#include <QObject>
#include <QThread>
#include <atomic>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "aluframe/document/document_file.h"
#include "aluframe/run/check.h"
#include "apps/desktop/preferences.h"
#include "apps/desktop/workspace.h"

namespace aluframe::desktop {

/// How a run ended, for the user.
struct RunEnd {
  enum class Kind { done, over_limit, cancelled, failed };
  Kind kind = Kind::done;
  std::string text;  ///< a summary, or why it failed; of several lines
};

/// Checks and reports on a thread of its own, one at a time, so that the window stays alive. It
/// goes by the model's file: what is not saved must be saved before.
class Runner : public QObject {
  Q_OBJECT

 public:
  explicit Runner(Workspace& workspace);
  /// Stops a run and waits for its end.
  ~Runner() override;

  /// Checks elements, none stands for all, and stores the results beside the model.
  void check(std::vector<model::Number> elements);
  /// Makes the calculation report as readable text. Elements without results are checked for it,
  /// and theirs are stored.
  void make_report(const ReportUnits& units);
  /// Writes the calculation document.
  void write_document(const std::filesystem::path& html, document::DocumentDetail detail);

  bool is_running() const { return thread_ != nullptr; }
  /// Whether a run is going on that can be cancelled: a report goes on to its end.
  bool can_be_cancelled() const { return is_running() && can_be_cancelled_; }
  /// Asks the run to stop. It may go on until the element that it is at is done.
  void cancel();

 Q_SIGNALS:
  void started(const QString& text);
  void progressed(int done, int total);
  void check_ended(const aluframe::desktop::RunEnd& end);
  /// @param model whose report it is: another may be open meanwhile
  void report_ended(const aluframe::desktop::RunEnd& end, const QString& report,
                    const QString& model);
  void document_ended(const aluframe::desktop::RunEnd& end, const QString& file);

 private:
  class Listener;
  using Job = std::function<std::function<void()>()>;

  enum class Cancelling { possible, impossible };
  /// @param job runs on the thread and returns what is then done in the window's
  void start(const QString& text, Cancelling cancelling, Job job);
  void finish(const std::function<void()>& end);
  std::function<void(const std::string&)> message();

  Workspace& workspace_;
  std::unique_ptr<QThread> thread_;
  std::atomic<bool> is_cancelled_ = false;
  bool can_be_cancelled_ = false;
  bool is_ending_ = false;  ///< nobody wants to hear of the run's end any more
};

}  // namespace aluframe::desktop

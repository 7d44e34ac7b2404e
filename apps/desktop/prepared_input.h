#pragma once

#include <QTimer>
#include <memory>
#include <string>

#include "aluframe/run/input.h"
#include "apps/desktop/background_job.h"
#include "apps/desktop/workspace.h"

namespace aluframe::desktop {

/// The saved model with the forces of its combinations, as its results were made: computed once for
/// every state of the file, beside the window's thread, and only when somebody wants it.
class PreparedInput : public QObject {
  Q_OBJECT

 public:
  explicit PreparedInput(Workspace& workspace);

  /// Computes it unless that was done; `changed` tells when it is there.
  void want();
  /// Null: it is being computed, was not wanted, or cannot be had (`problem`).
  const std::shared_ptr<const run::Input>& input() const { return input_; }
  /// Why it cannot be had; empty otherwise.
  const std::string& problem() const { return problem_; }

 Q_SIGNALS:
  void changed();

 private:
  void forget();
  void start();

  Workspace& workspace_;
  std::shared_ptr<const run::Input> input_;
  std::string problem_;
  /// Opening a model tells of its results as well: that begins one computation, not two.
  QTimer beginning_;
  BackgroundJob job_;
};

}  // namespace aluframe::desktop

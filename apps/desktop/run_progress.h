#pragma once

#include <QElapsedTimer>
#include <QProgressBar>
#include <QTimer>

namespace aluframe::desktop {

/// How far a run is and how many seconds it has taken.
///
/// It stands still between two seconds: each change draws the whole window with the view of the
/// frame again, which takes the processor from the run.
class RunProgress : public QProgressBar {
 public:
  RunProgress();

  void begin();
  void advance(int done, int total);
  void end();

 private:
  void show_seconds();

  QElapsedTimer since_;
  QTimer seconds_;
};

}  // namespace aluframe::desktop

#include "apps/desktop/run_progress.h"

#include "aluframe/texts/text.h"

namespace aluframe::desktop {

using texts::translatable;

RunProgress::RunProgress() {
  constexpr int second = 1000;  // ms
  seconds_.setInterval(second);
  connect(&seconds_, &QTimer::timeout, this, [this] { show_seconds(); });
  setMaximumWidth(24 * fontMetrics().averageCharWidth());
  hide();
}

void RunProgress::begin() {
  since_.start();
  seconds_.start();
  setRange(0, 1);
  setValue(0);
  show_seconds();
  show();
}

void RunProgress::advance(int done, int total) {
  setRange(0, total);
  setValue(done);
}

void RunProgress::end() {
  seconds_.stop();
  hide();
}

void RunProgress::show_seconds() {
  constexpr int second = 1000;  // ms
  setFormat(QString::fromStdString(texts::translated("{} s", since_.elapsed() / second)));
}

}  // namespace aluframe::desktop

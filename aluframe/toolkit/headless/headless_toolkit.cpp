#include "aluframe/toolkit/headless/headless_toolkit.h"

#include <stdexcept>
#include <utility>

namespace aluframe::toolkit {

namespace {

constexpr int cancelled = 2;

/// A dialog that a script works while it runs.
class ScriptedDialog : public HeadlessDialog {
 public:
  ScriptedDialog(const DIALOG_TEMPLATE& dialog, host::DialogEvents& events,
                 std::deque<HeadlessToolkit::Script>& scripts)
      : HeadlessDialog(dialog, events), scripts_(scripts) {}

  int Run() override {
    // A dialog may close itself while it is initialised.
    if (!is_open()) return result().value_or(cancelled);
    if (scripts_.empty()) throw std::logic_error("a dialog opened that no script works");
    const HeadlessToolkit::Script script = std::move(scripts_.front());
    scripts_.pop_front();
    script(*this);
    if (is_open()) press_escape();
    return result().value_or(cancelled);
  }

 private:
  std::deque<HeadlessToolkit::Script>& scripts_;
};

}  // namespace

std::unique_ptr<host::DialogWindow> HeadlessToolkit::Open(const DIALOG_TEMPLATE& dialog,
                                                          host::DialogEvents& events) {
  return std::make_unique<ScriptedDialog>(dialog, events, scripts_);
}

}  // namespace aluframe::toolkit

#pragma once

#include <QDialog>
#include <functional>

struct DIALOG_TEMPLATE;
class QPushButton;

namespace aluframe::toolkit {

/// The window of a dialog, of fixed size. It leaves to its owner what Enter, Escape and the close
/// button mean, and closes only by `done`.
class DialogFrame : public QDialog {
 public:
  DialogFrame(const DIALOG_TEMPLATE& dialog, QWidget* parent);

  /// Called for Enter where no push button takes it.
  std::function<void()> enter_pressed;
  /// Called for Escape and for the window's close button.
  std::function<void()> escape_pressed;

  /// The button that Enter presses.
  void set_default_button(QPushButton& button);
  void reject() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void press_enter();

  QPushButton* default_button_ = nullptr;
};

}  // namespace aluframe::toolkit

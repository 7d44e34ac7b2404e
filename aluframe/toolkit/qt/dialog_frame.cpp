#include "aluframe/toolkit/qt/dialog_frame.h"

#include <QKeyEvent>
#include <QPushButton>

#include "aluframe/toolkit/qt/qt_text.h"
#include "host/framework/resources.h"

namespace aluframe::toolkit {

namespace {

Qt::WindowFlags window_flags(const DIALOG_TEMPLATE& dialog) {
  Qt::WindowFlags flags = Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint;
  if (dialog.bSystemMenu) flags |= Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
  if (dialog.bModalFrame) flags |= Qt::MSWindowsFixedSizeDialogHint;
  return flags;
}

}  // namespace

DialogFrame::DialogFrame(const DIALOG_TEMPLATE& dialog, QWidget* parent)
    : QDialog(parent, window_flags(dialog)) {
  setWindowTitle(to_qt(dialog.caption));
}

void DialogFrame::set_default_button(QPushButton& button) {
  default_button_ = &button;
  button.setDefault(true);
}

void DialogFrame::reject() {
  if (escape_pressed) escape_pressed();
}

void DialogFrame::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    press_enter();
  } else {
    QDialog::keyPressEvent(event);
  }
}

// A focused push button goes before the default one. A default button that is disabled or hidden
// takes the key all the same, so that Enter never does what the button forbids.
void DialogFrame::press_enter() {
  auto* focused = qobject_cast<QPushButton*>(focusWidget());
  QPushButton* button = focused != nullptr ? focused : default_button_;
  if (button == nullptr) {
    if (enter_pressed) enter_pressed();
  } else if (button->isVisible()) {
    button->click();  // a disabled button passes it over
  }
}

}  // namespace aluframe::toolkit

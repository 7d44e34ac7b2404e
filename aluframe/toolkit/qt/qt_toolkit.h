#pragma once

#include <QPointer>
#include <QWidget>

#include "host/framework/toolkit.h"

namespace aluframe::toolkit {

/// Dialogs of Qt widgets: native look, the keyboard as the template says, sizes that follow the
/// font and the screen's scale.
///
///     QApplication application(argc, argv);
///     QtToolkit toolkit;
///     options.toolkit = &toolkit;  // of a session
class QtToolkit : public host::Toolkit {
 public:
  /// @param parent window that dialogs belong to when no other dialog is open; may be null
  explicit QtToolkit(QWidget* parent = nullptr) : parent_(parent) {}

  /// @return null when there is no Qt application
  std::unique_ptr<host::DialogWindow> Open(const DIALOG_TEMPLATE& dialog,
                                           host::DialogEvents& events) override;

 private:
  QPointer<QWidget> parent_;
};

}  // namespace aluframe::toolkit

#include "aluframe/toolkit/qt/qt_toolkit.h"

#include <QApplication>

#include "aluframe/toolkit/qt/qt_dialog.h"

namespace aluframe::toolkit {

std::unique_ptr<host::DialogWindow> QtToolkit::Open(const DIALOG_TEMPLATE& dialog,
                                                    host::DialogEvents& events) {
  if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr) return nullptr;
  QWidget* modal = QApplication::activeModalWidget();
  return std::make_unique<QtDialog>(dialog, events, modal != nullptr ? modal : parent_.data());
}

}  // namespace aluframe::toolkit

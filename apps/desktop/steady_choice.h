#pragma once

#include <QComboBox>
#include <QWheelEvent>

namespace aluframe::desktop {

/// A choice that the wheel changes only after it was clicked or reached by keys: else whoever
/// scrolls a panel over it would change it unseen.
class SteadyChoice : public QComboBox {
 public:
  SteadyChoice() { setFocusPolicy(Qt::StrongFocus); }

 protected:
  void wheelEvent(QWheelEvent* event) override {
    if (hasFocus()) {
      QComboBox::wheelEvent(event);
    } else {
      event->ignore();
    }
  }
};

}  // namespace aluframe::desktop

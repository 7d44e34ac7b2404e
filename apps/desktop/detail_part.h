#pragma once

#include <QWidget>

namespace aluframe::desktop {

/// A part of the details that is brought up to date only while it is seen.
class DetailPart : public QWidget {
 public:
  /// What it shows may have changed.
  void tell_changed() {
    is_behind_ = true;
    if (isVisible()) catch_up();
  }

 protected:
  virtual void refresh() = 0;
  void showEvent(QShowEvent* event) override {
    QWidget::showEvent(event);
    catch_up();
  }

 private:
  void catch_up() {
    if (!is_behind_) return;
    is_behind_ = false;
    refresh();
  }

  bool is_behind_ = true;
};

}  // namespace aluframe::desktop

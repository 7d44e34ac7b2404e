#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QPointer>

namespace aluframe::toolkit {

// Texts that name controls of a dialog. Their accelerator moves the focus to the control that they
// are told, and does nothing else to it.

/// A label.
class CaptionLabel : public QLabel {
 public:
  explicit CaptionLabel(QWidget* parent);

  /// The control that the accelerator goes to; null: nowhere.
  void set_target(QWidget* control) { target_ = control; }
  /// The control that it names to readers of the screen; null: none.
  void set_named(QWidget* control);

 protected:
  bool event(QEvent* event) override;

 private:
  QPointer<QWidget> target_;
};

/// A group box that lies behind the controls that it frames; they are not its children.
class GroupFrame : public QGroupBox {
 public:
  explicit GroupFrame(QWidget* parent);

  /// Null: the accelerator goes nowhere.
  void set_target(QWidget* control) { target_ = control; }

 protected:
  bool event(QEvent* event) override;

 private:
  QPointer<QWidget> target_;
};

}  // namespace aluframe::toolkit

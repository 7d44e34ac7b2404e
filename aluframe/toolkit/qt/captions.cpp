#include "aluframe/toolkit/qt/captions.h"

#include <QEvent>

namespace aluframe::toolkit {

CaptionLabel::CaptionLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
}

void CaptionLabel::set_named(QWidget* control) {
  // Without a buddy a label would show the "&"; the window stands for none.
  setBuddy(control != nullptr ? control : window());
}

bool CaptionLabel::event(QEvent* event) {
  if (event->type() != QEvent::Shortcut) return QLabel::event(event);
  if (target_ != nullptr) target_->setFocus(Qt::ShortcutFocusReason);
  return true;
}

GroupFrame::GroupFrame(QWidget* parent) : QGroupBox(parent) {
  lower();
}

bool GroupFrame::event(QEvent* event) {
  if (event->type() != QEvent::Shortcut) return QGroupBox::event(event);
  if (target_ != nullptr) target_->setFocus(Qt::ShortcutFocusReason);
  return true;
}

}  // namespace aluframe::toolkit

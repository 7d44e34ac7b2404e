#include "aluframe/toolkit/qt/radio_group.h"

#include <QKeyEvent>
#include <algorithm>

namespace aluframe::toolkit {

namespace {

bool is_usable(const RadioButton& button) {
  return button.isEnabled() && !button.isHidden();
}

}  // namespace

RadioButton::RadioButton(bool tab_stop, QWidget* parent)
    : QRadioButton(parent), tab_stop_(tab_stop) {
  // All buttons of a dialog have one parent, whatever their group.
  setAutoExclusive(false);
}

void RadioButton::join(RadioGroup& group) {
  group_ = &group;
  group.add(*this);
}

void RadioButton::nextCheckState() {
  if (group_ != nullptr) group_->check_alone(*this);
}

void RadioButton::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  const bool forward = key == Qt::Key_Down || key == Qt::Key_Right;
  const bool back = key == Qt::Key_Up || key == Qt::Key_Left;
  if (group_ != nullptr && (forward || back)) {
    group_->step(*this, forward);
  } else {
    QRadioButton::keyPressEvent(event);
  }
}

void RadioGroup::check_alone(RadioButton& button) {
  for (RadioButton* other : buttons_) other->setChecked(other == &button);
  update_tab_stop();
}

void RadioGroup::step(RadioButton& from, bool forward) {
  const std::size_t count = buttons_.size();
  auto place = static_cast<std::size_t>(std::ranges::find(buttons_, &from) - buttons_.begin());
  for (std::size_t i = 1; i < count; ++i) {
    place = (place + (forward ? 1 : count - 1)) % count;
    if (!is_usable(*buttons_[place])) continue;
    buttons_[place]->setFocus(Qt::TabFocusReason);
    buttons_[place]->click();
    return;
  }
}

void RadioGroup::update_tab_stop() {
  auto stop = std::ranges::find_if(
      buttons_, [](const RadioButton* b) { return is_usable(*b) && b->isChecked(); });
  if (stop == buttons_.end()) {
    stop = std::ranges::find_if(
        buttons_, [](const RadioButton* b) { return is_usable(*b) && b->is_tab_stop(); });
  }
  for (auto button = buttons_.begin(); button != buttons_.end(); ++button) {
    (*button)->setFocusPolicy(button == stop ? Qt::StrongFocus : Qt::ClickFocus);
  }
}

}  // namespace aluframe::toolkit

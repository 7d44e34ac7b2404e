#include "aluframe/toolkit/qt/keyboard.h"

#include "aluframe/toolkit/qt/captions.h"

namespace aluframe::toolkit {

Keyboard::Keyboard(const std::vector<TemplateControl>& controls) : controls_(controls) {
  join_groups();
  chain();
  update();
}

void Keyboard::join_groups() {
  groups_.emplace_back();
  for (const TemplateControl& control : controls_) {
    if (control.has(CONTROL_GROUP)) groups_.emplace_back();
    if (control.kind() == CONTROL_KIND::RadioButton) {
      static_cast<RadioButton*>(control.widget)->join(groups_.back());
    }
  }
}

void Keyboard::chain() {
  QWidget* before = nullptr;
  for (const TemplateControl& control : controls_) {
    if (control.is_text()) continue;
    if (before != nullptr) QWidget::setTabOrder(before, control.widget);
    before = control.widget;
  }
}

QWidget* Keyboard::usable_behind(std::size_t place) const {
  for (std::size_t i = place + 1; i < controls_.size(); ++i) {
    const TemplateControl& control = controls_[i];
    if (!control.is_text() && control.is_shown() && control.is_enabled()) return control.widget;
  }
  return nullptr;
}

void Keyboard::update() {
  for (RadioGroup& group : groups_) group.update_tab_stop();
  for (std::size_t i = 0; i < controls_.size(); ++i) {
    if (controls_[i].kind() == CONTROL_KIND::Label) {
      static_cast<CaptionLabel*>(controls_[i].widget)->set_target(usable_behind(i));
    } else if (controls_[i].kind() == CONTROL_KIND::GroupBox) {
      static_cast<GroupFrame*>(controls_[i].widget)->set_target(usable_behind(i));
    }
  }
}

}  // namespace aluframe::toolkit

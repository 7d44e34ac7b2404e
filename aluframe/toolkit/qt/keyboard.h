#pragma once

#include <deque>
#include <vector>

#include "aluframe/toolkit/qt/radio_group.h"
#include "aluframe/toolkit/qt/template_control.h"

namespace aluframe::toolkit {

/// How the keyboard goes through a dialog: the Tab key in the order of the template, with one stop
/// a group of radio buttons; the arrow keys through such a group; the accelerator of a label or a
/// group box to the first control behind it that can be used.
class Keyboard {
 public:
  /// Joins the radio buttons to groups and fixes the order. The controls outlive this.
  explicit Keyboard(const std::vector<TemplateControl>& controls);

  /// To be called when controls were checked, shown, hidden, enabled or disabled.
  void update();

 private:
  void join_groups();
  void chain();
  /// The first control behind a place that can be used; null when there is none.
  QWidget* usable_behind(std::size_t place) const;

  const std::vector<TemplateControl>& controls_;
  std::deque<RadioGroup> groups_;
};

}  // namespace aluframe::toolkit

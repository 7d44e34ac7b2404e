#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/framework/toolkit.h"

namespace gui_test {

/// Controls of the sample dialog, in the order of its template.
enum SampleControl : int {
  name_label = 101,
  name_edit,
  unit_label,
  rib_check,
  class_box,
  class_one,
  class_two,
  class_three,
  side_left,
  side_right,
  code_list,
  material_list,
  hidden_edit,
  disabled_check,
  no_tab_edit,
  ok_button = 1,
  apply_button = 120,
  unknown_control = 999
};

/// A dialog with every kind of control. The classes are one group of radio buttons and the sides
/// another; OK is the default button.
const DIALOG_TEMPLATE& sample_dialog();

/// The same controls without a default button.
const DIALOG_TEMPLATE& dialog_without_default();

/// Notes what the toolkit tells, a line each: "click 104", "choice 111", "row 112 2",
/// "row click 112 -1", "enter", "escape".
class EventLog : public host::DialogEvents {
 public:
  std::vector<std::string> lines;
  /// Called after a line was noted.
  std::function<void(const std::string&)> then;

  void ButtonClicked(int id) override { note("click " + std::to_string(id)); }
  void ChoiceChanged(int id) override { note("choice " + std::to_string(id)); }
  void RowSelected(int id, int row) override {
    note("row " + std::to_string(id) + " " + std::to_string(row));
  }
  void RowClicked(int id, int row) override {
    note("row click " + std::to_string(id) + " " + std::to_string(row));
  }
  void EnterPressed() override { note("enter"); }
  void EscapePressed() override { note("escape"); }

 private:
  void note(const std::string& line) {
    lines.push_back(line);
    if (then) then(line);
  }
};

}  // namespace gui_test

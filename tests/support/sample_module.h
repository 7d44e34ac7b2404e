#pragma once

#include <string>
#include <vector>

#include "host/framework/extension.h"
#include "host/framework/toolkit.h"

namespace test_support {

/// Controls of the sample dialog.
enum SampleId : int {
  ok_button = 1,
  cancel_button = 2,
  name_label = 101,
  name_edit,
  hidden_edit,
  rib_check,
  class_one,
  class_two,
  side_left,
  side_right,
  code_list,
  material_list,
  apply_button,
  disabled_button,
  class_box,
  unknown_id = 999
};

inline constexpr UINT sample_dialog_id = 500;
inline constexpr UINT unknown_dialog_id = 599;

/// A dialog with every kind of control. The classes are one group of radio buttons, the sides
/// another; the label reads "Name", the edit "Rafter".
const DIALOG_TEMPLATE& sample_dialog();

/// A module that carries the sample dialog, started and searched while it lives.
class SampleModule {
 public:
  SampleModule();
  ~SampleModule();
  SampleModule(const SampleModule&) = delete;
  SampleModule& operator=(const SampleModule&) = delete;

 private:
  AFX_EXTENSION_MODULE state_;
};

/// Notes what a toolkit tells, a line each: "click 104", "choice 109", "row 110 2",
/// "row click 110 -1", "enter", "escape".
class EventNotes : public host::DialogEvents {
 public:
  std::vector<std::string> lines;

  void ButtonClicked(int id) override { lines.push_back("click " + std::to_string(id)); }
  void ChoiceChanged(int id) override { lines.push_back("choice " + std::to_string(id)); }
  void RowSelected(int id, int row) override {
    lines.push_back("row " + std::to_string(id) + " " + std::to_string(row));
  }
  void RowClicked(int id, int row) override {
    lines.push_back("row click " + std::to_string(id) + " " + std::to_string(row));
  }
  void EnterPressed() override { lines.emplace_back("enter"); }
  void EscapePressed() override { lines.emplace_back("escape"); }
};

}  // namespace test_support

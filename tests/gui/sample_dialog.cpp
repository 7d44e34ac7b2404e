#include "tests/gui/sample_dialog.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace gui_test {

namespace {

using enum CONTROL_KIND;

constexpr UINT in_tab = CONTROL_TAB_STOP;
constexpr UINT a_field = CONTROL_TAB_STOP | CONTROL_BORDER | CONTROL_AUTO_SCROLL;
constexpr UINT a_list = CONTROL_TAB_STOP | CONTROL_REPORT_VIEW | CONTROL_SINGLE_SELECTION;

constexpr CONTROL_TEMPLATE controls[] = {
    {Label, name_label, L"&Name:", 7, 10, 50, 10, 0},
    {Edit, name_edit, L"Rafter", 60, 7, 80, 16, a_field},
    {Label, unit_label, L"Unit", 145, 10, 30, 10, 0},
    {CheckBox, rib_check, L"&Rib", 7, 28, 60, 12, in_tab},
    {GroupBox, class_box, L"&Class", 7, 42, 80, 64, 0},
    {RadioButton, class_one, L"One", 14, 56, 60, 12, in_tab | CONTROL_GROUP},
    {RadioButton, class_two, L"Two", 14, 70, 60, 12, 0},
    {RadioButton, class_three, L"Three", 14, 84, 60, 12, 0},
    {RadioButton, side_left, L"&Left", 100, 56, 60, 12, in_tab | CONTROL_GROUP},
    {RadioButton, side_right, L"Right", 100, 70, 60, 12, 0},
    {DropDownList, code_list, L"", 100, 84, 90, 70, in_tab | CONTROL_GROUP},
    {List, material_list, L"", 7, 110, 200, 60, a_list},
    {Edit, hidden_edit, L"", 60, 7, 80, 16, a_field | CONTROL_HIDDEN},
    {CheckBox, disabled_check, L"Disabled", 100, 28, 80, 12, in_tab | CONTROL_DISABLED},
    {Edit, no_tab_edit, L"", 150, 84, 40, 16, CONTROL_BORDER},
    {GroupBox, kNoControlId, L"", 95, 42, 110, 62, 0},
    {PushButton, ok_button, L"OK", 90, 175, 50, 16, in_tab | CONTROL_DEFAULT},
    {PushButton, apply_button, L"&Apply", 150, 175, 50, 16, in_tab},
};

constexpr auto without_default = [] {
  std::array<CONTROL_TEMPLATE, std::size(controls)> copy{};
  std::ranges::copy(controls, copy.begin());
  for (CONTROL_TEMPLATE& control : copy) control.flags &= ~static_cast<UINT>(CONTROL_DEFAULT);
  return copy;
}();

constexpr DIALOG_TEMPLATE with_ok{500, L"Sample", 214, 198, true, true, controls};
constexpr DIALOG_TEMPLATE with_none{501, L"Sample", 214, 198, true, true, without_default};

}  // namespace

const DIALOG_TEMPLATE& sample_dialog() {
  return with_ok;
}

const DIALOG_TEMPLATE& dialog_without_default() {
  return with_none;
}

}  // namespace gui_test

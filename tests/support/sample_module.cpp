#include "tests/support/sample_module.h"

#include <stdexcept>

namespace test_support {

namespace {

using enum CONTROL_KIND;

constexpr UINT a_list = CONTROL_REPORT_VIEW | CONTROL_SINGLE_SELECTION;

// Places do not matter: nobody draws it.
constexpr CONTROL_TEMPLATE controls[] = {
    {Label, name_label, L"Name", 0, 0, 10, 10, 0},
    {Edit, name_edit, L"Rafter", 0, 0, 10, 10, 0},
    {Edit, hidden_edit, L"", 0, 0, 10, 10, CONTROL_HIDDEN},
    {CheckBox, rib_check, L"Rib", 0, 0, 10, 10, 0},
    {GroupBox, class_box, L"Class", 0, 0, 10, 10, 0},
    {RadioButton, class_one, L"One", 0, 0, 10, 10, CONTROL_GROUP},
    {RadioButton, class_two, L"Two", 0, 0, 10, 10, 0},
    {RadioButton, side_left, L"Left", 0, 0, 10, 10, CONTROL_GROUP},
    {RadioButton, side_right, L"Right", 0, 0, 10, 10, 0},
    {DropDownList, code_list, L"", 0, 0, 10, 10, CONTROL_GROUP},
    {List, material_list, L"", 0, 0, 10, 10, a_list},
    {GroupBox, kNoControlId, L"nobody's", 0, 0, 10, 10, 0},
    {PushButton, apply_button, L"Apply", 0, 0, 10, 10, 0},
    {PushButton, disabled_button, L"Later", 0, 0, 10, 10, CONTROL_DISABLED},
    {PushButton, ok_button, L"OK", 0, 0, 10, 10, 0},
    {PushButton, cancel_button, L"Cancel", 0, 0, 10, 10, 0},
};

constexpr DIALOG_TEMPLATE dialogs[] = {
    {sample_dialog_id, L"Sample", 100, 100, true, true, controls},
};

const MODULE_RESOURCES resources{dialogs, {}};

}  // namespace

const DIALOG_TEMPLATE& sample_dialog() {
  return dialogs[0];
}

SampleModule::SampleModule() {
  if (AfxInitExtensionModule(state_, &resources) == FALSE) {
    throw std::logic_error("the sample module is started already");
  }
  new CDynLinkLibrary(state_);
}

SampleModule::~SampleModule() {
  AfxTermExtensionModule(state_);
}

}  // namespace test_support

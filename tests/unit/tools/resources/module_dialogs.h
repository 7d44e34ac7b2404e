#pragma once

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "tz_alu/dialogs/module_resources.h"

// Finds the module's dialogs and controls for the tests.

namespace module_dialogs {

inline const DIALOG_TEMPLATE& Dialog(UINT id) {
  for (const DIALOG_TEMPLATE& dialog : kModuleResources.dialogs) {
    if (dialog.nId == id) return dialog;
  }
  throw std::runtime_error("no dialog " + std::to_string(id));
}

inline const DIALOG_TEMPLATE& DesignCode() {
  return Dialog(7963);
}

inline const DIALOG_TEMPLATE& Materials() {
  return Dialog(7964);
}

inline const CONTROL_TEMPLATE& Control(const DIALOG_TEMPLATE& dialog, int id) {
  for (const CONTROL_TEMPLATE& control : dialog.controls) {
    if (control.nId == id) return control;
  }
  throw std::runtime_error("no control " + std::to_string(id));
}

inline bool Has(const CONTROL_TEMPLATE& control, CONTROL_FLAG flag) {
  return (control.flags & flag) != 0;
}

}  // namespace module_dialogs

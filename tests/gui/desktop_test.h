#pragma once

#include <gmock/gmock.h>

#include <QTemporaryDir>
#include <filesystem>
#include <string>

#include "apps/desktop/desktop_run.h"
#include "tests/gui/dialog_user.h"

namespace gui_test {

/// A model file of its own for every test: a copy of the example with one material of the code's
/// table, class 2, strength ratio 0.9, no ribs.
class DesktopTest : public testing::Test {
 protected:
  DesktopTest();

  QTemporaryDir folder;
  std::filesystem::path file;

  std::string text_of_file() const;
  /// Reads the file again. @throws std::runtime_error when it is no model
  aluframe::model::Model model_of_file() const;
  int run(aluframe::services::SettingsDialog dialog);
};

}  // namespace gui_test

#pragma once

#include <QString>
#include <filesystem>

#include "apps/desktop/workspace.h"
#include "tests/gui/desktop_test.h"

namespace gui_test {

/// The example, of which bracket 3 fails, open in a workspace. Its checks are made by the program
/// of the command line.
class CheckedModelTest : public DesktopTest {
 protected:
  CheckedModelTest();

  aluframe::desktop::Workspace workspace;

  void open(const std::filesystem::path& path);
  void check();
  /// What the command line's program writes.
  /// @throws std::runtime_error when it fails
  static QString output_of_program(const QStringList& arguments);
  /// A row of beams along X, one after another.
  std::filesystem::path write_row_of_beams(int elements) const;
};

}  // namespace gui_test

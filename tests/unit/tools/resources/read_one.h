#pragma once

#include <gmock/gmock.h>

#include <string>

#include "tools/resources/script.h"
#include "tools/resources/source_error.h"

// Shortcuts of the tests that read scripts.

namespace resources {

/// Symbols of "resource.h" in the tests.
inline const std::vector<Symbol> test_symbols = {{"IDD_SETTINGS", 100}, {"IDC_NAME", 200}};

inline Script read(const std::string& source) {
  return read_script("test.rc", source, "resource.h", test_symbols);
}

/// A script with one dialog of these controls, which stand from line 4 on.
inline std::string dialog_of(const std::string& controls) {
  return "#include \"resource.h\"\n100 DIALOGEX 0, 0, 100, 50\nBEGIN\n" + controls + " END\n";
}

/// The only control of a dialog.
inline Control control_of(const std::string& statement) {
  const Script script = read(dialog_of(statement));
  EXPECT_EQ(script.dialogs.at(0).controls.size(), 1U);
  return script.dialogs.at(0).controls.at(0);
}

/// The message with which a script is refused; "accepted" when it is not.
inline std::string refusal_of(const std::string& source) {
  try {
    read(source);
  } catch (const SourceError& error) {
    return error.what();
  }
  return "accepted";
}

}  // namespace resources

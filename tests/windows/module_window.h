#pragma once

#include <string>

// What the menu of a host's window does with the module. Apart from the window, because the system
// and the framework give the same names to types of their own.

namespace module_window {

/// Binds the host while it lives.
class Host {
 public:
  /// @param texts file of the texts that the module asks for by key; may be empty
  explicit Host(const std::wstring& texts);
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;
  ~Host();

  /// Checks so many elements. @return what the window shows then
  std::wstring check(unsigned elements);
  std::wstring report();
  std::wstring edit_settings();
  std::wstring edit_materials();
};

}  // namespace module_window

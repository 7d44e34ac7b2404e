#pragma once

#include <string>

namespace aluframe::toolkit {

/// Shows a message box over the active window and returns when it has closed.
/// @param text UTF-8
/// @param type one button constant and one icon constant, as `AfxMessageBox` takes them
/// @return the number of the button that closed it (1: OK)
int show_message_box(const std::string& text, unsigned type);
/// The same of the framework's text.
int show_message_box(const std::wstring& text, unsigned type);

}  // namespace aluframe::toolkit

// A host of the design module with a window: its menu checks a frame, reports on it and opens the
// dialogs of its settings. The window's title says what came of it.
//
//     module_window [TEXTS]   a file of the module's messages, "KEY=text" a line

#include <windows.h>

#include <string>

#include "module_window.h"

namespace {

enum Command : UINT { check = 100, check_many, report, settings, materials, quit };

// Enough for the progress window to be seen.
constexpr unsigned many_elements = 3000000;

HMENU create_menu() {
  const HMENU design = CreatePopupMenu();
  AppendMenuW(design, MF_STRING, check, L"&Check");
  AppendMenuW(design, MF_STRING, check_many, L"Check &many elements");
  AppendMenuW(design, MF_STRING, report, L"&Report");
  AppendMenuW(design, MF_STRING, settings, L"&Design code...");
  AppendMenuW(design, MF_STRING, materials, L"Ma&terials...");
  AppendMenuW(design, MF_STRING, quit, L"&Quit");
  const HMENU bar = CreateMenu();
  AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(design), L"&Aluminium");
  return bar;
}

std::wstring run(module_window::Host& host, UINT command) {
  switch (command) {
    case check:
      return host.check(1);
    case check_many:
      return host.check(many_elements);
    case report:
      return host.report();
    case settings:
      return host.edit_settings();
    case materials:
      return host.edit_materials();
    default:
      return {};
  }
}

LRESULT CALLBACK handle(HWND window, UINT message, WPARAM word, LPARAM data) {
  if (message == WM_DESTROY) PostQuitMessage(0);
  if (message != WM_COMMAND) return DefWindowProcW(window, message, word, data);
  auto* host = reinterpret_cast<module_window::Host*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (LOWORD(word) == quit) {
    DestroyWindow(window);
  } else {
    SetWindowTextW(window, run(*host, LOWORD(word)).c_str());
  }
  return 0;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE program, HINSTANCE, LPWSTR texts, int) {
  module_window::Host host(texts);
  WNDCLASSW description = {};
  description.lpfnWndProc = &handle;
  description.hInstance = program;
  description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
  description.lpszClassName = L"ModuleWindow";
  RegisterClassW(&description);
  const HWND window = CreateWindowW(L"ModuleWindow", L"Tiny frame", WS_OVERLAPPEDWINDOW, 40, 40,
                                    480, 160, nullptr, create_menu(), program, nullptr);
  SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&host));
  ShowWindow(window, SW_SHOW);
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}

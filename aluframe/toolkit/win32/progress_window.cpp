#include "aluframe/toolkit/win32/progress_window.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>

namespace aluframe::toolkit {

namespace {

constexpr wchar_t class_name[] = L"AluFrameProgress";
constexpr int cancel_button = IDCANCEL;
constexpr int no_id = 0;

// Lines of the window, from the top.
enum Line { text_line, bar_line, button_line, line_count };

// In lines of the font's height.
constexpr int width_in_lines = 24;
constexpr int margin_in_quarters = 3;
constexpr int line_in_quarters = 7;

// Time between two looks at the window, in ms: short for the eye, long beside an element's check.
constexpr std::uint64_t interval = 30;

// A run that ends sooner, in ms, shows no window, which would only flicker.
constexpr std::uint64_t patience = 300;

HFONT message_font() {
  NONCLIENTMETRICSW metrics = {};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  return CreateFontIndirectW(&metrics.lfMessageFont);
}

int height_of(HFONT font) {
  LOGFONTW description = {};
  GetObjectW(font, sizeof description, &description);
  return std::max(std::abs(static_cast<int>(description.lfHeight)), 8);
}

// Place of a line's control, in pixels.
RECT place_of(int line, int font_height) {
  const int margin = font_height * margin_in_quarters / 4;
  const int height = font_height * line_in_quarters / 4;
  const int top = margin + line * (height + margin / 2);
  const int left = line == button_line ? font_height * (width_in_lines - 7) : margin;
  return {left, top, font_height * width_in_lines - margin, top + height};
}

RECT window_place(int font_height, DWORD style) {
  const LONG bottom = place_of(line_count - 1, font_height).bottom;
  RECT size = {0, 0, font_height * width_in_lines, bottom + font_height * margin_in_quarters / 4};
  AdjustWindowRect(&size, style, FALSE);
  const int width = size.right - size.left;
  const int height = size.bottom - size.top;
  const int left = (GetSystemMetrics(SM_CXSCREEN) - width) / 2;
  const int top = (GetSystemMetrics(SM_CYSCREEN) - height) / 2;
  return {left, top, left + width, top + height};
}

}  // namespace

/// What Windows calls for the window's messages.
struct ProgressWindow::Procedure {
  static LRESULT CALLBACK handle(HWND window, UINT message, WPARAM word, LPARAM data) {
    auto* progress = reinterpret_cast<ProgressWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    const bool cancels =
        message == WM_CLOSE || (message == WM_COMMAND && LOWORD(word) == cancel_button);
    if (progress == nullptr || !cancels) return DefWindowProcW(window, message, word, data);
    progress->cancelled_ = progress->cancelled_ || progress->cancellable_;
    return 0;
  }

  static void register_class() {
    const INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_PROGRESS_CLASS};
    InitCommonControlsEx(&classes);
    WNDCLASSW description = {};
    description.lpfnWndProc = &handle;
    description.hInstance = GetModuleHandleW(nullptr);
    description.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    description.lpszClassName = class_name;
    RegisterClassW(&description);  // fails when it is registered already, which is as good
  }
};

ProgressWindow::~ProgressWindow() {
  Delete_ProgressDlg();
}

void ProgressWindow::Create_ProgressDlg(const CString& title, const CString& text,
                                        int cancellable) {
  Delete_ProgressDlg();
  Procedure::register_class();
  constexpr DWORD style = WS_POPUP | WS_CAPTION;
  cancelled_ = false;
  cancellable_ = cancellable != 0;
  owner_ = GetActiveWindow();
  font_ = message_font();
  const RECT place = window_place(height_of(static_cast<HFONT>(font_)), style);
  window_ = CreateWindowExW(WS_EX_DLGMODALFRAME, class_name, title.GetString(), style, place.left,
                            place.top, place.right - place.left, place.bottom - place.top, owner_,
                            nullptr, GetModuleHandleW(nullptr), nullptr);
  if (window_ == nullptr) return;
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  create_controls(text, cancellable_);
  shown_ = false;
  last_look_ = created_ = GetTickCount64();
}

void ProgressWindow::show() {
  if (owner_ != nullptr) EnableWindow(owner_, FALSE);
  ShowWindow(window_, SW_SHOW);
  if (cancellable_) SetFocus(GetDlgItem(window_, cancel_button));
  shown_ = true;
}

void ProgressWindow::create_controls(const CString& text, bool cancellable) {
  add(WC_STATICW, text.GetString(), SS_LEFT | SS_NOPREFIX, text_line, no_id);
  bar_ = add(PROGRESS_CLASSW, L"", 0, bar_line, no_id);
  if (!cancellable) return;
  add(WC_BUTTONW, cancel_caption_.c_str(), BS_DEFPUSHBUTTON | WS_TABSTOP, button_line,
      cancel_button);
}

WindowHandle ProgressWindow::add(const wchar_t* window_class, const wchar_t* text,
                                 std::uint32_t style, int line, int id) {
  const RECT place = place_of(line, height_of(static_cast<HFONT>(font_)));
  const HWND control = CreateWindowExW(
      0, window_class, text, style | WS_CHILD | WS_VISIBLE, place.left, place.top,
      place.right - place.left, place.bottom - place.top, window_,
      reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
  SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
  return control;
}

int ProgressWindow::Update_ProgressDlg(int done, int total) {
  if (window_ == nullptr) return 0;
  const std::uint64_t now = GetTickCount64();
  if (now - created_ < patience || now - last_look_ < interval) return cancelled_ ? 1 : 0;
  last_look_ = now;
  if (!shown_) show();
  SendMessageW(bar_, PBM_SETRANGE32, 0, total);
  SendMessageW(bar_, PBM_SETPOS, static_cast<WPARAM>(done), 0);
  handle_messages();
  return cancelled_ ? 1 : 0;
}

// What ends the program is left to the loop that started the run.
void ProgressWindow::handle_messages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      cancelled_ = true;
      return;
    }
    if (IsDialogMessageW(window_, &message) != FALSE) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void ProgressWindow::Delete_ProgressDlg() {
  if (window_ == nullptr) return;
  if (shown_ && owner_ != nullptr) EnableWindow(owner_, TRUE);
  SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
  DestroyWindow(window_);
  DeleteObject(font_);
  window_ = bar_ = nullptr;
}

}  // namespace aluframe::toolkit

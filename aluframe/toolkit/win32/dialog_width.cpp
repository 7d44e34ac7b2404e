#include "aluframe/toolkit/win32/dialog_width.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace aluframe::toolkit {

namespace {

std::vector<HWND> controls_of(HWND dialog) {
  std::vector<HWND> controls;
  for (HWND next = GetWindow(dialog, GW_CHILD); next != nullptr;
       next = GetWindow(next, GW_HWNDNEXT)) {
    controls.push_back(next);
  }
  return controls;
}

bool is_of_class(HWND control, const wchar_t* name) {
  wchar_t found[64] = {};
  GetClassNameW(control, found, 64);
  return lstrcmpiW(found, name) == 0;
}

bool is_combo_box(HWND control) {
  return is_of_class(control, WC_COMBOBOXW);
}

// Room beside a control's text, in pixels of its font's height; -1 when its text takes none.
int room_in_heights(HWND control) {
  if (is_of_class(control, WC_STATICW)) return 0;
  if (!is_of_class(control, WC_BUTTONW)) return -1;
  const LONG type = GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK;
  return type == BS_GROUPBOX ? -1 : 1;
}

int needed_width(HWND control) {
  const int room = room_in_heights(control);
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(control)), L'\0');
  if (room < 0 || text.empty()) return 0;
  GetWindowTextW(control, text.data(), static_cast<int>(text.size()) + 1);
  const HDC device = GetDC(control);
  const HGDIOBJ before =
      SelectObject(device, reinterpret_cast<HGDIOBJ>(SendMessageW(control, WM_GETFONT, 0, 0)));
  RECT place = {};
  DrawTextW(device, text.c_str(), -1, &place, DT_CALCRECT | DT_SINGLELINE);
  SelectObject(device, before);
  ReleaseDC(control, device);
  return place.right + room * place.bottom;
}

// Inside the dialog; of a drop-down list with the list open, by which Windows sizes it.
RECT place_of(HWND dialog, HWND control) {
  RECT place = {};
  if (is_combo_box(control)) {
    SendMessageW(control, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&place));
  } else {
    GetWindowRect(control, &place);
  }
  MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
  return place;
}

int scaled(int length, double factor) {
  return static_cast<int>(std::ceil(length * factor));
}

void widen_window(HWND dialog, double factor) {
  RECT outer;
  RECT inner;
  GetWindowRect(dialog, &outer);
  GetClientRect(dialog, &inner);
  const int frame = (outer.right - outer.left) - inner.right;
  SetWindowPos(dialog, nullptr, 0, 0, scaled(inner.right, factor) + frame, outer.bottom - outer.top,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

void widen_to_fit(WindowHandle dialog) {
  const std::vector<HWND> controls = controls_of(dialog);
  double factor = 1.0;
  for (const HWND control : controls) {
    const RECT place = place_of(dialog, control);
    const int given = place.right - place.left;
    if (given > 0) factor = std::max(factor, static_cast<double>(needed_width(control)) / given);
  }
  if (factor == 1.0) return;
  widen_window(dialog, factor);
  for (const HWND control : controls) {
    const RECT place = place_of(dialog, control);
    const int left = scaled(place.left, factor);
    SetWindowPos(control, nullptr, left, place.top, scaled(place.right, factor) - left,
                 place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
  }
}

}  // namespace aluframe::toolkit

#include "dialog_user.h"

#include <windows.h>

#include <commctrl.h>

#include <stdexcept>

namespace test_support {

namespace {

using aluframe::toolkit::WindowHandle;

constexpr int cancelled = 2;

/// The dialog whose script is the next to be called.
DialogUser* waiting = nullptr;

[[noreturn]] void refuse(int id, const char* why) {
  throw std::logic_error("control " + std::to_string(id) + " " + why);
}

POINT middle(const RECT& place) {
  return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

}  // namespace

/// Calls a script from within the dialog's own loop.
struct DialogUser::Caller {
  static void CALLBACK call(HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    if (DialogUser* user = std::exchange(waiting, nullptr)) user->work();
  }
};

std::unique_ptr<host::DialogWindow> UserToolkit::Open(const DIALOG_TEMPLATE& dialog,
                                                      host::DialogEvents& events) {
  auto user = std::make_unique<DialogUser>(dialog, events, GetActiveWindow(), scripts_);
  if (user->window() == nullptr) throw std::logic_error("Windows did not open the dialog");
  return user;
}

DialogUser::DialogUser(const DIALOG_TEMPLATE& dialog, host::DialogEvents& events,
                       WindowHandle owner, std::deque<UserToolkit::Script>& scripts)
    : Win32Dialog(dialog, events, owner), template_(dialog), scripts_(scripts) {}

int DialogUser::Run() {
  if (!is_open()) return Win32Dialog::Run();
  if (scripts_.empty()) throw std::logic_error("a dialog opened that no script works");
  script_ = std::move(scripts_.front());
  scripts_.pop_front();
  waiting = this;
  SetTimer(nullptr, 0, 1, &Caller::call);
  const int result = Win32Dialog::Run();
  if (failure_) std::rethrow_exception(failure_);
  return result;
}

void DialogUser::work() {
  try {
    handle_messages();
    script_(*this);
    if (is_open()) press_escape();
  } catch (...) {
    failure_ = std::current_exception();
  }
  if (is_open()) End(cancelled);
}

void DialogUser::handle_messages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) process(message);
}

CONTROL_KIND DialogUser::kind_of(int id) const {
  for (const CONTROL_TEMPLATE& control : template_.controls) {
    if (control.nId == id) return control.kind;
  }
  refuse(id, "is not in the dialog");
}

WindowHandle DialogUser::usable(int id, const char* what, bool is_of_kind) const {
  if (!is_open()) refuse(id, "belongs to a dialog that has closed");
  if (!IsShown(id)) refuse(id, "is hidden");
  if (!IsEnabled(id)) refuse(id, "is disabled");
  if (!is_of_kind) refuse(id, what);
  return control(id);
}

void DialogUser::click_at(WindowHandle window, int x, int y) {
  const LPARAM place = MAKELPARAM(x, y);
  PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, place);
  PostMessageW(window, WM_LBUTTONUP, 0, place);
  handle_messages();
}

void DialogUser::click(int id) {
  const CONTROL_KIND kind = kind_of(id);
  const bool is_button = kind == CONTROL_KIND::PushButton || kind == CONTROL_KIND::CheckBox ||
                         kind == CONTROL_KIND::RadioButton;
  const HWND window = usable(id, "is no button", is_button);
  RECT face;
  GetClientRect(window, &face);
  // The mark of a check box or a radio button is at its left.
  const int x = kind == CONTROL_KIND::PushButton ? middle(face).x : face.bottom / 2;
  click_at(window, x, middle(face).y);
}

void DialogUser::type(int id, const std::wstring& text) {
  const HWND edit = usable(id, "is no edit", kind_of(id) == CONTROL_KIND::Edit);
  click_at(edit, 3, 3);
  press(Key::end);
  const int before = GetWindowTextLengthW(edit);
  for (int i = 0; i < before; ++i) press(Key::backspace);
  for (const wchar_t c : text) PostMessageW(edit, WM_CHAR, c, 0);
  handle_messages();
}

void DialogUser::choose(int id, int index) {
  const HWND box = usable(id, "is no drop-down list", kind_of(id) == CONTROL_KIND::DropDownList);
  if (index < 0 || index >= ChoiceCount(id)) refuse(id, "does not offer this entry");
  RECT face;
  GetClientRect(box, &face);
  click_at(box, middle(face).x, middle(face).y);
  COMBOBOXINFO parts = {};
  parts.cbSize = sizeof parts;
  GetComboBoxInfo(box, &parts);
  RECT entry;
  SendMessageW(parts.hwndList, LB_SETTOPINDEX, static_cast<WPARAM>(index), 0);
  SendMessageW(parts.hwndList, LB_GETITEMRECT, static_cast<WPARAM>(index),
               reinterpret_cast<LPARAM>(&entry));
  click_at(parts.hwndList, middle(entry).x, middle(entry).y);
}

void DialogUser::choose(int id, const std::wstring& text) {
  const std::vector<std::wstring> offered = choices(id);
  for (std::size_t i = 0; i < offered.size(); ++i) {
    if (offered[i] == text) return choose(id, static_cast<int>(i));
  }
  refuse(id, "does not offer this entry");
}

void DialogUser::click_row(int id, int row) {
  const HWND list = usable(id, "is no list", kind_of(id) == CONTROL_KIND::List);
  if (row < -1 || row >= RowCount(id)) refuse(id, "does not have this row");
  RECT place;
  GetClientRect(list, &place);
  if (row == -1) return click_at(list, place.left + 3, place.bottom - 3);
  ListView_EnsureVisible(list, row, FALSE);
  ListView_GetItemRect(list, row, &place, LVIR_LABEL);
  click_at(list, place.left + 3, middle(place).y);
}

void DialogUser::press(Key key) {
  const auto number = static_cast<WPARAM>(key);
  const HWND focused = GetFocus();
  const HWND target = focused != nullptr ? focused : window();
  PostMessageW(target, WM_KEYDOWN, number, 1);
  PostMessageW(target, WM_KEYUP, number, static_cast<LPARAM>(0xC0000001));
  handle_messages();
}

void DialogUser::press_enter() {
  press(Key::enter);
}

void DialogUser::press_escape() {
  press(Key::escape);
}

int DialogUser::focus() const {
  const HWND focused = GetFocus();
  return focused != nullptr && IsChild(window(), focused) != FALSE ? GetDlgCtrlID(focused) : 0;
}

std::vector<std::wstring> DialogUser::choices(int id) const {
  std::vector<std::wstring> texts;
  for (int i = 0; i < ChoiceCount(id); ++i) texts.emplace_back(ChoiceText(id, i).GetString());
  return texts;
}

bool DialogUser::is_centred(int id, int column) const {
  LVCOLUMNW found = {};
  found.mask = LVCF_FMT;
  ListView_GetColumn(control(id), column, &found);
  return (found.fmt & LVCFMT_JUSTIFYMASK) == LVCFMT_CENTER;
}

}  // namespace test_support

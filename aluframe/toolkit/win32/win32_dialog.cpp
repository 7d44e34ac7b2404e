#include "aluframe/toolkit/win32/win32_dialog.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>

#include "aluframe/toolkit/win32/dialog_width.h"

namespace aluframe::toolkit {

namespace {

constexpr int cancelled = 2;

bool can_be_checked(CONTROL_KIND kind) {
  return kind == CONTROL_KIND::CheckBox || kind == CONTROL_KIND::RadioButton;
}

bool is_button(CONTROL_KIND kind) {
  return kind == CONTROL_KIND::PushButton || can_be_checked(kind);
}

bool has_text(CONTROL_KIND kind) {
  return kind != CONTROL_KIND::DropDownList && kind != CONTROL_KIND::List;
}

// The library or program that `dialog` is part of.
HMODULE module_of(const DIALOG_TEMPLATE& dialog) {
  constexpr DWORD by_address =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  HMODULE module = nullptr;
  GetModuleHandleExW(by_address, reinterpret_cast<LPCWSTR>(&dialog), &module);
  return module;
}

const DLGTEMPLATE* resource_of(HMODULE module, const DIALOG_TEMPLATE& dialog) {
  const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(dialog.nId), RT_DIALOG);
  if (found == nullptr) return nullptr;
  return static_cast<const DLGTEMPLATE*>(LockResource(LoadResource(module, found)));
}

void load_list_class() {
  const INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_LISTVIEW_CLASSES};
  InitCommonControlsEx(&classes);
}

bool has_style(HWND window, LONG style) {
  return (GetWindowLongW(window, GWL_STYLE) & style) != 0;
}

void set_style(HWND window, LONG style, bool on) {
  const LONG before = GetWindowLongW(window, GWL_STYLE);
  SetWindowLongW(window, GWL_STYLE, on ? before | style : before & ~style);
}

bool begins_group(const CONTROL_TEMPLATE& control) {
  return (control.flags & CONTROL_GROUP) != 0;
}

bool is_tab_stop(const CONTROL_TEMPLATE& control) {
  return (control.flags & CONTROL_TAB_STOP) != 0;
}

}  // namespace

/// What Windows calls for the dialog's messages.
struct Win32Dialog::Procedure {
  static INT_PTR CALLBACK handle(HWND window, UINT message, WPARAM word, LPARAM data) {
    if (message == WM_INITDIALOG) {
      SetWindowLongPtrW(window, DWLP_USER, data);
      return FALSE;  // the focus is given when the dialog is shown
    }
    auto* dialog = reinterpret_cast<Win32Dialog*>(GetWindowLongPtrW(window, DWLP_USER));
    return dialog != nullptr && dispatch(*dialog, message, word, data) ? TRUE : FALSE;
  }

  static bool dispatch(Win32Dialog& dialog, UINT message, WPARAM word, LPARAM data) {
    switch (message) {
      case WM_COMMAND:
        dialog.command(LOWORD(word), HIWORD(word));
        return true;
      case WM_NOTIFY: {
        const auto* head = reinterpret_cast<const NMHDR*>(data);
        dialog.notify(static_cast<int>(head->idFrom), head->code, data);
        return true;
      }
      case WM_CLOSE:
        dialog.raise([&dialog] { dialog.events_.EscapePressed(); });
        return true;
      default:
        return false;
    }
  }
};

Win32Dialog::Win32Dialog(const DIALOG_TEMPLATE& dialog, host::DialogEvents& events,
                         WindowHandle owner)
    : template_(dialog), events_(events), owner_(owner) {
  load_list_class();
  for (const CONTROL_TEMPLATE& control : dialog.controls) {
    if (control.nId != kNoControlId) controls_.emplace(control.nId, &control);
  }
  const HMODULE module = module_of(dialog);
  const DLGTEMPLATE* resource = resource_of(module, dialog);
  if (resource == nullptr) return;
  window_ = CreateDialogIndirectParamW(module, resource, owner, &Procedure::handle,
                                       reinterpret_cast<LPARAM>(this));
  if (window_ != nullptr) widen_to_fit(window_);
}

Win32Dialog::~Win32Dialog() {
  if (window_ == nullptr) return;
  SetWindowLongPtrW(window_, DWLP_USER, 0);
  DestroyWindow(window_);
}

// --- events ---

template <class Event>
void Win32Dialog::raise(const Event& event) noexcept {
  if (result_) return;
  try {
    event();
  } catch (...) {
    failure_ = std::current_exception();
    End(cancelled);
  }
}

// A push button with the focus goes before the default one.
bool Win32Dialog::takes_enter(WindowHandle focused) const {
  for (const CONTROL_TEMPLATE& control : template_.controls) {
    if (control.kind != CONTROL_KIND::PushButton) continue;
    if ((control.flags & CONTROL_DEFAULT) != 0) return true;
    if (focused == GetDlgItem(window_, control.nId)) return true;
  }
  return false;
}

// Windows turns Enter and Escape into the commands OK and Cancel.
void Win32Dialog::command(int id, int code) {
  const CONTROL_TEMPLATE* control = find(id);
  if (code == CBN_SELCHANGE && find(id, CONTROL_KIND::DropDownList) != nullptr) {
    raise([&] { events_.ChoiceChanged(id); });
  } else if (code != BN_CLICKED) {
    return;
  } else if (id == IDCANCEL && (key_ == VK_ESCAPE || control == nullptr)) {
    raise([&] { events_.EscapePressed(); });
  } else if (id == IDOK && (key_ == VK_RETURN || control == nullptr) && !takes_enter(GetFocus())) {
    raise([&] { events_.EnterPressed(); });
  } else if (control != nullptr && is_button(control->kind)) {
    raise([&] { events_.ButtonClicked(id); });
  }
}

void Win32Dialog::notify(int id, unsigned code, std::intptr_t data) {
  if (find(id, CONTROL_KIND::List) == nullptr) return;
  if (code == static_cast<unsigned>(LVN_ITEMCHANGED)) {
    const auto& change = *reinterpret_cast<const NMLISTVIEW*>(data);
    const bool selected = (change.uNewState & ~change.uOldState & LVIS_SELECTED) != 0;
    if (selected) raise([&] { events_.RowSelected(id, change.iItem); });
  } else if (code == static_cast<unsigned>(NM_CLICK)) {
    const auto& click = *reinterpret_cast<const NMITEMACTIVATE*>(data);
    raise([&] { events_.RowClicked(id, click.iItem); });
  }
}

// --- the loop ---

void Win32Dialog::process(tagMSG& message) {
  key_ = message.message == WM_KEYDOWN ? message.wParam : 0;
  if (IsDialogMessageW(window_, &message) == FALSE) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  key_ = 0;
}

void Win32Dialog::give_focus_to_first() {
  const HWND first = GetNextDlgTabItem(window_, nullptr, FALSE);
  SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(first), TRUE);
}

int Win32Dialog::Run() {
  const bool disables_owner = owner_ != nullptr && IsWindowEnabled(owner_) != FALSE;
  // A dialog may close itself while it is initialised.
  if (!result_) {
    if (disables_owner) EnableWindow(owner_, FALSE);
    ShowWindow(window_, SW_SHOW);
    give_focus_to_first();
  }
  MSG message;
  while (!result_) {
    if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
      // The program ends: its own loop is to see that too.
      PostQuitMessage(static_cast<int>(message.wParam));
      End(cancelled);
    } else {
      process(message);
    }
  }
  // Before the dialog goes, so that the owner and no other window comes to the front.
  if (disables_owner) EnableWindow(owner_, TRUE);
  ShowWindow(window_, SW_HIDE);
  if (failure_) std::rethrow_exception(failure_);
  return result_.value_or(cancelled);
}

void Win32Dialog::SetCaption(const CString& caption) {
  SetWindowTextW(window_, caption.GetString());
}

// --- controls ---

const CONTROL_TEMPLATE* Win32Dialog::find(int id) const {
  const auto found = controls_.find(id);
  return found != controls_.end() ? found->second : nullptr;
}

WindowHandle Win32Dialog::control(int id) const {
  return find(id) != nullptr ? GetDlgItem(window_, id) : nullptr;
}

WindowHandle Win32Dialog::find(int id, CONTROL_KIND kind) const {
  const CONTROL_TEMPLATE* found = find(id);
  return found != nullptr && found->kind == kind ? GetDlgItem(window_, id) : nullptr;
}

WindowHandle Win32Dialog::find_check(int id) const {
  const CONTROL_TEMPLATE* found = find(id);
  return found != nullptr && can_be_checked(found->kind) ? GetDlgItem(window_, id) : nullptr;
}

void Win32Dialog::SetText(int id, const CString& text) {
  const CONTROL_TEMPLATE* found = find(id);
  if (found != nullptr && has_text(found->kind)) SetWindowTextW(control(id), text.GetString());
}

CString Win32Dialog::Text(int id) const {
  const CONTROL_TEMPLATE* found = find(id);
  if (found == nullptr) return {};
  if (!has_text(found->kind)) return ChoiceText(id, SelectedChoice(id));
  const HWND window = control(id);
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
  const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
  text.resize(static_cast<std::size_t>(length));
  return text;
}

// A control that can no longer be used does not keep the focus.
void Win32Dialog::leave(WindowHandle control) {
  if (GetFocus() == control) SendMessageW(window_, WM_NEXTDLGCTL, 0, FALSE);
}

void Win32Dialog::Enable(int id, bool enable) {
  const HWND window = control(id);
  if (window == nullptr) return;
  if (!enable) leave(window);
  EnableWindow(window, enable ? TRUE : FALSE);
}

bool Win32Dialog::IsEnabled(int id) const {
  const HWND window = control(id);
  return window != nullptr && IsWindowEnabled(window) != FALSE;
}

void Win32Dialog::Show(int id, bool show) {
  const HWND window = control(id);
  if (window == nullptr) return;
  if (!show) leave(window);
  ShowWindow(window, show ? SW_SHOW : SW_HIDE);
}

bool Win32Dialog::IsShown(int id) const {
  const HWND window = control(id);
  return window != nullptr && has_style(window, WS_VISIBLE);
}

void Win32Dialog::SetCheck(int id, bool check) {
  const HWND window = find_check(id);
  if (window == nullptr) return;
  SendMessageW(window, BM_SETCHECK, check ? BST_CHECKED : BST_UNCHECKED, 0);
  update_tab_stops();
}

// The Tab key stops at the checked button of a group. Windows lets it stop at none while none is
// checked; then the template's own stop holds.
void Win32Dialog::update_tab_stops() {
  const auto controls = template_.controls;
  for (auto first = controls.begin(); first != controls.end();) {
    const auto end = std::find_if(first + 1, controls.end(), begins_group);
    const bool any_checked = std::any_of(first, end, [this](const CONTROL_TEMPLATE& control) {
      return control.kind == CONTROL_KIND::RadioButton && IsChecked(control.nId);
    });
    for (; first != end; ++first) {
      if (first->kind != CONTROL_KIND::RadioButton) continue;
      const bool stop = any_checked ? IsChecked(first->nId) : is_tab_stop(*first);
      set_style(control(first->nId), WS_TABSTOP, stop);
    }
  }
}

bool Win32Dialog::IsChecked(int id) const {
  const HWND window = find_check(id);
  return window != nullptr && SendMessageW(window, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

}  // namespace aluframe::toolkit

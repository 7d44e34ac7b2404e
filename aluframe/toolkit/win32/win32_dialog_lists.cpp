// The drop-down lists and the lists in columns of a dialog.

#include <windows.h>

#include "aluframe/toolkit/win32/report_list.h"
#include "aluframe/toolkit/win32/win32_dialog.h"

namespace aluframe::toolkit {

// --- drop-down lists ---

void Win32Dialog::ClearChoices(int id) {
  if (const HWND choices = find(id, CONTROL_KIND::DropDownList)) {
    SendMessageW(choices, CB_RESETCONTENT, 0, 0);
  }
}

int Win32Dialog::AddChoice(int id, const CString& text) {
  const HWND choices = find(id, CONTROL_KIND::DropDownList);
  if (choices == nullptr) return -1;
  return static_cast<int>(
      SendMessageW(choices, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.GetString())));
}

int Win32Dialog::ChoiceCount(int id) const {
  const HWND choices = find(id, CONTROL_KIND::DropDownList);
  return choices != nullptr ? static_cast<int>(SendMessageW(choices, CB_GETCOUNT, 0, 0)) : 0;
}

CString Win32Dialog::ChoiceText(int id, int index) const {
  if (index < 0 || index >= ChoiceCount(id)) return {};
  const HWND choices = find(id, CONTROL_KIND::DropDownList);
  const auto place = static_cast<WPARAM>(index);
  std::wstring text(static_cast<std::size_t>(SendMessageW(choices, CB_GETLBTEXTLEN, place, 0)),
                    L'\0');
  SendMessageW(choices, CB_GETLBTEXT, place, reinterpret_cast<LPARAM>(text.data()));
  return text;
}

void Win32Dialog::SelectChoice(int id, int index) {
  const HWND choices = find(id, CONTROL_KIND::DropDownList);
  if (choices == nullptr) return;
  const int selected = index >= 0 && index < ChoiceCount(id) ? index : -1;
  SendMessageW(choices, CB_SETCURSEL, static_cast<WPARAM>(selected), 0);
}

int Win32Dialog::SelectedChoice(int id) const {
  const HWND choices = find(id, CONTROL_KIND::DropDownList);
  return choices != nullptr ? static_cast<int>(SendMessageW(choices, CB_GETCURSEL, 0, 0)) : -1;
}

// --- lists in columns ---

void Win32Dialog::AddColumn(int id, const CString& header, int width, bool centred) {
  if (const HWND list = find(id, CONTROL_KIND::List)) {
    report_list::add_column(list, header.GetString(), width, centred);
  }
}

int Win32Dialog::ColumnCount(int id) const {
  const HWND list = find(id, CONTROL_KIND::List);
  return list != nullptr ? report_list::column_count(list) : 0;
}

CString Win32Dialog::ColumnHeader(int id, int column) const {
  const HWND list = find(id, CONTROL_KIND::List);
  return list != nullptr ? CString(report_list::header(list, column)) : CString();
}

int Win32Dialog::ColumnWidth(int id, int column) const {
  const HWND list = find(id, CONTROL_KIND::List);
  return list != nullptr ? report_list::column_width(list, column) : 0;
}

int Win32Dialog::InsertRow(int id, int row) {
  const HWND list = find(id, CONTROL_KIND::List);
  return list != nullptr ? report_list::insert_row(list, row) : -1;
}

int Win32Dialog::RowCount(int id) const {
  const HWND list = find(id, CONTROL_KIND::List);
  return list != nullptr ? report_list::row_count(list) : 0;
}

void Win32Dialog::SetCell(int id, int row, int column, const CString& text) {
  if (const HWND list = find(id, CONTROL_KIND::List)) {
    report_list::set_cell(list, row, column, text.GetString());
  }
}

CString Win32Dialog::Cell(int id, int row, int column) const {
  const HWND list = find(id, CONTROL_KIND::List);
  return list != nullptr ? CString(report_list::cell(list, row, column)) : CString();
}

void Win32Dialog::SelectRow(int id, int row) {
  if (const HWND list = find(id, CONTROL_KIND::List)) report_list::select_row(list, row);
}

int Win32Dialog::SelectedRow(int id) const {
  const HWND list = find(id, CONTROL_KIND::List);
  return list != nullptr ? report_list::selected_row(list) : -1;
}

void Win32Dialog::SetFullRowSelect(int id, bool on) {
  if (const HWND list = find(id, CONTROL_KIND::List)) report_list::set_full_row(list, on);
}

bool Win32Dialog::IsFullRowSelect(int id) const {
  const HWND list = find(id, CONTROL_KIND::List);
  return list != nullptr && report_list::is_full_row(list);
}

}  // namespace aluframe::toolkit

#include "aluframe/toolkit/win32/report_list.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>

namespace aluframe::toolkit::report_list {

namespace {

constexpr int dots_an_inch_at_100 = 96;
constexpr int longest_cell = 1024;

// Dots an inch of the screen that the window is on.
int dots_an_inch(HWND window) {
  const HDC device = GetDC(window);
  const int dots = GetDeviceCaps(device, LOGPIXELSX);
  ReleaseDC(window, device);
  return dots;
}

void align_header(HWND list, int column, bool centred) {
  const HWND header = ListView_GetHeader(list);
  HDITEMW item = {};
  item.mask = HDI_FORMAT;
  Header_GetItem(header, column, &item);
  item.fmt = (item.fmt & ~HDF_JUSTIFYMASK) | (centred ? HDF_CENTER : HDF_LEFT);
  Header_SetItem(header, column, &item);
}

bool has_cell(HWND list, int row, int column) {
  return row >= 0 && row < row_count(list) && column >= 0 && column < column_count(list);
}

}  // namespace

int column_count(WindowHandle list) {
  return Header_GetItemCount(ListView_GetHeader(list));
}

void add_column(WindowHandle list, const std::wstring& header, int width, bool centred) {
  LVCOLUMNW column = {};
  column.mask = LVCF_TEXT | LVCF_FMT;
  column.fmt = centred ? LVCFMT_CENTER : LVCFMT_LEFT;
  column.pszText = const_cast<wchar_t*>(header.c_str());
  if (width >= 0) {
    column.mask |= LVCF_WIDTH;
    column.cx = MulDiv(width, dots_an_inch(list), dots_an_inch_at_100);
  }
  const int index = column_count(list);
  ListView_InsertColumn(list, index, &column);
  // The first column is made with its texts to the left, whatever is asked for.
  column.mask = LVCF_FMT;
  ListView_SetColumn(list, index, &column);
  align_header(list, index, centred);
}

std::wstring header(WindowHandle list, int column) {
  wchar_t text[longest_cell] = {};
  LVCOLUMNW found = {};
  found.mask = LVCF_TEXT;
  found.pszText = text;
  found.cchTextMax = longest_cell;
  return ListView_GetColumn(list, column, &found) != FALSE ? text : L"";
}

int column_width(WindowHandle list, int column) {
  if (column < 0 || column >= column_count(list)) return 0;
  return MulDiv(ListView_GetColumnWidth(list, column), dots_an_inch_at_100, dots_an_inch(list));
}

int row_count(WindowHandle list) {
  return ListView_GetItemCount(list);
}

int insert_row(WindowHandle list, int row) {
  LVITEMW item = {};
  item.iItem = std::clamp(row, 0, row_count(list));
  return ListView_InsertItem(list, &item);
}

void set_cell(WindowHandle list, int row, int column, const std::wstring& text) {
  if (!has_cell(list, row, column)) return;
  ListView_SetItemText(list, row, column, const_cast<wchar_t*>(text.c_str()));
}

std::wstring cell(WindowHandle list, int row, int column) {
  if (!has_cell(list, row, column)) return {};
  wchar_t text[longest_cell] = {};
  ListView_GetItemText(list, row, column, text, longest_cell);
  return text;
}

void select_row(WindowHandle list, int row) {
  constexpr UINT marks = LVIS_SELECTED | LVIS_FOCUSED;
  if (row < 0 || row >= row_count(list)) {
    ListView_SetItemState(list, -1, 0, marks);
  } else if (row != selected_row(list)) {
    ListView_SetItemState(list, row, marks, marks);
  }
}

int selected_row(WindowHandle list) {
  return ListView_GetNextItem(list, -1, LVNI_SELECTED);
}

void set_full_row(WindowHandle list, bool on) {
  ListView_SetExtendedListViewStyleEx(list, LVS_EX_FULLROWSELECT, on ? LVS_EX_FULLROWSELECT : 0);
}

bool is_full_row(WindowHandle list) {
  return (ListView_GetExtendedListViewStyle(list) & LVS_EX_FULLROWSELECT) != 0;
}

}  // namespace aluframe::toolkit::report_list

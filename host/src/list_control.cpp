#include "host/framework/list_control.h"

int CListCtrl::InsertColumn(int column, const CString& header, int format, int width) {
  if (Window() == nullptr || column != Window()->ColumnCount(Id())) return -1;
  Window()->AddColumn(Id(), header, width, format == LVCFMT_CENTER);
  return column;
}

int CListCtrl::InsertItem(int row, const CString& text) {
  if (Window() == nullptr) return -1;
  const int inserted = Window()->InsertRow(Id(), row);
  Window()->SetCell(Id(), inserted, 0, text);
  return inserted;
}

BOOL CListCtrl::SetItemText(int row, int column, const CString& text) {
  if (row < 0 || row >= GetItemCount()) return FALSE;
  if (column < 0 || column >= Window()->ColumnCount(Id())) return FALSE;
  Window()->SetCell(Id(), row, column, text);
  return TRUE;
}

CString CListCtrl::GetItemText(int row, int column) const {
  return Window() != nullptr ? Window()->Cell(Id(), row, column) : CString();
}

int CListCtrl::GetItemCount() const {
  return Window() != nullptr ? Window()->RowCount(Id()) : 0;
}

int CListCtrl::GetNextItem(int row, int flags) const {
  if (Window() == nullptr || flags != LVNI_SELECTED) return -1;
  const int selected = Window()->SelectedRow(Id());
  return selected > row ? selected : -1;
}

UINT CListCtrl::GetExtendedStyle() const {
  return Window() != nullptr && Window()->IsFullRowSelect(Id()) ? LVS_EX_FULLROWSELECT : 0U;
}

UINT CListCtrl::SetExtendedStyle(UINT style) {
  const UINT before = GetExtendedStyle();
  if (Window() != nullptr) Window()->SetFullRowSelect(Id(), (style & LVS_EX_FULLROWSELECT) != 0);
  return before;
}

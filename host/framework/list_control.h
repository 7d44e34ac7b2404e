#pragma once

#include "host/framework/window.h"

inline constexpr int LVCFMT_LEFT = 0;
inline constexpr int LVCFMT_CENTER = 2;
inline constexpr UINT LVS_EX_FULLROWSELECT = 0x20;
inline constexpr int LVNI_SELECTED = 2;

/// A list in columns. Rows and columns count from 0.
class HOST_API CListCtrl : public CWnd {
 public:
  /// Appends a column; `column` must be their number.
  /// @param width in pixels at 100 %. @return its index, or -1
  int InsertColumn(int column, const CString& header, int format = LVCFMT_LEFT, int width = -1);
  /// @return the new row's index, or -1
  int InsertItem(int row, const CString& text);
  /// @return nonzero when the list has the cell
  BOOL SetItemText(int row, int column, const CString& text);
  /// Empty when the list does not have the cell.
  CString GetItemText(int row, int column) const;
  int GetItemCount() const;
  /// The first row behind `row` (-1: of all) that is selected; -1 when there is none.
  /// @param flags LVNI_SELECTED
  int GetNextItem(int row, int flags) const;
  UINT GetExtendedStyle() const;
  /// @return the style before
  UINT SetExtendedStyle(UINT style);
};

#pragma once

#include <string>

#include "aluframe/toolkit/win32/window_handle.h"

namespace aluframe::toolkit::report_list {

// Operations on the system's list in columns. Rows and columns that the list lacks have no text and
// no width.

int column_count(WindowHandle list);
/// Appends a column; `width` in pixels at 100 %, -1 for the system's own choice.
void add_column(WindowHandle list, const std::wstring& header, int width, bool centred);
std::wstring header(WindowHandle list, int column);
/// In pixels at 100 %.
int column_width(WindowHandle list, int column);

int row_count(WindowHandle list);
/// @return the new row; a place beyond the rows is at their end
int insert_row(WindowHandle list, int row);
void set_cell(WindowHandle list, int row, int column, const std::wstring& text);
std::wstring cell(WindowHandle list, int row, int column);

/// -1, or a row that the list does not have, selects none.
void select_row(WindowHandle list, int row);
/// -1 when none is selected.
int selected_row(WindowHandle list);

/// Whether a selected row is marked from end to end.
void set_full_row(WindowHandle list, bool on);
bool is_full_row(WindowHandle list);

}  // namespace aluframe::toolkit::report_list

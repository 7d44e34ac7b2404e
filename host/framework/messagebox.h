#pragma once

#include "host/framework/cstring.h"
#include "host/framework/types.h"
#include "host/host_api.h"

inline constexpr UINT MB_OK = 0x00;
inline constexpr UINT MB_ICONEXCLAMATION = 0x30;

/// Shows a modal message box and returns when the user has closed it.
/// @param type one button constant combined with one icon constant, such as MB_OK |
///             MB_ICONEXCLAMATION
/// @return the number of the button that closed it (1: OK)
HOST_API int AfxMessageBox(const CString& text, UINT type = MB_OK);

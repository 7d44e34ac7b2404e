#pragma once

// What windows.h names HWND, for headers that do without it: some of its names are the framework's.
struct HWND__;

namespace aluframe::toolkit {

using WindowHandle = HWND__*;

}  // namespace aluframe::toolkit

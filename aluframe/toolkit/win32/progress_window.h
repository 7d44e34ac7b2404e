#pragma once

#include <cstdint>
#include <string>

#include "aluframe/toolkit/win32/window_handle.h"
#include "host/tz_dgn/tz_dgn.h"

namespace aluframe::toolkit {

/// Window that shows how far a run is, with a bar and, when the run may be stopped, a Cancel
/// button. The run keeps the program's thread: every update lets the window draw itself and hear
/// its user, while the window that was active is disabled.
///
///     std::unique_ptr<CDgnProgressDlg> CreateProgressDlg() override {
///       return std::make_unique<aluframe::toolkit::ProgressWindow>();
///     }
class ProgressWindow : public CDgnProgressDlg {
 public:
  explicit ProgressWindow(std::wstring cancel_caption = L"Cancel")
      : cancel_caption_(std::move(cancel_caption)) {}
  ProgressWindow(const ProgressWindow&) = delete;
  ProgressWindow& operator=(const ProgressWindow&) = delete;
  ~ProgressWindow() override;

  void Create_ProgressDlg(const CString& title, const CString& text, int cancellable) override;
  int Update_ProgressDlg(int done, int total) override;
  void Delete_ProgressDlg() override;

 private:
  struct Procedure;

  void create_controls(const CString& text, bool cancellable);
  WindowHandle add(const wchar_t* window_class, const wchar_t* text, std::uint32_t style, int line,
                   int id);
  void show();
  void handle_messages();

  std::wstring cancel_caption_;
  WindowHandle owner_ = nullptr;
  WindowHandle window_ = nullptr;
  WindowHandle bar_ = nullptr;
  void* font_ = nullptr;
  bool cancellable_ = false;
  bool cancelled_ = false;
  bool shown_ = false;
  std::uint64_t created_ = 0;    ///< ms
  std::uint64_t last_look_ = 0;  ///< ms
};

}  // namespace aluframe::toolkit

#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "aluframe/services/session.h"

namespace aluframe::cli {

enum class ProgressMode { automatic, always, never };

std::optional<ProgressMode> parse_progress_mode(std::string_view name);

/// "Checking [#####...............]  25 %  500/2000  1240/s  0:01 left"
/// @param before of `done`, those that an earlier run has checked: they took none of the seconds
std::string progress_line(const std::string& text, int done, int total, double seconds,
                          int before = 0);

/// Draws the progress of a run on standard error, a few times a second, and stops the run after
/// Ctrl-C.
class ProgressBar : public services::ProgressListener {
 public:
  explicit ProgressBar(bool visible) : visible_(visible) {}

  void started(const std::string& text) override;
  bool advanced(int done, int total) override;
  void ended() override;

 private:
  using Clock = std::chrono::steady_clock;

  bool visible_;
  std::string text_;
  std::optional<int> before_;  ///< elements that were done when the run began, once that is known
  Clock::time_point start_;
  Clock::time_point last_drawn_;
};

}  // namespace aluframe::cli

#include "apps/cli/progress_bar.h"

#include <fmt/format.h>

#include <cmath>
#include <cstdio>

#include "aluframe/platform/terminal.h"
#include "aluframe/texts/text.h"
#include "apps/cli/terminal.h"

namespace aluframe::cli {

namespace {

constexpr int bar_width = 24;
constexpr auto drawing_interval = std::chrono::milliseconds(100);
constexpr const char* erase_line = "\r\x1b[K";

std::string clock_time(double seconds) {
  const auto whole = std::lround(seconds);
  return fmt::format("{}:{:02}", whole / 60, whole % 60);
}

}  // namespace

std::optional<ProgressMode> parse_progress_mode(std::string_view name) {
  if (name == "auto") return ProgressMode::automatic;
  if (name == "always") return ProgressMode::always;
  if (name == "never") return ProgressMode::never;
  return std::nullopt;
}

std::string progress_line(const std::string& text, int done, int total, double seconds,
                          int before) {
  const double share = total > 0 ? static_cast<double>(done) / total : 1.0;
  const auto filled = static_cast<std::size_t>(share * bar_width);
  const std::string bar = std::string(filled, '#') + std::string(bar_width - filled, '.');
  const double rate = seconds > 0.0 ? (done - before) / seconds : 0.0;
  const std::string left =
      rate > 0.0 ? texts::translated("{} left", clock_time((total - done) / rate)) : "";
  return fmt::format("{} [{}] {:3.0f} %  {}/{}  {:.0f}/s  {}", text, bar, share * 100.0, done,
                     total, rate, left);
}

void ProgressBar::started(const std::string& text) {
  text_ = text;
  before_.reset();
  start_ = Clock::now();
  last_drawn_ = {};
}

bool ProgressBar::advanced(int done, int total) {
  const Clock::time_point now = Clock::now();
  if (!before_) before_ = done - 1;
  if (visible_ && (now - last_drawn_ >= drawing_interval || done == total)) {
    last_drawn_ = now;
    const double seconds = std::chrono::duration<double>(now - start_).count();
    print_to_stderr(erase_line + progress_line(text_, done, total, seconds, *before_));
  }
  return platform::was_interrupted();
}

void ProgressBar::ended() {
  if (visible_) print_to_stderr(erase_line);
}

}  // namespace aluframe::cli

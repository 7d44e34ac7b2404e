// Ctrl-C during a run. Every test sends its signals in a process of its own.

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>

#include "aluframe/platform/terminal.h"
#include "apps/cli/progress_bar.h"

namespace aluframe::cli {
namespace {

/// Ends the process, with status 0 when `holds`.
[[noreturn]] void end(bool holds) {
  std::exit(holds ? 0 : 1);
}

TEST(InterruptsDeathTest, ASignalIsNotedAndStopsTheRun) {
  for (const int signal : {SIGINT, SIGTERM}) {
    EXPECT_EXIT(
        {
          platform::note_interrupts();
          const bool before = platform::was_interrupted();
          std::raise(signal);
          end(!before && platform::was_interrupted() && ProgressBar(false).advanced(1, 2));
        },
        testing::ExitedWithCode(0), "");
  }
}

TEST(InterruptsDeathTest, TheSecondSignalEndsTheProgram) {
  EXPECT_EXIT(
      {
        platform::note_interrupts();
        std::raise(SIGINT);
        std::raise(SIGINT);
        end(true);
      },
      testing::KilledBySignal(SIGINT), "");
}

}  // namespace
}  // namespace aluframe::cli

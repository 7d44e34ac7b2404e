#include "aluframe/platform/threads.h"

#include <windows.h>

#include <bit>

namespace aluframe::platform {

// The system gives its events to a thread of its own.
struct SignalsBlocked::Before {};

SignalsBlocked::SignalsBlocked() = default;
SignalsBlocked::~SignalsBlocked() = default;

int processors() {
  DWORD_PTR ours = 0;
  DWORD_PTR all = 0;
  if (GetProcessAffinityMask(GetCurrentProcess(), &ours, &all) == 0 || ours == 0) return 1;
  return std::popcount(ours);
}

}  // namespace aluframe::platform

#include "aluframe/platform/threads.h"

#include <pthread.h>
#include <sched.h>

#include <csignal>

namespace aluframe::platform {

struct SignalsBlocked::Before {
  sigset_t signals;
};

SignalsBlocked::SignalsBlocked() : before_(std::make_unique<Before>()) {
  sigset_t all;
  sigfillset(&all);
  pthread_sigmask(SIG_SETMASK, &all, &before_->signals);
}

SignalsBlocked::~SignalsBlocked() {
  pthread_sigmask(SIG_SETMASK, &before_->signals, nullptr);
}

int processors() {
  cpu_set_t mask;
  return sched_getaffinity(0, sizeof mask, &mask) == 0 ? CPU_COUNT(&mask) : 1;
}

}  // namespace aluframe::platform

#pragma once

#include <string>

#include "aluframe/services/session.h"

namespace aluframe::services {

/// Asks to stop after a number of elements.
struct StopAfter : ProgressListener {
  explicit StopAfter(int count) : count_(count) {}
  void started(const std::string&) override {}
  bool advanced(int done, int) override { return done >= count_; }
  void ended() override {}

 private:
  int count_;
};

}  // namespace aluframe::services

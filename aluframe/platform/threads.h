#pragma once

#include <memory>

namespace aluframe::platform {

/// Keeps signals away from threads that are started in its scope: they are the program's own.
class SignalsBlocked {
 public:
  SignalsBlocked();
  ~SignalsBlocked();
  SignalsBlocked(const SignalsBlocked&) = delete;
  SignalsBlocked& operator=(const SignalsBlocked&) = delete;

 private:
  struct Before;
  std::unique_ptr<Before> before_;
};

/// How many processors this program may use; 1 when that is unknown.
int processors();

}  // namespace aluframe::platform

#pragma once

#include <functional>
#include <memory>

namespace aluframe::analysis {

/// Further threads for large products, from here to the end of the scope, for the thread that
/// makes it. Which thread forms which part of a result makes no difference to any digit. Threads
/// that the system does not give are done without.
class SharedWork {
 public:
  /// @param threads in all, this one included; with 1 nothing is started
  explicit SharedWork(int threads);
  ~SharedWork();
  SharedWork(const SharedWork&) = delete;
  SharedWork& operator=(const SharedWork&) = delete;

 private:
  friend void run_parts(int count, bool pays, const std::function<void(int)>& part);
  class Threads;
  std::unique_ptr<Threads> threads_;
  SharedWork* outer_;
};

/// Runs part(0) to part(count - 1), which must not throw, each once; together with the threads of
/// the scope where that pays. They have all ended when this returns.
void run_parts(int count, bool pays, const std::function<void(int)>& part);

/// Two where the process may use two processors, otherwise one.
int threads_for_products();

}  // namespace aluframe::analysis

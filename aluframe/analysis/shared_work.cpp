#include "aluframe/analysis/shared_work.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "aluframe/platform/threads.h"

namespace aluframe::analysis {

namespace {

/// Of this thread; parts of shared work are not shared again.
thread_local SharedWork* current = nullptr;

}  // namespace

/// Threads that wait for parts. Whoever is free takes the next part, the caller too, so that work
/// goes on when the others are not given a processor.
class SharedWork::Threads {
 public:
  explicit Threads(int count);
  ~Threads();

  void run(int count, const std::function<void(int)>& part);

 private:
  void work();
  /// Runs parts while there are any. @param lock is held before and after
  void take_parts(std::unique_lock<std::mutex>& lock);

  std::mutex mutex_;
  std::condition_variable has_parts_, is_done_;
  const std::function<void(int)>* part_ = nullptr;
  int next_ = 0, count_ = 0, done_ = 0;
  bool ends_ = false;
  std::vector<std::thread> threads_;
};

SharedWork::Threads::Threads(int count) {
  const platform::SignalsBlocked blocked;
  threads_.reserve(static_cast<std::size_t>(count));
  try {
    for (int i = 0; i < count; ++i) threads_.emplace_back([this] { work(); });
  } catch (const std::system_error&) {
    // No more threads: those that there are, or the caller alone, do the same work.
  }
}

SharedWork::Threads::~Threads() {
  {
    const std::lock_guard lock(mutex_);
    ends_ = true;
  }
  has_parts_.notify_all();
  for (std::thread& thread : threads_) thread.join();
}

void SharedWork::Threads::take_parts(std::unique_lock<std::mutex>& lock) {
  while (next_ < count_) {
    const int index = next_++;
    lock.unlock();
    (*part_)(index);
    lock.lock();
    ++done_;
  }
}

void SharedWork::Threads::work() {
  std::unique_lock lock(mutex_);
  while (true) {
    has_parts_.wait(lock, [this] { return ends_ || next_ < count_; });
    if (ends_) return;
    take_parts(lock);
    if (done_ == count_) is_done_.notify_one();
  }
}

void SharedWork::Threads::run(int count, const std::function<void(int)>& part) {
  std::unique_lock lock(mutex_);
  part_ = &part;
  next_ = done_ = 0;
  count_ = count;
  has_parts_.notify_all();
  take_parts(lock);
  is_done_.wait(lock, [this] { return done_ == count_; });
}

SharedWork::SharedWork(int threads)
    : threads_(threads > 1 ? std::make_unique<Threads>(threads - 1) : nullptr),
      outer_(std::exchange(current, this)) {}

SharedWork::~SharedWork() {
  current = outer_;
}

void run_parts(int count, bool pays, const std::function<void(int)>& part) {
  SharedWork* const shared = std::exchange(current, nullptr);
  if (shared && shared->threads_ && pays && count > 1) {
    shared->threads_->run(count, part);
  } else {
    for (int i = 0; i < count; ++i) part(i);
  }
  current = shared;
}

int threads_for_products() {
  return std::clamp(platform::processors(), 1, 2);
}

}  // namespace aluframe::analysis

// Parts of work that several threads share.

#include "aluframe/analysis/shared_work.h"

#include <gtest/gtest.h>
#include <sched.h>

#include <array>
#include <atomic>
#include <csignal>
#include <latch>
#include <set>
#include <thread>
#include <vector>

namespace aluframe::analysis {
namespace {

/// How often each part ran.
std::vector<int> runs_of_parts(int count, bool pays) {
  std::vector<std::atomic<int>> runs(static_cast<std::size_t>(count));
  run_parts(count, pays, [&](int part) { ++runs[static_cast<std::size_t>(part)]; });
  return {runs.begin(), runs.end()};
}

/// Threads that two parts run in, each of which waits for the other to begin.
std::array<std::thread::id, 2> threads_of_two_parts() {
  std::array<std::thread::id, 2> threads;
  std::latch both(2);
  run_parts(2, true, [&](int part) {
    threads[static_cast<std::size_t>(part)] = std::this_thread::get_id();
    both.arrive_and_wait();
  });
  return threads;
}

TEST(SharedWork, RunsEveryPartOnce) {
  for (const int threads : {1, 2, 3}) {
    const SharedWork shared(threads);
    for (const int count : {0, 1, 2, 7, 1000}) {
      const std::vector<int> once(static_cast<std::size_t>(count), 1);
      EXPECT_EQ(runs_of_parts(count, true), once);
      EXPECT_EQ(runs_of_parts(count, false), once);
    }
  }
}

TEST(SharedWork, HasAnotherThreadAtWork) {
  const SharedWork shared(2);
  const auto threads = threads_of_two_parts();
  EXPECT_NE(threads[0], threads[1]);
}

TEST(SharedWork, LeavesWhatDoesNotPayToItsCaller) {
  const SharedWork shared(3);
  std::set<std::thread::id> threads;
  run_parts(100, false, [&](int) { threads.insert(std::this_thread::get_id()); });
  EXPECT_EQ(threads, std::set{std::this_thread::get_id()});
}

TEST(SharedWork, EndsWithItsScope) {
  {
    const SharedWork shared(3);
  }
  std::set<std::thread::id> threads;
  run_parts(100, true, [&](int) { threads.insert(std::this_thread::get_id()); });
  EXPECT_EQ(threads, std::set{std::this_thread::get_id()});
}

TEST(SharedWork, OfAnInnerScopeGivesWayToThatOfTheOuterOne) {
  const SharedWork outer(2);
  {
    const SharedWork inner(1);
    EXPECT_EQ(runs_of_parts(3, true), (std::vector<int>{1, 1, 1}));
  }
  const auto threads = threads_of_two_parts();
  EXPECT_NE(threads[0], threads[1]);
}

TEST(SharedWork, IsNotSharedAgainInsideAPart) {
  const SharedWork shared(2);
  std::atomic<int> strangers = 0;
  run_parts(8, true, [&](int) {
    const auto here = std::this_thread::get_id();
    run_parts(8, true, [&](int) { strangers += std::this_thread::get_id() != here; });
  });
  EXPECT_EQ(strangers, 0);
}

TEST(SharedWork, OfOneThreadIsNoneOfAnother) {
  const SharedWork shared(2);
  std::set<std::thread::id> threads;
  std::thread::id other;
  std::thread([&] {
    other = std::this_thread::get_id();
    run_parts(50, true, [&](int) { threads.insert(std::this_thread::get_id()); });
  }).join();
  EXPECT_EQ(threads, std::set{other});
}

TEST(SharedWork, RunsInSeveralThreadsSideBySide) {
  std::array<bool, 3> is_right{};
  std::vector<std::thread> callers;
  for (bool& right : is_right) {
    callers.emplace_back([&right] {
      const SharedWork shared(2);
      right = true;
      for (int i = 0; i < 200; ++i) right = right && runs_of_parts(5, true) == std::vector(5, 1);
    });
  }
  for (std::thread& caller : callers) caller.join();
  EXPECT_EQ(is_right, (std::array{true, true, true}));
}

TEST(SharedWork, LeavesSignalsToTheProgram) {
  const SharedWork shared(2);
  const auto caller = std::this_thread::get_id();
  std::latch both(2);
  std::atomic<bool> blocked_there = false, blocked_here = true;
  run_parts(2, true, [&](int) {
    both.arrive_and_wait();
    sigset_t signals;
    pthread_sigmask(SIG_SETMASK, nullptr, &signals);
    const bool is_blocked = sigismember(&signals, SIGTERM) == 1;
    (std::this_thread::get_id() == caller ? blocked_here : blocked_there) = is_blocked;
  });
  EXPECT_TRUE(blocked_there);
  EXPECT_FALSE(blocked_here);
}

TEST(ThreadsForProducts, AreNoMoreThanTheProcessMayUse) {
  cpu_set_t before, one;
  ASSERT_EQ(sched_getaffinity(0, sizeof before, &before), 0);
  CPU_ZERO(&one);
  for (int i = 0; i < CPU_SETSIZE && CPU_COUNT(&one) == 0; ++i) {
    if (CPU_ISSET(i, &before)) CPU_SET(i, &one);
  }
  ASSERT_EQ(sched_setaffinity(0, sizeof one, &one), 0);
  EXPECT_EQ(threads_for_products(), 1);
  ASSERT_EQ(sched_setaffinity(0, sizeof before, &before), 0);
  EXPECT_EQ(threads_for_products(), CPU_COUNT(&before) > 1 ? 2 : 1);
}

}  // namespace
}  // namespace aluframe::analysis

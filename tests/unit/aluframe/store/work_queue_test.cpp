#include "aluframe/store/work_queue.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <stdexcept>
#include <string>

namespace aluframe::store {
namespace {

using namespace std::chrono_literals;

ElementWork row(std::uint32_t element, std::size_t bytes) {
  return {std::make_shared<const ElementRow>(
              ElementRow{element, 1, 1, std::vector<std::byte>(bytes), std::nullopt}),
          std::nullopt};
}

RemarkRow remark(const std::string& kind) {
  RemarkRow row;
  row.kind = kind;
  return row;
}

std::exception_ptr some_error() {
  return std::make_exception_ptr(std::runtime_error("the disk is gone"));
}

TEST(WorkQueue, GivesWorkInTheOrderPushed) {
  WorkQueue queue(1000);
  queue.push(remark("C5"));
  queue.push(remark("C6"));
  EXPECT_EQ(std::get<RemarkRow>(*queue.front()).kind, "C5");
  queue.pop();
  EXPECT_EQ(std::get<RemarkRow>(*queue.front()).kind, "C6");
}

TEST(WorkQueue, AProducerWaitsWhileTheLimitIsReached) {
  WorkQueue queue(1500);
  queue.push(row(1, 1000));
  auto second = std::async(std::launch::async, [&] { queue.push(row(2, 1000)); });
  EXPECT_EQ(second.wait_for(50ms), std::future_status::timeout);
  queue.pop();
  second.get();
  EXPECT_NE(queue.find(2), nullptr);
}

TEST(WorkQueue, APieceLargerThanTheLimitIsTakenAlone) {
  WorkQueue queue(100);
  queue.push(row(1, 1000));
  EXPECT_NE(queue.find(1), nullptr);
}

TEST(WorkQueue, WorkCanBeFoundUntilItIsDone) {
  WorkQueue queue(10000);
  queue.push(row(1, 10));
  queue.front();
  EXPECT_NE(queue.find(1), nullptr);
  queue.pop();
  EXPECT_EQ(queue.find(1), nullptr);
}

TEST(WorkQueue, TheNewestRowOfAnElementIsFound) {
  WorkQueue queue(10000);
  queue.push(row(1, 10));
  queue.push(row(1, 20));
  EXPECT_EQ(queue.find(1)->data.size(), 20U);
}

TEST(WorkQueue, AClosedQueueGivesWhatIsLeftAndThenNothing) {
  WorkQueue queue(1000);
  queue.push(CommitMark());
  queue.close();
  EXPECT_NE(queue.front(), nullptr);
  queue.pop();
  EXPECT_EQ(queue.front(), nullptr);
}

TEST(WorkQueue, AnErrorWakesAProducerThatWaitsForRoom) {
  WorkQueue queue(1500);
  queue.push(row(1, 1000));
  auto second = std::async(std::launch::async, [&] { queue.push(row(2, 1000)); });
  EXPECT_EQ(second.wait_for(50ms), std::future_status::timeout);
  queue.fail(some_error());
  EXPECT_THROW(second.get(), std::runtime_error);
}

TEST(WorkQueue, AnErrorWakesAProducerThatWaitsForTheEnd) {
  WorkQueue queue(1500);
  queue.push(row(1, 1000));
  auto end = std::async(std::launch::async, [&] { queue.wait_until_done(); });
  EXPECT_EQ(end.wait_for(50ms), std::future_status::timeout);
  queue.fail(some_error());
  EXPECT_THROW(end.get(), std::runtime_error);
}

TEST(WorkQueue, AfterAnErrorEveryCallOfTheProducerThrowsIt) {
  WorkQueue queue(1000);
  queue.fail(some_error());
  EXPECT_THROW(queue.push(CommitMark()), std::runtime_error);
  EXPECT_THROW(queue.wait_until_done(), std::runtime_error);
  EXPECT_THROW(queue.rethrow_error(), std::runtime_error);
}

}  // namespace
}  // namespace aluframe::store

// Work beside the window's thread. Jobs wait at a gate, so that nothing hangs on their speed.

#include "apps/desktop/background_job.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QSemaphore>
#include <QTest>
#include <QThreadPool>
#include <memory>
#include <vector>

namespace gui_test {
namespace {

using aluframe::desktop::BackgroundJob;

class BackgroundJobTest : public testing::Test {
 protected:
  /// Outlives its jobs.
  ~BackgroundJobTest() override { let_all_end(); }

  std::vector<int> heard;
  QSemaphore begun, gate;
  std::unique_ptr<BackgroundJob> job = std::make_unique<BackgroundJob>();

  void start(int number) {
    job->start([this, number]() -> BackgroundJob::Done {
      begun.release();
      gate.acquire();
      return [this, number] { heard.push_back(number); };
    });
  }
  void let_all_end() {
    gate.release(100);
    QThreadPool::globalInstance()->waitForDone();
    QCoreApplication::processEvents();
  }
};

TEST_F(BackgroundJobTest, IsHeardOfWhenItHasEnded) {
  start(1);
  EXPECT_TRUE(job->is_running());
  begun.acquire();
  EXPECT_THAT(heard, testing::IsEmpty());
  let_all_end();
  EXPECT_THAT(heard, testing::ElementsAre(1));
  EXPECT_FALSE(job->is_running());
}

TEST_F(BackgroundJobTest, OnlyTheLastThatWasAskedForIsHeardOf) {
  start(1);
  begun.acquire();
  start(2);
  start(3);
  gate.release(100);
  ASSERT_TRUE(QTest::qWaitFor([this] { return !job->is_running(); }, 20000));
  EXPECT_THAT(heard, testing::ElementsAre(3));
  EXPECT_EQ(begun.available(), 1);  // the third; the second never began
}

TEST_F(BackgroundJobTest, WhatWasDroppedIsNotHeardOf) {
  start(1);
  begun.acquire();
  job->drop();
  EXPECT_FALSE(job->is_running());
  let_all_end();
  EXPECT_THAT(heard, testing::IsEmpty());
}

TEST_F(BackgroundJobTest, DestroyedWhileItWorksItIsNotHeardOf) {
  start(1);
  begun.acquire();
  job.reset();
  let_all_end();
  EXPECT_THAT(heard, testing::IsEmpty());
}

TEST_F(BackgroundJobTest, DestroyedBeforeItsEndIsTakenItIsNotHeardOf) {
  start(1);
  begun.acquire();
  gate.release();
  QThreadPool::globalInstance()->waitForDone();
  job.reset();
  QCoreApplication::processEvents();
  EXPECT_THAT(heard, testing::IsEmpty());
}

}  // namespace
}  // namespace gui_test

#include "apps/desktop/background_job.h"

#include <QMetaObject>
#include <QThreadPool>
#include <mutex>
#include <utility>

namespace aluframe::desktop {

/// Where a thread leaves what it has done, while there is somebody to take it.
struct BackgroundJob::Mailbox {
  std::mutex mutex;
  BackgroundJob* receiver = nullptr;
};

BackgroundJob::BackgroundJob() : mailbox_(std::make_shared<Mailbox>()) {
  mailbox_->receiver = this;
}

BackgroundJob::~BackgroundJob() {
  const std::lock_guard lock(mailbox_->mutex);
  mailbox_->receiver = nullptr;
}

void BackgroundJob::start(Work work) {
  ++turn_;
  is_wanted_ = true;
  if (is_working_) {
    next_ = std::move(work);
  } else {
    run(std::move(work));
  }
}

void BackgroundJob::drop() {
  ++turn_;
  next_ = nullptr;
  is_wanted_ = false;
}

void BackgroundJob::run(Work work) {
  is_working_ = true;
  QThreadPool::globalInstance()->start([mailbox = mailbox_, turn = turn_, work = std::move(work)] {
    Done done = work();
    const std::lock_guard lock(mailbox->mutex);
    BackgroundJob* receiver = mailbox->receiver;
    if (receiver == nullptr) return;
    // Falls away when the receiver is destroyed before it comes.
    QMetaObject::invokeMethod(
        receiver, [receiver, turn, done = std::move(done)] { receiver->finish(turn, done); },
        Qt::QueuedConnection);
  });
}

void BackgroundJob::finish(std::uint64_t turn, const Done& done) {
  is_working_ = false;
  if (next_) {
    run(std::exchange(next_, nullptr));
  } else if (turn == turn_) {
    is_wanted_ = false;
    done();
  }
}

}  // namespace aluframe::desktop

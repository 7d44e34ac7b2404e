#include "aluframe/store/work_queue.h"

#include <ranges>
#include <utility>

namespace aluframe::store {

namespace {

/// Bytes that a piece of work occupies, roughly for what is not packed.
std::size_t size_of(const Work& work) {
  const auto* element = std::get_if<ElementWork>(&work);
  if (element == nullptr) return sizeof(Work);
  std::size_t size = sizeof(Work);
  if (element->row) size += sizeof(ElementRow) + element->row->data.size();
  if (!element->notes) return size;
  for (const NotChecked& item : element->notes->not_checked) {
    size += sizeof(item) + item.reason.size();
  }
  return size;
}

}  // namespace

void WorkQueue::rethrow_error_locked() {
  if (error_) std::rethrow_exception(error_);
}

void WorkQueue::rethrow_error() {
  const std::lock_guard lock(mutex_);
  rethrow_error_locked();
}

void WorkQueue::push(Work work) {
  const std::size_t size = size_of(work);
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [&] { return error_ || work_.empty() || bytes_ + size <= limit_; });
  rethrow_error_locked();
  work_.push_back(std::move(work));
  bytes_ += size;
  changed_.notify_all();
}

void WorkQueue::wait_until_done() {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [&] { return error_ || work_.empty(); });
  rethrow_error_locked();
}

void WorkQueue::close() {
  const std::lock_guard lock(mutex_);
  closed_ = true;
  changed_.notify_all();
}

std::shared_ptr<const ElementRow> WorkQueue::find(std::uint32_t element) {
  const std::lock_guard lock(mutex_);
  for (const Work& work : std::views::reverse(work_)) {
    const auto* found = std::get_if<ElementWork>(&work);
    if (found != nullptr && found->row && found->row->element == element) return found->row;
  }
  return nullptr;
}

const Work* WorkQueue::front() {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [&] { return closed_ || !work_.empty(); });
  return work_.empty() ? nullptr : &work_.front();
}

void WorkQueue::pop() {
  const std::lock_guard lock(mutex_);
  bytes_ -= size_of(work_.front());
  work_.pop_front();
  changed_.notify_all();
}

void WorkQueue::fail(std::exception_ptr error) {
  const std::lock_guard lock(mutex_);
  error_ = std::move(error);
  work_.clear();
  bytes_ = 0;
  changed_.notify_all();
}

}  // namespace aluframe::store

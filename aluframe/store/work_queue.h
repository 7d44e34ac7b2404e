#pragma once

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <exception>
#include <memory>
#include <mutex>
#include <optional>
#include <variant>

#include "aluframe/store/element_row.h"
#include "aluframe/store/result_file.h"

namespace aluframe::store {

/// Commit what was written so far.
struct CommitMark {};

/// An element as far as it is to be written. Rows are shared so that one can still be read while it
/// is being written.
struct ElementWork {
  std::shared_ptr<const ElementRow> row;  ///< null: it has no records
  std::optional<ElementNotes> notes;      ///< nothing: the run is not through with it
};

using Work =
    std::variant<ElementWork, RemarkRow, BucklingRow, DisplacementRow, CommitMark, RunState>;

/// Hands work from one producer to one consumer, in order, and the consumer's first error back.
///
/// Holds a limited number of bytes: a producer that is faster than the disk waits. A piece of work
/// larger than the limit is taken when nothing else waits. No call waits for a side that has given
/// up: `fail` wakes the producer, `close` the consumer.
class WorkQueue {
 public:
  explicit WorkQueue(std::size_t limit_bytes) : limit_(limit_bytes) {}

  /// Producer: waits for room. Throws the consumer's error if it has failed.
  void push(Work work);
  /// Producer: waits until all work is done. Throws the consumer's error if it has failed.
  void wait_until_done();
  /// Producer: no more work will come.
  void close();
  /// Producer: the row of an element that is not written yet, the newest of several, or null.
  std::shared_ptr<const ElementRow> find(std::uint32_t element);
  /// Throws the consumer's error if it has failed.
  void rethrow_error();

  /// Consumer: waits for work, which stays in the queue until `pop`. Null: closed and empty.
  const Work* front();
  /// Consumer: the work at the front is done.
  void pop();
  /// Consumer: gives up; what waits is dropped, and every call of the producer throws `error`.
  void fail(std::exception_ptr error);

 private:
  void rethrow_error_locked();

  const std::size_t limit_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Work> work_;
  std::size_t bytes_ = 0;
  bool closed_ = false;
  std::exception_ptr error_;
};

}  // namespace aluframe::store

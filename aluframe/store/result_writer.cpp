#include "aluframe/store/result_writer.h"

#include <exception>
#include <memory>
#include <utility>
#include <variant>

#include "aluframe/store/database.h"

namespace aluframe::store {

namespace {

/// Rows that may wait for the disk.
constexpr std::size_t queue_bytes = 16U << 20;

struct WriteTo {
  RowWriter& file;

  void operator()(const ElementWork& work) const { file.add(work.row.get(), work.notes); }
  void operator()(const RemarkRow& row) const { file.add(row); }
  void operator()(const BucklingRow& row) const { file.add(row); }
  void operator()(const DisplacementRow& row) const { file.add(row); }
  void operator()(const CommitMark&) const { file.commit(); }
  void operator()(RunState state) const { file.finish(state); }
};

/// Runs `action` where nobody can be told why it failed.
template <class Action>
bool succeeds(Action action) {
  try {
    action();
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace

QueuedResultWriter::QueuedResultWriter(std::filesystem::path path,
                                       std::unique_ptr<files::Publication> file,
                                       Unfinished unfinished, const WrittenBefore& before)
    : path_(std::move(path)),
      publication_(std::move(file)),
      unfinished_(unfinished),
      records_(before.records),
      closed_bytes_(before.packed_bytes),
      queue_(queue_bytes),
      file_(std::make_unique<RowWriter>(publication_->path())) {
  thread_ = std::thread([this] { write_queued_work(); });
}

QueuedResultWriter::~QueuedResultWriter() {
  // When it fails the run stays `running`, which tells that it ended early.
  succeeds([this] {
    if (thread_.joinable()) queue_open_element();
  });
  end_thread();
  file_.reset();
  leave_file();
}

void QueuedResultWriter::leave_file() {
  if (publication_ == nullptr) return;
  if (unfinished_ == Unfinished::is_kept && records_ > 0) {
    publication_->keep();
  } else {
    publication_->discard();
    succeeds([this] { remove_side_files(publication_->path()); });
  }
  publication_.reset();
}

void QueuedResultWriter::write_queued_work() {
  try {
    about_file(path_, [this] { write_all(); });
  } catch (...) {
    queue_.fail(std::current_exception());
  }
}

void QueuedResultWriter::write_all() {
  while (const Work* work = queue_.front()) {
    write_to_file(*work);
    queue_.pop();
  }
  write_to_file(CommitMark());
}

void QueuedResultWriter::write_to_file(const Work& work) {
  const std::lock_guard lock(file_mutex_);
  std::visit(WriteTo{*file_}, work);
}

void QueuedResultWriter::queue_open_element(std::optional<ElementNotes> notes) {
  if (!open_element_) return;
  queue_.push(
      ElementWork{std::make_shared<const ElementRow>(open_element_->row()), std::move(notes)});
}

void QueuedResultWriter::write(std::uint32_t element, const T_RALU_D& record,
                               std::uint32_t combination, int min_side) {
  if (!thread_.joinable()) return;
  queue_.rethrow_error();
  const RecordKey key = storable_key(combination, min_side);
  if (open_element_ && open_element_->element() != element) end_open_element();
  if (!open_element_) open_element_.emplace(element, record.nMembType);
  open_element_->add(record, key);
  ++records_;
}

void QueuedResultWriter::end_element(const ElementNotes& notes) {
  if (!thread_.joinable()) return;
  const bool has_records = open_element_ && open_element_->element() == notes.element;
  end_open_element(has_records ? std::optional(notes) : std::nullopt);
  if (!has_records) queue_.push(ElementWork{nullptr, notes});
}

void QueuedResultWriter::end_open_element(std::optional<ElementNotes> notes) {
  if (!open_element_) return;
  queue_open_element(std::move(notes));
  closed_bytes_ += open_element_->size();
  open_element_.reset();
}

bool QueuedResultWriter::read(std::uint32_t element, std::uint32_t combination, int min_side,
                              T_RALU_D& out) {
  if (!thread_.joinable()) return false;
  queue_.rethrow_error();
  const std::optional<T_RALU_D> found = find(element, {combination, min_side});
  if (found) out = *found;
  return found.has_value();
}

std::optional<T_RALU_D> QueuedResultWriter::find(std::uint32_t element, const RecordKey& key) {
  if (open_element_ && open_element_->element() == element) {
    return ElementRowView(open_element_->row().data).find(key);
  }
  if (const std::shared_ptr<const ElementRow> row = queue_.find(element)) {
    return ElementRowView(row->data).find(key);
  }
  const std::lock_guard lock(file_mutex_);
  return about_file(path_, [&] { return file_->find(element, key); });
}

void QueuedResultWriter::add_remark(const RemarkRow& row) {
  if (thread_.joinable()) queue_.push(row);
}

void QueuedResultWriter::add_buckling(const BucklingRow& row) {
  if (thread_.joinable()) queue_.push(row);
}

void QueuedResultWriter::add_displacement(const DisplacementRow& row) {
  if (thread_.joinable()) queue_.push(row);
}

void QueuedResultWriter::flush() {
  if (!thread_.joinable()) return;
  queue_open_element();
  queue_.push(CommitMark());
  queue_.wait_until_done();
}

void QueuedResultWriter::finish(RunState state) {
  if (!thread_.joinable()) return;
  try {
    queue_open_element();
    queue_.push(state);
    queue_.wait_until_done();
  } catch (...) {
    end_thread();
    // Its own error does not matter: the first one is what the caller is told.
    succeeds([this] { file_->abandon(); });
    file_.reset();
    leave_file();
    throw;
  }
  end_thread();
  file_.reset();
  if (state == RunState::complete || unfinished_ == Unfinished::is_discarded) {
    about_file(path_, [this] { publish_results(*publication_); });
    publication_.reset();
  }
  leave_file();
}

void QueuedResultWriter::end_thread() {
  if (!thread_.joinable()) return;
  queue_.close();
  thread_.join();
}

std::uint64_t QueuedResultWriter::packed_bytes() const {
  return closed_bytes_ + (open_element_ ? open_element_->size() : 0);
}

}  // namespace aluframe::store

#pragma once

#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

#include "aluframe/files/publication.h"
#include "aluframe/store/element_row.h"
#include "aluframe/store/result_file.h"
#include "aluframe/store/row_writer.h"
#include "aluframe/store/work_queue.h"

namespace aluframe::store {

/// What becomes of the file of a run that did not end as it should.
enum class Unfinished { is_kept, is_discarded };

/// Records that a file holds when its writer begins.
struct WrittenBefore {
  std::uint64_t records = 0;
  std::uint64_t packed_bytes = 0;
};

/// What this program did not write it does not overwrite.
/// @throws std::runtime_error when something else than a result file stands there, or a
/// write-protected
///   one
void require_replaceable_results(const std::filesystem::path& path);

/// Puts a written and closed result file in the place of the earlier one, which is to be one too.
void publish_results(files::Publication& file);

/// Packs records on the caller's thread and writes them on one of its own.
///
/// After an error of the writing thread every call throws it; `finish` then notes the run as failed
/// if the file can still take that. Destroyed without `finish`, what was accepted is still written
/// to a file that is kept, and the run stays `running`; an error then has no way out but that
/// state. One caller's thread.
class QueuedResultWriter : public ResultWriter {
 public:
  /// `file` is a laid-out result file that is to be published as `path`.
  /// What was written before counts.
  QueuedResultWriter(std::filesystem::path path, std::unique_ptr<files::Publication> file,
                     Unfinished unfinished, const WrittenBefore& before = {});
  ~QueuedResultWriter() override;
  QueuedResultWriter(const QueuedResultWriter&) = delete;
  QueuedResultWriter& operator=(const QueuedResultWriter&) = delete;

  void write(std::uint32_t element, const T_RALU_D& record, std::uint32_t combination,
             int min_side) override;
  bool read(std::uint32_t element, std::uint32_t combination, int min_side, T_RALU_D& out) override;
  void end_element(const ElementNotes& notes) override;
  void add_remark(const RemarkRow& row) override;
  void add_buckling(const BucklingRow& row) override;
  void add_displacement(const DisplacementRow& row) override;
  void flush() override;
  void finish(RunState state) override;
  std::uint64_t record_count() const override { return records_; }
  std::uint64_t packed_bytes() const override;

 private:
  void write_queued_work();
  void write_to_file(const Work& work);
  void write_all();
  /// Hands the records of the element that is being packed to the writing thread, with what else is
  /// stored of it once the run is through with it.
  void queue_open_element(std::optional<ElementNotes> notes = {});
  void end_open_element(std::optional<ElementNotes> notes = {});
  std::optional<T_RALU_D> find(std::uint32_t element, const RecordKey& key);
  void end_thread();
  /// Leaves the closed file, as far as something of it is worth it.
  void leave_file();

  std::filesystem::path path_;
  std::unique_ptr<files::Publication> publication_;
  Unfinished unfinished_;
  std::optional<ElementPacker> open_element_;  ///< its end is still to come
  std::uint64_t records_;
  std::uint64_t closed_bytes_;
  WorkQueue queue_;
  std::mutex file_mutex_;  ///< guards `file_`
  std::unique_ptr<RowWriter> file_;
  std::thread thread_;
};

}  // namespace aluframe::store

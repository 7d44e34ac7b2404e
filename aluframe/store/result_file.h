#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "aluframe/files/file_lock.h"
#include "aluframe/store/element_notes.h"
#include "host/tz_db/ralu.h"

namespace aluframe::store {

/// How a run ended. A file whose run is `running` belongs to a run that is going on or was killed.
enum class RunState { running, complete, cancelled, failed };

/// A combination as the result file lists it.
struct CombinationRow {
  std::uint32_t number = 0;
  std::string name;
  bool two_sides = false;
  bool seismic = false;
  /// The envelope that it is a state of; nothing: a combination of the model itself.
  std::optional<std::uint32_t> state_of = std::nullopt;
};

/// A combination of the run that stands for one state of an envelope. It may be a combination of
/// the model, or a state of another envelope.
struct EnvelopeState {
  std::uint32_t envelope = 0;
  std::uint32_t combination = 0;

  friend bool operator==(const EnvelopeState&, const EnvelopeState&) = default;
};

/// A setting that a run went by.
struct SettingRow {
  std::string key;     ///< "safety_class"
  std::string value;   ///< "2 (gamma0 1.0)"
  std::string origin;  ///< "given", "default", ...

  friend bool operator==(const SettingRow&, const SettingRow&) = default;
};

/// How a run was made: what is needed to make it again, and to say what its results are of.
struct RunSetup {
  /// Where forces came from: "given", "linear" or "second-order" analysis; empty: unknown.
  std::string analysis = {};
  bool second_order_asked = false;  ///< second order on request, not by the model
  /// The model's file, seen from the folder of the result file; empty: unknown.
  std::string model_file = {};
  /// The file of forces in place of the model's, seen from the folder of the result file; empty:
  /// none.
  std::string forces_file = {};
  std::vector<SettingRow> settings = {};
  /// Tells the forces that were checked apart, those that an analysis has computed included; empty:
  /// unknown.
  std::string forces_digest = {};
};

/// What the result file says about its run.
struct RunInfo {
  std::string model_title;
  std::string code;     ///< "GB 50429-2007"
  std::string program;  ///< name and version of the program
  std::vector<CombinationRow> combinations;
  std::string model_digest;  ///< tells states of a model and its forces apart; empty: unknown
  /// All states of the envelopes that are checked by them.
  std::vector<EnvelopeState> envelope_states = {};
  RunSetup setup = {};
  /// What the model has, also where the run was limited to a part of it.
  std::uint32_t model_elements = 0;
  std::uint32_t model_combinations = 0;  ///< for design; an envelope once
  /// What a whole check goes through one by one: combinations, or in their place their states.
  std::uint32_t model_states = 0;
  std::string build = {};     ///< tells builds of one version apart; empty: unknown
  std::string elements = {};  ///< that the run goes through, "1-3, 7"
};

/// What could make results of the run `stored` others than those of `wanted`, be it in the last
/// digit: "elements: found 1-3, wanted 1-4". Nothing when everything that a run goes by is the
/// same.
std::optional<std::string> anything_different(const RunInfo& stored, const RunInfo& wanted);

/// Why results of the run `stored` are not those of a run like `wanted`: of another code or model,
/// a combination of both has changed its name, sides or seismic type, or the model or its forces
/// have changed otherwise. Nothing when they may be.
std::optional<std::string> difference_of_runs(const RunInfo& stored, const RunInfo& wanted);

/// What an engineer is owed beside the ratios of a run.
struct RemarkRow {
  std::string kind;      ///< a rule of docs/behaviour.md or a kind of docs/warnings.md
  std::string elements;  ///< "1-3, 7"; empty: it is about no element
  std::string text;
  std::optional<double> ratio;                        ///< worst ratio that a second opinion gives
  std::optional<std::uint32_t> element, combination;  ///< where that ratio stands

  friend bool operator==(const RemarkRow&, const RemarkRow&) = default;
};

/// How far the whole frame is from buckling under the loads of a combination.
struct BucklingRow {
  std::uint32_t combination = 0;  ///< of the model; an envelope stands for its states
  std::string name = {};          ///< of the combination
  std::optional<double> factor;   ///< of the loads; nothing: no compression, or `unknown` says why
  std::string shape = {};         ///< "nodes 2-3 move along X"
  std::string elements = {};      ///< that buckle, "1-3, 7"
  std::string unknown =
      {};  ///< why there is no factor, of all or of some states; empty: it is known

  friend bool operator==(const BucklingRow&, const BucklingRow&) = default;
};

/// What is displaced: a member between its ends, a node against one below it, a node.
enum class DisplacementKind { deflection, drift, node };

/// "deflection", "drift", "displacement"
std::string_view name_of(DisplacementKind kind);

/// The largest displacement of a part of the frame over the combinations for serviceability, and
/// what it is limited to. Lengths in mm.
struct DisplacementRow {
  DisplacementKind kind = DisplacementKind::deflection;
  std::optional<std::uint32_t> member = {};  ///< of a deflection; nothing: an element alone
  std::string elements = {};                 ///< of a deflection, "1-3, 7"
  std::string name = {};                     ///< of the member or the limit
  /// Of a deflection the ends of the span, of a cantilever the held one first; of a drift the lower
  /// and the upper one; of a node itself.
  std::uint32_t first_node = 0;
  std::optional<std::uint32_t> second_node = {};
  bool is_cantilever = false;
  /// Of a deflection "y" or "z" of the elements; else "X", "Y", "Z", "horizontal" or "total".
  std::string direction = {};
  std::optional<double> length = {};              ///< of the span, or the height of a drift
  std::optional<double> value = {};               ///< signed along an axis; nothing: unknown
  std::optional<double> limit = {};               ///< nothing: it is stated and not judged
  std::optional<std::uint32_t> combination = {};  ///< that causes it; nothing: none moves it
  std::optional<std::uint32_t> element = {};      ///< of a deflection: where it is reached
  std::optional<double> from_start = {};          ///< from the start of that element
  std::optional<double> absolute = {};  ///< of a deflection: largest against the unloaded frame

  friend bool operator==(const DisplacementRow&, const DisplacementRow&) = default;
};

/// Where the run of a result file writes until it is complete, and what it leaves when it ends
/// early: "frame.aluresult.partial".
std::filesystem::path partial_path_of(const std::filesystem::path& result_file);

class ResultWriter;

/// A partial file that is gone on with.
struct TakenUp {
  std::unique_ptr<ResultWriter> writer;
  std::vector<FinishedElement> elements;  ///< that need no check any more, in the order of the run
};

/// What an earlier run has left cannot be taken up.
class CannotTakeUp : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Writes the result file of one run.
///
/// `create` writes beside the result file, in the partial one (`partial_path_of`), which `finish`
/// puts in its place in one step when the run is complete; until then earlier results stay. A run
/// that ends in another way leaves the partial file, of a killed one with what was last committed
/// and the state `running`, unless it holds no record; the next run removes it, or takes it up
/// (`take_up`). The path is locked from `create`, `take_up` or `reopen` until the writer is
/// destroyed or finished.
///
/// Records are packed on the caller's thread and written by a second one through a bounded queue,
/// in transactions, so that checking and writing overlap. The first error of the writer is thrown
/// by the next call. The same records in the same order give the same bytes.
///
///     const auto writer = ResultWriter::create("frame.aluresult", info);
///     writer->write(element, record, combination, min_side);  // for every combination
///     writer->write(element, governing, 0, 0);
///     writer->end_element(notes);
///     writer->finish(RunState::complete);
///
/// All calls come from one thread.
class ResultWriter {
 public:
  /// @throws files::FileBusy with the path when another run is writing it; std::runtime_error with
  ///   the path and the reason when the file cannot be created or something else than a result file
  ///   stands there
  static std::unique_ptr<ResultWriter> create(const std::filesystem::path& path,
                                              const RunInfo& info);
  /// The same, after another run that is writing the file has ended.
  static std::unique_ptr<ResultWriter> wait_and_create(const std::filesystem::path& path,
                                                       const RunInfo& info);
  /// Begins with a copy of the existing result file of a run, to add elements to it or to replace
  /// some, which `finish` puts in its place; destroyed without, nothing has changed. Combinations
  /// of `info` that the file lacks are added.
  /// @throws std::runtime_error with the path and the reason when it is missing, no result file, of
  ///   another version or a different run (`difference_of_runs`), write-protected, or being written
  ///   by another run
  static std::unique_ptr<ResultWriter> reopen(const std::filesystem::path& path,
                                              const RunInfo& info);
  /// Goes on with the partial file that a run like this one has left: what belongs to the elements
  /// that it was through with stays, in the order of the run; everything else of it is dropped. At
  /// least one element is left to be checked.
  /// @param elements of the run, in their order
  /// @throws CannotTakeUp when there is no such file, it is of a run that could have other results,
  ///   or damaged; files::FileBusy when another run is writing it; std::runtime_error; the partial
  ///   file then is as it was
  static TakenUp take_up(const std::filesystem::path& path, const RunInfo& info,
                         const std::vector<std::uint32_t>& elements,
                         files::WhenBusy when_busy = files::WhenBusy::refuse);
  virtual ~ResultWriter() = default;

  /// Adds one element's record of a combination; combination 0 is the governing record, the last.
  /// Records of one element come together; an element that comes again replaces its earlier
  /// records. The governing items of a combination's record are those that `MakeCompItem`
  /// makes; they are made again on reading.
  /// @throws std::invalid_argument for a combination beyond 2^27 - 1 or a side other than 0 and 1
  virtual void write(std::uint32_t element, const T_RALU_D& record, std::uint32_t combination,
                     int min_side) = 0;
  /// A record written in this run, also one that is still in the queue.
  virtual bool read(std::uint32_t element, std::uint32_t combination, int min_side,
                    T_RALU_D& out) = 0;
  /// The run is through with an element, the last one written or one without records: what is
  /// stored of it is committed together or not at all, and only then taken up by another run.
  virtual void end_element(const ElementNotes& notes) = 0;
  virtual void add_remark(const RemarkRow& row) = 0;
  virtual void add_buckling(const BucklingRow& row) = 0;
  virtual void add_displacement(const DisplacementRow& row) = 0;
  /// Waits until everything is committed. @throws std::runtime_error when writing failed
  virtual void flush() = 0;
  /// Flushes, waits until the disk has everything, notes how the run ended, closes the file and,
  /// when the run is complete or was reopened, puts it in its place. Later calls do nothing.
  /// @throws std::runtime_error when writing failed; the run is then noted as failed if the file
  /// can still take that
  virtual void finish(RunState state) = 0;

  /// Records accepted, and bytes of packed records, so far.
  virtual std::uint64_t record_count() const = 0;
  virtual std::uint64_t packed_bytes() const = 0;
};

/// A record with the combination it was stored under (0, 0: the governing record).
struct StoredRecord {
  std::uint32_t combination = 0;
  int min_side = 0;
  T_RALU_D record;
};

/// One row of the governing table.
struct GoverningRow {
  std::uint32_t element = 0;
  int member_type = 0;
  int item = 0;  ///< RALU_ITEM_TYPE
  T_RALU_ITEM governing;
};

/// Reads a result file, also one of an unfinished run.
class ResultReader {
 public:
  /// @throws std::runtime_error with path and reason: missing, no result file, other version, or
  ///   damaged: the content of a complete run is compared with the digest that it was sealed with
  static std::unique_ptr<ResultReader> open(const std::filesystem::path& path);
  virtual ~ResultReader() = default;

  virtual RunState state() const = 0;
  virtual const RunInfo& info() const = 0;
  virtual std::vector<std::uint32_t> elements() = 0;
  /// Governing checks of all elements, by element number in the order written, then item.
  virtual std::vector<GoverningRow> governing() = 0;
  /// One record; combination 0 is the governing one.
  virtual std::optional<T_RALU_D> read(std::uint32_t element, std::uint32_t combination,
                                       int min_side) = 0;
  /// All records of an element, in the order written, the governing one last.
  virtual std::vector<StoredRecord> read_all(std::uint32_t element) = 0;
  virtual std::vector<NotChecked> not_checked() = 0;
  /// Second opinions, in the order written; empty when the run went without.
  virtual std::vector<SafeRow> safe() = 0;
  virtual std::vector<RemarkRow> remarks() = 0;
  /// In the order of the combinations; empty when the run went without.
  virtual std::vector<BucklingRow> buckling() = 0;
  /// In the order of the run; empty where the model has no combination for serviceability.
  virtual std::vector<DisplacementRow> displacements() = 0;
};

}  // namespace aluframe::store

#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>

#include "aluframe/model/combinations.h"
#include "aluframe/model/model.h"
#include "aluframe/services/run_monitor.h"
#include "aluframe/services/run_observer.h"
#include "aluframe/services/unit_scale.h"
#include "aluframe/store/result_file.h"
#include "host/tz_db/services.h"

namespace aluframe::services {

/// Starts the result file of a run, as `store::ResultWriter::create` does.
using ResultWriterFactory = std::function<std::unique_ptr<store::ResultWriter>(
    const std::filesystem::path&, const store::RunInfo&)>;

/// Element forces from the model and results into the result file, in the current units.
///
/// Failures of the result file are noted with the monitor and thrown on, so that the module ends
/// its run.
class DesignManager : public CPostCtrl, public CAluDesignMgr {
 public:
  DesignManager(const model::Model& model, const model::CombinationEvaluator& evaluator,
                const UnitScale& scale, RunMonitor& monitor, std::filesystem::path result_path,
                store::RunInfo info, ResultWriterFactory create_writer,
                RunObserver* observer = nullptr);

  UINT GetOriginElem(int index) const override;
  CAluDesignMgr& AluDgnMgr() override { return *this; }

  int CreateDesignResultFile() override;
  int WriteDesignResult(UINT elem, const T_RALU_D& record, UINT lcomb, int minSide,
                        int option) override;
  int ReadDesignResult(UINT elem, T_RALU_D& record, UINT lcomb, int minSide, int option) override;
  void CheckedAgain(UINT elem, int type, const T_RALU_ITEM& stored,
                    const T_RALU_RLT& again) override;
  int CheckDesignFile() override;
  void SetDesignFlag(int flag) override { design_flag_ = flag; }
  int GetElementForce(UINT elem, UINT lcomb, T_ALU_FORCE_D& out, bool minSide) override;
  int GetStld(UINT number, T_STLD_D& out) const override;

  /// Reads results from the result file of an earlier run, if there is one; records that are
  /// written are added to it. @throws std::runtime_error with the path and the reason when it
  /// cannot be read or holds those of a different run
  void use_stored_results();
  /// Ends what `use_stored_results` began; what was added is completed by `before_finish`, if any.
  /// @throws std::runtime_error
  void close_stored_results(const std::function<void(store::ResultWriter&)>& before_finish);
  /// Elements whose results were added to the stored ones, by number.
  const std::set<std::uint32_t>& added() const { return added_; }

  /// Goes on with what an earlier run has left: its elements are counted, and their records are not
  /// written again.
  void take_up(store::TakenUp earlier);
  /// The first element is about to be checked.
  void begin_elements();
  /// Of the elements that are checked `done` are finished.
  void set_done(std::size_t done);

  /// Nonzero once a run has finished with a consistent result file.
  int design_flag() const { return design_flag_; }
  /// What the result file says about its run.
  const store::RunInfo& info() const { return info_; }
  /// The run's result file, or null when none was started.
  store::ResultWriter* writer() { return writer_.get(); }

 private:
  /// Runs `action`; what it throws is noted and thrown on.
  template <class Action>
  auto noting_failure(Action action);
  /// Opens the stored results for adding to them, or starts a result file.
  void start_adding();
  /// Stores what is to be said of an element that the run is through with.
  void end_element(const store::ElementNotes& notes);
  std::optional<T_RALU_D> stored_record(UINT elem, UINT lcomb, int minSide);

  const model::Model& model_;
  const model::CombinationEvaluator& evaluator_;
  const UnitScale& scale_;
  RunMonitor& monitor_;
  std::filesystem::path result_path_;
  store::RunInfo info_;
  ResultWriterFactory create_writer_;
  RunObserver* observer_;
  std::unique_ptr<store::ResultWriter> writer_;
  std::unique_ptr<store::ResultWriter> taken_up_;  ///< until the run starts its result file
  bool uses_stored_ = false;
  std::set<std::uint32_t> added_;
  store::RunState stored_state_ = store::RunState::complete;
  std::unique_ptr<store::ResultReader> stored_;  ///< until something is added
  int design_flag_ = 0;
};

}  // namespace aluframe::services

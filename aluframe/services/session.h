#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "aluframe/members/length_factors.h"
#include "aluframe/model/combinations.h"
#include "aluframe/services/dialog_texts.h"
#include "aluframe/services/document.h"
#include "aluframe/services/restrained_elements.h"
#include "aluframe/services/run_monitor.h"
#include "aluframe/services/run_observer.h"
#include "host/host_services.h"

namespace aluframe::services {

/// Who watches a run: draws its progress and may stop it.
class ProgressListener {
 public:
  virtual ~ProgressListener() = default;
  virtual void started(const std::string& text) = 0;
  /// @return true to stop the run
  virtual bool advanced(int done, int total) = 0;
  virtual void ended() = 0;
};

struct SessionOptions {
  std::filesystem::path result_path;
  std::vector<model::Number> selected;              ///< elements to check; empty: all
  std::set<model::Number> combinations;             ///< combinations to check; empty: all
  ProgressListener* progress = nullptr;             ///< null: nobody watches
  std::function<void(const std::string&)> message;  ///< history and status lines, UTF-8
  /// Units of what the report prints and the dialogs show; nothing: the model's own.
  std::optional<T_UNIT_INDEX> units;
  /// Shows a text file (path, title); nothing: it is not shown.
  std::function<bool(const std::filesystem::path&, const std::string&)> open_text;
  /// The session's model in place of the one that it is made with, when its settings and materials
  /// may be changed; null: they may not.
  model::Model* editable = nullptr;
  /// Draws the module's dialogs; null: nobody can see one.
  host::Toolkit* toolkit = nullptr;
  /// Shows a message box (UTF-8 text, type as `AfxMessageBox` takes it) and returns the button that
  /// closed it; nothing: nobody can answer one, and its text goes to `message`.
  std::function<int(const std::string&, UINT)> message_box;
  /// Digest of the model and its forces, which goes into the result file; empty: none.
  std::string model_digest;
  /// How the run was made, which goes into the result file too.
  store::RunSetup setup;
  /// Follows the run; null: nobody does.
  RunObserver* observer = nullptr;
  /// The model's, for a caller that has them already; nothing: they are computed when asked for.
  std::optional<std::vector<members::SegmentFactors>> length_factors;
  /// What elements have by the restraints of their members.
  RestrainedElements restrained;
  /// Adds to the result file what stands beside the records, before the run ends; nothing: nothing.
  std::function<void(store::ResultWriter&)> before_finish;
  /// What a run does when all elements are checked; false: the user has stopped it there.
  std::function<bool()> after_elements = {};
  /// What a run's records are written with.
  ResultWriterFactory create_writer = store::ResultWriter::create;
  /// Goes on with what an earlier run has left, as `store::ResultWriter::take_up` does; nothing:
  /// the run begins anew.
  std::function<store::TakenUp(const std::filesystem::path&, const store::RunInfo&,
                               const std::vector<std::uint32_t>& elements)>
      take_up = {};
};

/// Our host: everything that the design module calls, over one model. Bind it for a run.
///
///     SessionOptions options;
///     options.result_path = "frame.aluresult";
///     Session session(model, options);
///     host::Bind(session);
class Session : public host::HostServices {
 public:
  /// `model`, or the one in the options that may be changed, must outlive the session.
  Session(const model::Model& model, SessionOptions options);

  CDBDoc* DocPoint() override { return &document_; }
  CDgnDynData* DgnDynData() override { return &design_data_; }
  std::unique_ptr<CKFactor> CreateKFactor() override;
  std::unique_ptr<CDgnProgressDlg> CreateProgressDlg() override;
  CString MessageText(const CString& key) override;
  int ShowMessageBox(const CString& text, UINT type) override;
  void DisplayAnalString(const CString& text, int option) override;
  void SaveHistory(const CString& text, int option, void* reserved) override;
  CString FileNameWithNewExt(const CString& extension) override;
  int RunTextEditor(const CString& path, const CString& title) override;
  void AluCodeNames(CArray<CString>& out) override { list_design_codes(out); }
  CString ShownCodeName(const CString& internal) override { return shown_code_name(internal); }
  CString InternalCodeName(const CString& shown) override { return internal_code_name(shown); }
  host::Toolkit* DialogToolkit() override {
    return options_.toolkit != nullptr ? &toolkit_ : nullptr;
  }
  int IsReleaseAssert() override { return 1; }
  void ReleaseAssertion(const wchar_t* source, int line) override;

  /// Before the run: goes on with what an earlier one has left, if the options ask for it.
  /// @throws what the option throws
  void take_up();

  RunMonitor& monitor() { return monitor_; }
  DesignManager& manager() { return manager_; }
  const SessionOptions& options() const { return options_; }
  /// What the dialogs changed.
  const ModelEditor& editor() const { return document_.editor(); }
  /// True once the listener has asked to stop.
  bool was_cancelled() const { return cancelled_; }
  /// True when the module had something to say to the user.
  bool had_message() const { return had_message_; }

 private:
  SessionOptions options_;
  const model::Model& model_;
  UnitScale scale_;
  model::CombinationEvaluator evaluator_;
  RunMonitor monitor_;
  Attributes attributes_;
  DesignTool tool_;
  DesignManager manager_;
  Document document_;
  DesignData design_data_;
  TranslatingToolkit toolkit_;
  bool cancelled_ = false;
  bool had_message_ = false;
};

}  // namespace aluframe::services

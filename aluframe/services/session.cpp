#include "aluframe/services/session.h"
#include "aluframe/platform/path_text.h"
#include "aluframe/services/messages.h"

#include <algorithm>
#include <utility>

#include "aluframe/model/number_ranges.h"
#include "aluframe/services/program_build.h"
#include "aluframe/services/text.h"

namespace aluframe::services {

namespace {

constexpr int button_ok = 1;

T_UNIT_INDEX index_of(const model::Units& units) {
  return {static_cast<int>(units.force), static_cast<int>(units.length)};
}

/// The states of the envelopes that the run checks by all their states.
std::vector<store::EnvelopeState> envelope_states(const model::Model& model,
                                                  const std::set<model::Number>& wanted) {
  std::vector<store::EnvelopeState> rows;
  const auto is_checked = [&wanted](model::Number number) {
    return wanted.empty() || wanted.contains(number);
  };
  for (const model::Combination& combination : model.combinations) {
    if (!std::ranges::all_of(combination.states, is_checked)) continue;
    for (const model::Number state : combination.states) {
      rows.push_back({combination.number, state});
    }
  }
  return rows;
}

/// The elements that a run goes through, in their order.
std::vector<std::uint32_t> elements_of_run(const model::Model& model,
                                           const std::vector<model::Number>& selected) {
  if (!selected.empty()) return selected;
  std::vector<std::uint32_t> elements;
  elements.reserve(model.elements.size());
  for (const model::Element& element : model.elements) elements.push_back(element.number);
  return elements;
}

std::string ranges_of(std::vector<std::uint32_t> numbers) {
  std::ranges::sort(numbers);
  return model::join_as_ranges(numbers);
}

store::RunInfo run_info(const model::Model& model, const model::CombinationEvaluator& evaluator,
                        const SessionOptions& options) {
  store::RunInfo info{.model_title = model.title,
                      .code = "GB 50429-2007",
                      .program = "aluframe " ALUFRAME_VERSION,
                      .combinations = {},
                      .model_digest = options.model_digest,
                      .envelope_states = envelope_states(model, options.combinations),
                      .setup = options.setup,
                      .model_elements = static_cast<std::uint32_t>(model.elements.size()),
                      .build = program_build(),
                      .elements = ranges_of(elements_of_run(model, options.selected))};
  for (const model::Combination& combination : model.combinations) {
    if (!combination.state_of && (combination.design || !combination.states.empty())) {
      ++info.model_combinations;
    }
    if (!combination.design) continue;
    ++info.model_states;
    if (!options.combinations.empty() && !options.combinations.contains(combination.number)) {
      continue;
    }
    info.combinations.push_back({combination.number, combination.name,
                                 evaluator.has_two_sides(combination.number),
                                 evaluator.is_seismic(combination.number), combination.state_of});
  }
  return info;
}

/// Hands the module's progress on to the listener and the monitor.
class ListenedProgress : public CDgnProgressDlg {
 public:
  ListenedProgress(ProgressListener* listener, DesignManager& manager, std::size_t taken_up,
                   bool& cancelled)
      : listener_(listener),
        manager_(manager),
        taken_up_(static_cast<int>(taken_up)),
        cancelled_(cancelled) {}
  ListenedProgress(const ListenedProgress&) = delete;
  ListenedProgress& operator=(const ListenedProgress&) = delete;
  ~ListenedProgress() override { close(); }

  void Create_ProgressDlg(const CString&, const CString& text, int) override {
    open_ = true;
    manager_.begin_elements();
    if (listener_ != nullptr) listener_->started(to_utf8(text));
  }
  int Update_ProgressDlg(int done, int total) override {
    manager_.set_done(static_cast<std::size_t>(done));
    if (listener_ != nullptr && listener_->advanced(taken_up_ + done, taken_up_ + total)) {
      cancelled_ = true;
    }
    return cancelled_ ? 1 : 0;
  }
  void Delete_ProgressDlg() override { close(); }

 private:
  void close() {
    if (std::exchange(open_, false) && listener_ != nullptr) listener_->ended();
  }

  ProgressListener* listener_;
  DesignManager& manager_;
  int taken_up_;  ///< elements that an earlier run was through with
  bool& cancelled_;
  bool open_ = false;
};

}  // namespace

Session::Session(const model::Model& model, SessionOptions options)
    : options_(std::move(options)),
      model_(options_.editable != nullptr ? *options_.editable : model),
      scale_(options_.units.value_or(index_of(model_.units))),
      evaluator_(model_),
      monitor_(model_),
      attributes_(model_, scale_, &options_.restrained),
      tool_(model_, evaluator_, monitor_, options_.selected, options_.combinations),
      manager_(model_, evaluator_, scale_, monitor_, options_.result_path,
               run_info(model_, evaluator_, options_), options_.create_writer, options_.observer),
      document_(model_, attributes_, tool_, manager_, scale_, options_.editable,
                options_.message_box ? MessageBoxes::to_user : MessageBoxes::to_history),
      toolkit_(options_.toolkit) {}

void Session::take_up() {
  if (!options_.take_up) return;
  manager_.take_up(options_.take_up(options_.result_path, manager_.info(),
                                    elements_of_run(model_, options_.selected)));
}

std::unique_ptr<CKFactor> Session::CreateKFactor() {
  return std::make_unique<FrameLengthFactors>(
      options_.length_factors ? *options_.length_factors : members::length_factors(model_));
}

std::unique_ptr<CDgnProgressDlg> Session::CreateProgressDlg() {
  return std::make_unique<ListenedProgress>(options_.progress, manager_, monitor_.taken_up(),
                                            cancelled_);
}

CString Session::MessageText(const CString& key) {
  return message_text(key);
}

int Session::ShowMessageBox(const CString& text, UINT type) {
  if (!options_.message_box) {
    SaveHistory(text, 0, nullptr);
    return button_ok;
  }
  had_message_ = true;
  return options_.message_box(to_utf8(text), type);
}

void Session::DisplayAnalString(const CString& text, int) {
  if (options_.message) options_.message(to_utf8(text));
}

void Session::SaveHistory(const CString& text, int, void*) {
  had_message_ = true;
  if (options_.message) options_.message(to_utf8(text));
}

CString Session::FileNameWithNewExt(const CString& extension) {
  std::filesystem::path path = options_.result_path;
  return to_wide(path.replace_extension(to_utf8(extension)).string());
}

int Session::RunTextEditor(const CString& path, const CString& title) {
  if (!options_.open_text) return 0;
  const std::filesystem::path file = platform::path_of(to_utf8(path));
  return options_.open_text(file, to_utf8(title)) ? 1 : 0;
}

void Session::ReleaseAssertion(const wchar_t* source, int line) {
  monitor_.note_assertion(to_utf8(source), line);
}

}  // namespace aluframe::services

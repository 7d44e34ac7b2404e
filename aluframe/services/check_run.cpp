#include "aluframe/services/check_run.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "aluframe/files/error_text.h"
#include "aluframe/services/binding.h"
#include "aluframe/texts/text.h"
#include "tz_alu/manager/dgnaludatamgr.h"

namespace aluframe::services {

namespace {

RunOutcome outcome_of(Session& session, int flag) {
  if (session.was_cancelled()) return RunOutcome::cancelled;
  if (session.monitor().failure()) return RunOutcome::failed;
  if (flag != 0) return RunOutcome::complete;
  return session.had_message() ? RunOutcome::nothing_to_check : RunOutcome::failed;
}

store::RunState state_of(RunOutcome outcome) {
  switch (outcome) {
    case RunOutcome::complete:
      return store::RunState::complete;
    case RunOutcome::cancelled:
      return store::RunState::cancelled;
    default:
      return store::RunState::failed;
  }
}

/// Holds back the last message until it is known to be true.
class LastMessage {
 public:
  explicit LastMessage(std::function<void(const std::string&)>& message) : message_(message) {
    if (!message_) return;
    message = [this](const std::string& text) {
      hand_on();
      last_ = text;
    };
  }
  void hand_on() {
    if (last_) message_(*last_);
    last_.reset();
  }

 private:
  std::function<void(const std::string&)> message_;
  std::optional<std::string> last_;
};

/// Writes what stands beside the elements and how the run ended. The file is finished also when it
/// has failed, so that it says so where it still can.
void finish_file(Session& session, RunOutcome outcome) {
  store::ResultWriter* writer = session.manager().writer();
  if (writer == nullptr) return;
  try {
    if (session.options().before_finish) session.options().before_finish(*writer);
  } catch (const std::exception&) {
    writer->finish(store::RunState::failed);
    throw;
  }
  writer->finish(state_of(outcome));
}

/// @return false, with the failure noted, when another run stands in the way
bool take_up(Session& session) {
  try {
    session.take_up();
    return true;
  } catch (const store::CannotTakeUp&) {
    throw;
  } catch (const std::exception& error) {
    session.monitor().note_failure(files::error_text(error));
    return false;
  }
}

/// True when all states of an envelope are checked, or one that nothing else has.
bool is_checked_by_states(const model::Model& model, const model::Combination& envelope,
                          const std::set<model::Number>& checked) {
  const auto is_checked = [&](model::Number number) { return checked.contains(number); };
  const auto is_own = [&](model::Number number) {
    return is_checked(number) && model.combinations.find(number)->state_of == envelope.number;
  };
  const std::vector<model::Number>& states = envelope.states;
  return !states.empty() &&
         (std::ranges::all_of(states, is_checked) || std::ranges::any_of(states, is_own));
}

void count_combinations(Session& session, const model::Model& model, CheckSummary& summary) {
  CArrayEx<T_LCOM_MAXMIN_K> keys;
  session.DocPoint()->GetAluDgnTool().GetAluDgnLCombs(keys, kAluDesignKind, 0);
  summary.sides = static_cast<std::size_t>(keys.GetSize());
  std::set<model::Number> checked;
  for (const T_LCOM_MAXMIN_K key : keys) checked.insert(LcombNumber(key));
  for (const model::Combination& combination : model.combinations) {
    if (combination.state_of) continue;
    const bool by_states = is_checked_by_states(model, combination, checked);
    if (by_states || checked.contains(combination.number)) ++summary.combinations;
    summary.by_states = summary.by_states || by_states;
  }
}

CheckSummary summary_of(Session& session, const model::Model& model, RunOutcome outcome) {
  const RunMonitor& monitor = session.monitor();
  CheckSummary summary;
  summary.outcome = outcome;
  summary.failure = monitor.failure().value_or("");
  summary.elements = monitor.element_count();
  count_combinations(session, model, summary);
  summary.checked_elements = monitor.checked_elements();
  summary.checked_positions = monitor.checked_positions();
  summary.positions_taken_up = monitor.positions_taken_up();
  summary.elements_over_limit = monitor.elements_over_limit();
  if (const store::ResultWriter* writer = session.manager().writer()) {
    summary.records = writer->record_count();
  }
  summary.worst = monitor.worst();
  summary.not_checked = monitor.not_checked();
  summary.assertions = monitor.assertions();
  return summary;
}

}  // namespace

CheckSummary run_check(const model::Model& model, SessionOptions options) {
  const auto start = std::chrono::steady_clock::now();
  LastMessage last(options.message);
  Session session(model, std::move(options));
  const Binding binding(session);
  const int flag = take_up(session) ? IAluDgnDataMgr::Instance()->CheckCode(nullptr) : 0;
  RunOutcome outcome = outcome_of(session, flag);
  if (outcome == RunOutcome::failed && !session.monitor().failure()) {
    session.monitor().note_failure(
        texts::translated("the design module ended the run without a result"));
  }
  try {
    if (outcome == RunOutcome::complete && session.options().after_elements &&
        !session.options().after_elements()) {
      outcome = RunOutcome::cancelled;
    }
    finish_file(session, outcome);
  } catch (const std::exception& error) {
    session.monitor().note_failure(files::error_text(error));
    outcome = RunOutcome::failed;
  }
  // The module says that it has finished before the host has.
  if (outcome != RunOutcome::failed || flag == 0) last.hand_on();
  CheckSummary summary = summary_of(session, model, outcome);
  summary.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  return summary;
}

}  // namespace aluframe::services

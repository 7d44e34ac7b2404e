#include "aluframe/services/design_manager.h"

#include <algorithm>
#include <exception>
#include <stdexcept>
#include <utility>
#include <vector>

#include "aluframe/files/error_text.h"
#include "aluframe/model/number_ranges.h"
#include "aluframe/services/repeated_check.h"
#include "aluframe/services/text.h"
#include "aluframe/store/check_names.h"
#include "aluframe/texts/text.h"

namespace aluframe::services {

namespace {

/// N, Fy, Fz are forces; Mx, My, Mz moments.
constexpr std::size_t first_moment = 3;

void fill_position(std::array<float, 9>& out, const model::SectionForces& forces,
                   const UnitScale& scale) {
  std::ranges::copy(forces, out.begin());
  if (scale.is_identity()) return;
  for (std::size_t i = 0; i < forces.size(); ++i) {
    const double value = static_cast<double>(forces[i]);
    out[i] = static_cast<float>(i < first_moment ? scale.force(value) : scale.moment(value));
  }
}

std::string combinations_of(const store::RunInfo& info) {
  std::vector<model::Number> numbers;
  for (const store::CombinationRow& row : info.combinations) numbers.push_back(row.number);
  std::ranges::sort(numbers);
  return model::join_as_ranges(numbers);
}

/// Why results of a run cannot stand beside those of another, whose combinations would govern its
/// elements alone; nothing when both are of the same combinations.
std::optional<std::string> mixture_of(const store::RunInfo& stored, const store::RunInfo& wanted) {
  const std::string found = combinations_of(stored);
  const std::string asked = combinations_of(wanted);
  if (found == asked) return std::nullopt;
  return texts::translated(
      "holds results of combination {}, which are not mixed with those of combination {}; check "
      "the model again",
      found, asked);
}

}  // namespace

DesignManager::DesignManager(const model::Model& model,
                             const model::CombinationEvaluator& evaluator, const UnitScale& scale,
                             RunMonitor& monitor, std::filesystem::path result_path,
                             store::RunInfo info, ResultWriterFactory create_writer,
                             RunObserver* observer)
    : model_(model),
      evaluator_(evaluator),
      scale_(scale),
      monitor_(monitor),
      result_path_(std::move(result_path)),
      info_(std::move(info)),
      create_writer_(std::move(create_writer)),
      observer_(observer) {}

template <class Action>
auto DesignManager::noting_failure(Action action) {
  try {
    return action();
  } catch (const std::exception& error) {
    monitor_.note_failure(files::error_text(error));
    throw;
  }
}

UINT DesignManager::GetOriginElem(int index) const {
  const auto place = static_cast<std::size_t>(index) - 1;
  return index >= 1 && place < model_.elements.size() ? model_.elements[place].number : 0;
}

int DesignManager::CreateDesignResultFile() {
  // The run before, if any, is over.
  writer_ = std::move(taken_up_);
  if (writer_ != nullptr) return 1;
  try {
    writer_ = create_writer_(result_path_, info_);
    return 1;
  } catch (const std::exception& error) {
    monitor_.note_failure(files::error_text(error));
    return 0;
  }
}

int DesignManager::WriteDesignResult(UINT elem, const T_RALU_D& record, UINT lcomb, int minSide,
                                     int) {
  if (writer_ == nullptr && !uses_stored_) return 0;
  noting_failure([&] {
    if (writer_ == nullptr) start_adding();
    writer_->write(elem, record, lcomb, minSide);
  });
  if (uses_stored_) added_.insert(elem);
  monitor_.note_record(elem, lcomb, record);
  if (observer_ != nullptr) {
    noting_failure([&] { observer_->checked(elem, lcomb, minSide, record); });
  }
  constexpr UINT governing = 0;
  if (lcomb == governing) {
    store::ElementNotes notes = monitor_.take_notes(elem);
    if (observer_ != nullptr) observer_->add_notes(notes);
    end_element(notes);
  }
  return 1;
}

void DesignManager::end_element(const store::ElementNotes& notes) {
  if (writer_ != nullptr) noting_failure([&] { writer_->end_element(notes); });
}

void DesignManager::take_up(store::TakenUp earlier) {
  for (const store::FinishedElement& element : earlier.elements) {
    monitor_.take_up(element);
    if (observer_ != nullptr) observer_->take_up(element.notes);
  }
  taken_up_ = std::move(earlier.writer);
}

void DesignManager::begin_elements() {
  monitor_.begin_elements();
  if (monitor_.taken_up() > 0) return;
  constexpr std::uint32_t run_start = 0;
  const store::ElementNotes notes = monitor_.take_notes(run_start);
  if (!notes.assertions.empty()) end_element(notes);
}

void DesignManager::set_done(std::size_t done) {
  if (const auto unchecked = monitor_.set_done(done)) end_element(monitor_.take_notes(*unchecked));
}

int DesignManager::ReadDesignResult(UINT elem, T_RALU_D& record, UINT lcomb, int minSide, int) {
  constexpr UINT governing = 0;
  if (uses_stored_ && lcomb == governing) monitor_.start_element(elem);
  return noting_failure([&] {
    if (writer_ != nullptr) return writer_->read(elem, lcomb, minSide, record) ? 1 : 0;
    const std::optional<T_RALU_D> found = stored_record(elem, lcomb, minSide);
    if (found) record = *found;
    return found ? 1 : 0;
  });
}

std::optional<T_RALU_D> DesignManager::stored_record(UINT elem, UINT lcomb, int minSide) {
  return stored_ == nullptr ? std::nullopt : stored_->read(elem, lcomb, minSide);
}

void DesignManager::use_stored_results() {
  uses_stored_ = true;
  if (!std::filesystem::exists(result_path_)) return;
  stored_ = store::ResultReader::open(result_path_);
  if (const auto difference = store::difference_of_runs(stored_->info(), info_)) {
    throw std::runtime_error(result_path_.string() + ": " + *difference);
  }
  if (const auto mixture = mixture_of(stored_->info(), info_)) {
    throw std::runtime_error(result_path_.string() + ": " + *mixture);
  }
  stored_state_ = stored_->state();
}

void DesignManager::start_adding() {
  const bool exists = stored_ != nullptr;
  stored_.reset();
  writer_ = exists ? store::ResultWriter::reopen(result_path_, info_)
                   : create_writer_(result_path_, info_);
}

void DesignManager::close_stored_results(
    const std::function<void(store::ResultWriter&)>& before_finish) {
  stored_.reset();
  if (writer_ == nullptr) return;
  if (before_finish) before_finish(*writer_);
  writer_->finish(stored_state_);
}

int DesignManager::GetStld(UINT number, T_STLD_D& out) const {
  const model::LoadCase* found = model_.load_cases.find(number);
  if (found == nullptr) return 0;
  out.strName = to_wide(found->name.empty() ? std::to_string(number) : found->name);
  return 1;
}

void DesignManager::CheckedAgain(UINT elem, int type, const T_RALU_ITEM& stored,
                                 const T_RALU_RLT& again) {
  const auto difference = difference_of_checks(stored, again);
  if (!difference) return;
  noting_failure([&] {
    throw std::runtime_error(texts::translated(
        "element {}, {}, combination {}{}, position {}: {} in {}; check the model again", elem,
        texts::translation_of(store::item_names.at(static_cast<std::size_t>(type))), stored.nLComb,
        stored.nMinSide != 0 ? texts::translated(" (minimum side)") : "",
        store::position_names.at(static_cast<std::size_t>(stored.nPos)), *difference,
        result_path_.string()));
  });
}

int DesignManager::CheckDesignFile() {
  if (writer_ == nullptr) return 0;
  noting_failure([&] { writer_->flush(); });
  return 1;
}

int DesignManager::GetElementForce(UINT elem, UINT lcomb, T_ALU_FORCE_D& out, bool minSide) {
  if (model_.elements.find(elem) == nullptr || model_.combinations.find(lcomb) == nullptr) {
    return 0;
  }
  const std::size_t place = model_.elements.position(elem);
  const auto side = minSide ? model::Side::minimum : model::Side::maximum;
  const std::optional<model::CaseForces> forces = evaluator_.evaluate(place, lcomb, side);
  if (!forces) {
    monitor_.note_missing_forces(elem, lcomb, evaluator_.missing_case(place, lcomb));
    return 0;
  }
  out = T_ALU_FORCE_D();
  for (std::size_t p = 0; p < forces->at.size(); ++p) {
    fill_position(out.aForce[p], forces->at[p], scale_);
  }
  out.nLComb = MakeLcombKey(lcomb, minSide ? 1 : 0);
  out.bInner = forces->inner ? 1 : 0;
  monitor_.note_forces(elem, out);
  return 1;
}

}  // namespace aluframe::services

#include "aluframe/services/run_monitor.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "aluframe/model/force_component.h"
#include "aluframe/services/plain_capacity.h"
#include "aluframe/store/check_names.h"
#include "aluframe/texts/text.h"

namespace aluframe::services {

namespace {

/// Below this a force counts as zero (the tolerance of the checks).
constexpr double zero_force = 1e-10;

/// The module finds a shape that the checks do not cover inconsistent; here it is an everyday case,
/// told with what is not checked.
constexpr const char* uncovered_shape = "dgnaludatamgr:548";

/// A force that no check is for goes without saying below this part of what the element can carry
/// of it: what rounding and the last digits of an analysis leave is far smaller, what an engineer
/// would act on far larger.
constexpr double negligible_part = 1e-6;

bool is_empty(const T_RALU_RLT& item) {
  return RaluIsEmpty(item.dDemand, item.dCapacity);
}

bool any_judged(const T_RALU_SECT& position) {
  return std::ranges::any_of(position.aItem, [](const T_RALU_RLT& item) {
    return was_judged(item.dDemand, item.dCapacity);
  });
}

std::string name_text(const model::Section& section) {
  return section.name.empty() ? "" : " \"" + section.name + "\"";
}

bool acts(float force) {
  return !(std::fabs(force) < zero_force);
}

/// A force that may stand without a check: which it is, the check that would be its own, and why
/// there is none.
struct Unchecked {
  const char* name;
  model::ForceComponent component;
  int item;  ///< RALU_ITEM_TYPE; -1: no check is for it
  const char* reason;
  double PlainCapacity::* capacity;
};

constexpr std::array<Unchecked, 3> unchecked_forces{
    {{"Fy", model::shear_y, RALU_SHEAR_Y, shear_without_check, &PlainCapacity::shear_y},
     {"Fz", model::shear_z, RALU_SHEAR_Z, shear_without_check, &PlainCapacity::shear_z},
     {"Mx", model::torsion, -1, torsion_without_check, &PlainCapacity::torsion}}};

bool was_left_out(const Unchecked& force, const T_RALU_SECT& result) {
  return force.item < 0 || is_empty(result.aItem[static_cast<std::size_t>(force.item)]);
}

/// Checks are chosen by axial force and bending; shear or torsion alone calls for none.
bool has_force_state(const std::array<float, 6>& force) {
  return acts(force[model::axial_force]) || acts(force[model::about_y]) ||
         acts(force[model::about_z]);
}

}  // namespace

void RunMonitor::set_elements(std::vector<std::uint32_t> elements) {
  elements_ = std::move(elements);
  done_ = taken_up();
  current_ = Current();
}

void RunMonitor::take_up(const store::FinishedElement& element) {
  const store::ElementNotes& notes = element.notes;
  if (notes.element != 0) taken_up_.insert(notes.element);
  checked_positions_ += notes.checked_positions;
  positions_taken_up_ += notes.checked_positions;
  if (element.governing) governing_.add(notes.element, *element.governing);
  std::ranges::copy_if(notes.not_checked, std::back_inserter(not_checked_),
                       [](const store::NotChecked& item) { return !store::is_between(item); });
  for (const store::AssertionRow& row : notes.assertions) assertions_[row.place] += row.count;
  since_.not_checked = not_checked_.size();
}

void RunMonitor::begin_elements() {
  if (taken_up() == 0) return;
  for (const auto& [place, count] : std::exchange(since_.assertions, {})) {
    const auto total = assertions_.find(place);
    total->second -= count;
    if (total->second == 0) assertions_.erase(total);
  }
}

bool RunMonitor::is_current(std::uint32_t element) const {
  return done_ < elements_.size() && elements_[done_] == element;
}

std::optional<std::uint32_t> RunMonitor::set_done(std::size_t done) {
  std::optional<std::uint32_t> unchecked;
  if (done_ < elements_.size() && !current_.governing_written) {
    unchecked = elements_[done_];
    not_checked_.push_back(
        {*unchecked, std::nullopt, texts::translatable("its design data could not be assembled")});
  }
  done_ = taken_up() + done;
  current_ = Current();
  return unchecked;
}

void RunMonitor::start_element(std::uint32_t element) {
  const auto found = std::ranges::find(elements_, element);
  if (found == elements_.end()) return;
  done_ = static_cast<std::size_t>(found - elements_.begin());
  current_ = Current();
}

void RunMonitor::note_forces(std::uint32_t element, const T_ALU_FORCE_D& forces) {
  if (!is_current(element)) return;
  current_.had_forces = true;
  for (std::size_t p = 0; p < kCheckPositions; ++p) {
    const bool is_end = p == 0 || p == kCheckPositions - 1;
    std::array<float, 6>& force = current_.force[p];
    current_.requested[p] = is_end || forces.bInner != 0;
    std::copy_n(forces.aForce[p].begin(), force.size(), force.begin());
    if (current_.requested[p] && has_force_state(force)) current_.had_force_state = true;
  }
}

void RunMonitor::note_missing_forces(std::uint32_t element, std::uint32_t combination,
                                     std::optional<std::uint32_t> load_case) {
  if (done_ >= elements_.size()) return;
  std::string reason =
      load_case ? fmt::format(texts::translatable("no forces (none for load case {})"), *load_case)
                : std::string(texts::translatable("no forces"));
  if (!is_current(element)) {
    reason = fmt::format(
        texts::translatable("the end moment of its member at element {}, taken as 0: {}"), element,
        reason);
  }
  add_pending({elements_[done_], combination, reason});
}

void RunMonitor::add_pending(store::NotChecked item) {
  const model::Combination* found =
      item.combination ? model_.combinations.find(*item.combination) : nullptr;
  if (found != nullptr && found->state_of) item.combination = found->state_of;
  // Both sides of a combination, and the states of an envelope, lack the same forces.
  if (std::ranges::find(current_.pending, item) == current_.pending.end()) {
    current_.pending.push_back(std::move(item));
  }
}

void RunMonitor::note_record(std::uint32_t element, std::uint32_t combination,
                             const T_RALU_D& record) {
  if (combination == 0) {
    note_governing(element, record);
  } else {
    note_positions(element, combination, record);
  }
}

void RunMonitor::note_positions(std::uint32_t element, std::uint32_t combination,
                                const T_RALU_D& record) {
  std::string unchecked;
  for (std::size_t p = 0; p < kCheckPositions; ++p) {
    const T_RALU_SECT& result = record.aSect[p];
    if (any_judged(result)) {
      ++checked_positions_;
      ++since_.checked_positions;
    }
    if (!is_current(element) || !current_.requested[p]) continue;
    if (has_force_state(current_.force[p]) && std::ranges::all_of(result.aItem, is_empty)) {
      unchecked += std::string(unchecked.empty() ? "" : ", ") + store::position_names[p];
    }
    note_left_out_forces(p, combination, record);
  }
  if (unchecked.empty()) return;
  add_pending(
      {element, combination,
       fmt::format(texts::translatable("no section parameters could be formed at position {}"),
                   unchecked)});
}

void RunMonitor::note_left_out_forces(std::size_t position, std::uint32_t combination,
                                      const T_RALU_D& record) {
  for (std::size_t i = 0; i < unchecked_forces.size(); ++i) {
    const Unchecked& force = unchecked_forces[i];
    const float value = current_.force[position][force.component];
    store::LargestForce& largest = current_.left_out[i];
    const double magnitude = std::fabs(static_cast<double>(value));
    if (!acts(value) || magnitude <= largest.magnitude) continue;
    if (!was_left_out(force, record.aSect[position])) continue;
    largest = {force.name, magnitude, static_cast<int>(position), combination, record.nMinSide};
  }
}

void RunMonitor::add_left_out_forces(std::uint32_t element) {
  const auto acts_somewhere = [](const store::LargestForce& f) { return f.magnitude != 0.0; };
  if (std::ranges::none_of(current_.left_out, acts_somewhere)) return;
  const PlainCapacity capacity = plain_capacity(model_, element);
  for (std::size_t i = 0; i < unchecked_forces.size(); ++i) {
    const store::LargestForce& largest = current_.left_out[i];
    const double negligible = negligible_part * capacity.*unchecked_forces[i].capacity;
    if (!acts_somewhere(largest) || largest.magnitude < negligible) continue;
    add_pending({element, std::nullopt, unchecked_forces[i].reason, largest});
  }
}

void RunMonitor::note_governing(std::uint32_t element, const T_RALU_D& record) {
  current_.governing_written = true;
  if (!governing_.add(element, record.aComp)) {
    not_checked_.push_back({element, std::nullopt, reason_without_result(element)});
    if (!current_.had_force_state) note_forces_without_state(element);
    return;
  }
  add_left_out_forces(element);
  not_checked_.insert(not_checked_.end(), current_.pending.begin(), current_.pending.end());
}

void RunMonitor::note_forces_without_state(std::uint32_t element) {
  current_.pending.clear();
  add_left_out_forces(element);
  not_checked_.insert(not_checked_.end(), current_.pending.begin(), current_.pending.end());
}

std::string RunMonitor::reason_without_result(std::uint32_t element) const {
  if (!current_.had_forces) {
    return current_.pending.empty() ? texts::translatable("no forces in any combination")
                                    : fmt::format(texts::translatable("{} in any combination"),
                                                  current_.pending.front().reason);
  }
  const model::Element* found = model_.elements.find(element);
  const model::Section* section = found == nullptr ? nullptr : model_.sections.find(found->section);
  if (section != nullptr && section->shape == model::Shape::other) {
    return fmt::format(texts::translatable("the checks do not cover the shape of section {}{}: no "
                                           "check was made, judge it by hand"),
                       section->number, name_text(*section));
  }
  if (!current_.had_force_state) {
    return texts::translatable(
        "neither axial force nor bending acts on it, and its slenderness has no limit");
  }
  return texts::translatable(
      "no section parameters could be formed: its area, a section modulus or the z of a stress "
      "point is 0, or local buckling leaves nothing of it");
}

void RunMonitor::note_assertion(const std::string& source, int line) {
  const std::string place = source + ":" + std::to_string(line);
  const bool is_told = place == uncovered_shape &&
                       std::ranges::any_of(model_.sections, [](const model::Section& section) {
                         return section.shape == model::Shape::other;
                       });
  if (is_told) return;
  ++assertions_[place];
  ++since_.assertions[place];
}

void RunMonitor::note_failure(const std::string& text) {
  if (!failure_) failure_ = text;
}

store::ElementNotes RunMonitor::take_notes(std::uint32_t element) {
  const SinceNotes since = std::exchange(since_, {0, not_checked_.size(), {}});
  store::ElementNotes notes{.element = element, .checked_positions = since.checked_positions};
  const auto first = not_checked_.begin() + static_cast<std::ptrdiff_t>(since.not_checked);
  notes.not_checked.assign(first, not_checked_.end());
  for (const auto& [place, count] : since.assertions) notes.assertions.push_back({place, count});
  return notes;
}

}  // namespace aluframe::services

#include "aluframe/services/run_monitor.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace aluframe::services {

namespace {

/// Below this a force counts as zero (the tolerance of the checks).
constexpr double zero_force = 1e-10;
constexpr double ratio_tolerance = 1e-10;

constexpr const char* shear_reason =
    "shear where it acts without bending, or with axial force on a member that is no beam";
constexpr const char* torsion_reason = "torsion";

constexpr const char* position_names[kCheckPositions] = {"I", "1/4", "1/2", "3/4", "J"};

/// Places of the forces of a position.
enum Component : std::size_t { axial, shear_y, shear_z, torsion, about_y, about_z };

bool is_empty(const T_RALU_RLT& item) {
  return RaluIsEmpty(item.dDemand, item.dCapacity);
}

bool any_judged(const T_RALU_SECT& position) {
  return std::ranges::any_of(position.aItem, [](const T_RALU_RLT& item) {
    return was_judged(item.dDemand, item.dCapacity);
  });
}

bool acts(float force) {
  return !(std::fabs(force) < zero_force);
}

/// Checks are chosen by axial force and bending; shear or torsion alone calls for none.
bool has_force_state(const std::array<float, 6>& force) {
  return acts(force[axial]) || acts(force[about_y]) || acts(force[about_z]);
}

}  // namespace

bool exceeds_limit(double ratio) {
  return !std::isfinite(ratio) || ratio - 1.0 >= ratio_tolerance;
}

bool was_judged(double demand, double capacity) {
  return capacity != 0.0 || !std::isfinite(demand);
}

void RunMonitor::set_elements(std::vector<std::uint32_t> elements) {
  elements_ = std::move(elements);
  done_ = 0;
  current_ = Current();
}

bool RunMonitor::is_current(std::uint32_t element) const {
  return done_ < elements_.size() && elements_[done_] == element;
}

void RunMonitor::set_done(std::size_t done) {
  if (done_ < elements_.size() && !current_.governing_written) {
    not_checked_.push_back(
        {elements_[done_], std::nullopt, "its design data could not be assembled"});
  }
  done_ = done;
  current_ = Current();
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
  const std::string cause =
      load_case ? " (none for load case " + std::to_string(*load_case) + ")" : "";
  std::string reason = "no forces" + cause;
  if (!is_current(element)) {
    reason = "the end moment of its member at element " + std::to_string(element) +
             ", taken as 0: " + reason;
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
    if (any_judged(result)) ++checked_positions_;
    if (!is_current(element) || !current_.requested[p]) continue;
    if (has_force_state(current_.force[p]) && std::ranges::all_of(result.aItem, is_empty)) {
      unchecked += (unchecked.empty() ? "" : ", ") + std::string(position_names[p]);
    }
    note_left_out_forces(p, result);
  }
  if (unchecked.empty()) return;
  add_pending(
      {element, combination, "no section parameters could be formed at position " + unchecked});
}

void RunMonitor::note_left_out_forces(std::size_t position, const T_RALU_SECT& result) {
  const std::array<float, 6>& force = current_.force[position];
  const bool left_out = (acts(force[shear_y]) && is_empty(result.aItem[RALU_SHEAR_Y])) ||
                        (acts(force[shear_z]) && is_empty(result.aItem[RALU_SHEAR_Z]));
  current_.shear_left_out = current_.shear_left_out || left_out;
  current_.torsion_left_out = current_.torsion_left_out || acts(force[torsion]);
}

void RunMonitor::note_governing(std::uint32_t element, const T_RALU_D& record) {
  current_.governing_written = true;
  const auto judged = [](const T_RALU_ITEM& item) {
    return was_judged(item.dDemand, item.dCapacity);
  };
  if (std::ranges::none_of(record.aComp, judged)) {
    not_checked_.push_back({element, std::nullopt, reason_without_result(element)});
    return;
  }
  ++checked_elements_;
  if (current_.shear_left_out) add_pending({element, std::nullopt, shear_reason});
  if (current_.torsion_left_out) add_pending({element, std::nullopt, torsion_reason});
  not_checked_.insert(not_checked_.end(), current_.pending.begin(), current_.pending.end());
  bool over = false;
  for (std::size_t item = 0; item < record.aComp.size(); ++item) {
    const T_RALU_ITEM& check = record.aComp[item];
    if (!judged(check)) continue;
    over = over || exceeds_limit(check.Ratio());
    if (!worst_ || check.ComPair(worst_->check) != 0) {
      worst_ = WorstCheck{element, static_cast<int>(item), check};
    }
  }
  if (over) ++elements_over_limit_;
}

std::string RunMonitor::reason_without_result(std::uint32_t element) const {
  if (!current_.had_forces) {
    return current_.pending.empty() ? "no forces in any combination"
                                    : current_.pending.front().reason + " in any combination";
  }
  const model::Element* found = model_.elements.find(element);
  const model::Section* section = found == nullptr ? nullptr : model_.sections.find(found->section);
  if (section != nullptr && section->shape == model::Shape::other) {
    return "the checks do not cover the shape of section " + std::to_string(section->number);
  }
  if (!current_.had_force_state) {
    return "neither axial force nor bending acts on it, and its slenderness has no limit";
  }
  return "no section parameters could be formed: its area, a section modulus or the z of a stress "
         "point is 0, or local buckling leaves nothing of it";
}

void RunMonitor::note_assertion(const std::string& source, int line) {
  ++assertions_[source + ":" + std::to_string(line)];
}

void RunMonitor::note_failure(const std::string& text) {
  if (!failure_) failure_ = text;
}

}  // namespace aluframe::services

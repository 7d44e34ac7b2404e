#include "aluframe/services/run_monitor.h"

#include <algorithm>
#include <cmath>

namespace aluframe::services {

namespace {

/// Below this a force counts as zero (the tolerance of the checks).
constexpr double zero_force = 1e-10;
constexpr double ratio_tolerance = 1e-10;

constexpr const char* position_names[kCheckPositions] = {"I", "1/4", "1/2", "3/4", "J"};

bool has_result(const T_RALU_SECT& position) {
  return std::ranges::any_of(position.aItem, [](const T_RALU_RLT& item) {
    return !RaluIsEmpty(item.dDemand, item.dCapacity);
  });
}

/// Checks are chosen by axial force and bending; shear or torsion alone calls for none.
bool has_force_state(const std::array<float, 9>& force) {
  constexpr std::size_t axial = 0, about_y = 4, about_z = 5;
  const auto acts = [&force](std::size_t i) { return !(std::fabs(force[i]) < zero_force); };
  return acts(axial) || acts(about_y) || acts(about_z);
}

}  // namespace

bool exceeds_limit(double ratio) {
  return !(ratio - 1.0 < ratio_tolerance);
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

void RunMonitor::note_forces(std::uint32_t element, const T_ALU_FORCE_D& forces) {
  if (!is_current(element)) return;
  current_.had_forces = true;
  for (std::size_t p = 0; p < kCheckPositions; ++p) {
    const bool is_end = p == 0 || p == kCheckPositions - 1;
    current_.requested[p] = is_end || forces.bInner != 0;
    current_.force_state[p] = has_force_state(forces.aForce[p]);
    if (current_.requested[p] && current_.force_state[p]) current_.had_force_state = true;
  }
}

void RunMonitor::note_missing_forces(std::uint32_t element, std::uint32_t combination,
                                     std::optional<std::uint32_t> load_case) {
  if (done_ >= elements_.size()) return;
  const std::string cause =
      load_case ? " (none for load case " + std::to_string(*load_case) + ")" : "";
  const std::string reason = is_current(element)
                                 ? "no forces" + cause
                                 : "checked with the end moment of its member at element " +
                                       std::to_string(element) +
                                       " taken as 0: that element has no forces" + cause;
  current_.pending.push_back({elements_[done_], combination, reason});
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
    if (has_result(record.aSect[p])) {
      ++checked_positions_;
    } else if (is_current(element) && current_.requested[p] && current_.force_state[p]) {
      unchecked += (unchecked.empty() ? "" : ", ") + std::string(position_names[p]);
    }
  }
  if (unchecked.empty()) return;
  current_.pending.push_back(
      {element, combination, "no section parameters could be formed at position " + unchecked});
}

void RunMonitor::note_governing(std::uint32_t element, const T_RALU_D& record) {
  current_.governing_written = true;
  const auto filled = [](const T_RALU_ITEM& item) { return item.nPos >= 0; };
  if (std::ranges::none_of(record.aComp, filled)) {
    not_checked_.push_back({element, std::nullopt, reason_without_result(element)});
    return;
  }
  ++checked_elements_;
  not_checked_.insert(not_checked_.end(), current_.pending.begin(), current_.pending.end());
  bool over = false;
  for (std::size_t item = 0; item < record.aComp.size(); ++item) {
    const T_RALU_ITEM& check = record.aComp[item];
    if (!filled(check)) continue;
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
  if (!current_.had_force_state) {
    return "neither axial force nor moment acts on it, and its slenderness is not checked";
  }
  const model::Element* found = model_.elements.find(element);
  const model::Section* section = found == nullptr ? nullptr : model_.sections.find(found->section);
  if (section != nullptr && section->shape == model::Shape::other) {
    return "the checks do not cover the shape of section " + std::to_string(section->number);
  }
  return "no section parameters could be formed: its area, a section modulus or the z of a stress "
         "point is 0";
}

void RunMonitor::note_assertion(const std::string& source, int line) {
  ++assertions_[source + ":" + std::to_string(line)];
}

void RunMonitor::note_failure(const std::string& text) {
  if (!failure_) failure_ = text;
}

}  // namespace aluframe::services

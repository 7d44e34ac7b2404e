#include "aluframe/combinations/candidates.h"

#include <algorithm>

namespace aluframe::combinations {

namespace {

/// Walks through what may act, unit by unit.
class Search {
 public:
  Search(const Pattern& pattern, const std::vector<ActingUnit>& units, std::size_t limit)
      : pattern_(pattern), units_(units), limit_(limit), state_(pattern.movable.size()) {}

  std::optional<std::vector<Candidate>> run() {
    for (std::size_t i = 0; i < pattern_.movable.size() && !too_many_; ++i) {
      const auto& factor = pattern_.movable[i].leading;
      if (factor && factor->value() != 0.0) lead(i, *factor);
    }
    if (!pattern_.must_lead && !too_many_) {
      leader_.reset();
      decide(0);
    }
    if (too_many_) return std::nullopt;
    return std::move(found_);
  }

 private:
  void lead(std::size_t place, const Factor& factor) {
    leader_ = place;
    for (std::size_t choice = 0; choice < choices(place); ++choice) {
      state_[place] = Acting{pattern_.movable[place].unit, choice, factor};
      decide(0);
    }
    state_[place].reset();
  }

  std::size_t choices(std::size_t place) const {
    return units_[pattern_.movable[place].unit].choices.size();
  }

  /// Decides on the unit at `place` and all behind it.
  void decide(std::size_t place) {
    if (too_many_) return;
    if (place == state_.size()) {
      if (is_whole()) add_standing(0, Candidate());
      return;
    }
    if (leader_ == place) return decide(place + 1);
    if (could_accompany(place)) {
      for (std::size_t choice = 0; choice < choices(place); ++choice) {
        const Movable& movable = pattern_.movable[place];
        state_[place] = Acting{movable.unit, choice, *movable.accompanying};
        decide(place + 1);
      }
      state_[place].reset();
    }
    decide(place + 1);
  }

  bool is_excluded(std::size_t place) const {
    const ActingUnit& unit = units_[pattern_.movable[place].unit];
    for (std::size_t i = 0; i < state_.size(); ++i) {
      if (i == place || !state_[i]) continue;
      if (exclude_each_other(unit, units_[state_[i]->unit])) return true;
    }
    return false;
  }

  bool could_accompany(std::size_t place) const {
    const Movable& movable = pattern_.movable[place];
    if (!movable.accompanying || movable.accompanying->value() == 0.0) return false;
    return (leader_ || !movable.needs_leader) && !is_excluded(place);
  }

  bool could_act(std::size_t place) const {
    if (could_accompany(place)) return true;
    const auto& leading = pattern_.movable[place].leading;
    return !leader_ && leading && leading->value() != 0.0 && !is_excluded(place);
  }

  /// Whether those that are absent may be: one that must act may not, and without one that acts
  /// either way the combination is the mean of two others.
  bool is_whole() const {
    for (std::size_t i = 0; i < state_.size(); ++i) {
      if (state_[i]) continue;
      const Movable& movable = pattern_.movable[i];
      const bool may_be_absent = !movable.must_act && !units_[movable.unit].action.is_reversible();
      if (!may_be_absent && could_act(i)) return false;
    }
    return true;
  }

  /// Puts each choice of factors of those that always act before the others.
  void add_standing(std::size_t place, const Candidate& so_far) {
    if (place < pattern_.standing.size()) {
      const Standing& standing = pattern_.standing[place];
      for (const Factor& factor : standing.factors) {
        for (std::size_t choice = 0; choice < units_[standing.unit].choices.size(); ++choice) {
          Candidate longer = so_far;
          longer.push_back({standing.unit, choice, factor});
          add_standing(place + 1, longer);
        }
      }
      return;
    }
    if (found_.size() == limit_) too_many_ = true;
    if (too_many_) return;
    Candidate whole = so_far;
    if (leader_) whole.push_back(*state_[*leader_]);
    for (std::size_t i = 0; i < state_.size(); ++i) {
      if (state_[i] && leader_ != i) whole.push_back(*state_[i]);
    }
    found_.push_back(std::move(whole));
  }

  const Pattern& pattern_;
  const std::vector<ActingUnit>& units_;
  std::size_t limit_;
  std::optional<std::size_t> leader_;
  std::vector<std::optional<Acting>> state_;  ///< by place of the movable units
  std::vector<Candidate> found_;
  bool too_many_ = false;
};

}  // namespace

std::optional<std::vector<Candidate>> candidates_of(const Pattern& pattern,
                                                    const std::vector<ActingUnit>& units,
                                                    std::size_t limit) {
  return Search(pattern, units, limit).run();
}

}  // namespace aluframe::combinations

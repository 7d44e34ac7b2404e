#include "aluframe/model/combination_nesting.h"

#include <algorithm>
#include <utility>

#include "aluframe/texts/text.h"

namespace aluframe::model {

namespace {

/// Depth-first walk over combinations and the combinations in their terms.
class Walk {
 public:
  explicit Walk(const Table<Combination>& combinations)
      : combinations_(combinations), states_(combinations.size(), State::unseen) {
    nesting_.contained_first.reserve(combinations.size());
    nesting_.levels.assign(combinations.size(), 1);
  }

  CombinationNesting run() {
    for (std::size_t start = 0; start < combinations_.size(); ++start) {
      if (states_[start] == State::unseen) walk_from(start);
      if (nesting_.cycle) break;
    }
    return std::move(nesting_);
  }

 private:
  enum class State { unseen, open, done };
  struct Visit {
    std::size_t place;
    std::size_t next_term;
  };

  void walk_from(std::size_t start) {
    enter(start);
    while (!path_.empty() && !nesting_.cycle) {
      Visit& visit = path_.back();
      const std::vector<CombinationTerm>& terms = combinations_[visit.place].terms;
      if (visit.next_term == terms.size()) {
        leave();
      } else {
        follow(terms[visit.next_term++]);
      }
    }
  }

  void enter(std::size_t place) {
    states_[place] = State::open;
    path_.push_back({place, 0});
  }

  void follow(const CombinationTerm& term) {
    if (term.source == CombinationTerm::Source::load_case) return;
    const std::size_t inner = combinations_.position(term.number);
    if (states_[inner] == State::open) {
      nesting_.cycle = cycle_at(inner);
    } else if (states_[inner] == State::unseen) {
      enter(inner);
    }
  }

  void leave() {
    const std::size_t place = path_.back().place;
    states_[place] = State::done;
    nesting_.contained_first.push_back(place);
    for (const CombinationTerm& term : combinations_[place].terms) {
      if (term.source == CombinationTerm::Source::load_case) continue;
      const std::size_t inner = nesting_.levels[combinations_.position(term.number)];
      nesting_.levels[place] = std::max(nesting_.levels[place], inner + 1);
    }
    path_.pop_back();
  }

  /// The cycle that the open path closes when its last combination contains `place`.
  CombinationProblem cycle_at(std::size_t place) const {
    const auto first = std::find_if(path_.begin(), path_.end(),
                                    [place](const Visit& visit) { return visit.place == place; });
    CombinationProblem problem{place, first->next_term - 1, texts::translated("contains itself: ")};
    for (auto visit = first; visit != path_.end(); ++visit) {
      problem.text += std::to_string(combinations_[visit->place].number) + " → ";
    }
    problem.text += std::to_string(combinations_[place].number);
    return problem;
  }

  const Table<Combination>& combinations_;
  std::vector<State> states_;
  std::vector<Visit> path_;
  CombinationNesting nesting_;
};

}  // namespace

CombinationNesting nesting_of(const Table<Combination>& combinations) {
  return Walk(combinations).run();
}

}  // namespace aluframe::model

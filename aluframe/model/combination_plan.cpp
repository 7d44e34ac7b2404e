#include "aluframe/model/combination_plan.h"

#include <algorithm>
#include <utility>

#include "aluframe/model/combination_nesting.h"

namespace aluframe::model {

namespace {

using Source = CombinationTerm::Source;

/// Collects cases in the order of their first use and adds up the factors of each.
class CaseSum {
 public:
  explicit CaseSum(std::size_t load_cases) : row_of_case_(load_cases) {}

  void add(std::size_t load_case, double factor) {
    std::size_t& row = row_of_case_[load_case];
    if (row == 0) {
      cases_.push_back({load_case, factor});
      row = cases_.size();
    } else {
      cases_[row - 1].factor += factor;
    }
  }

  /// What was collected; the sum is empty again.
  std::vector<CombinationPlan::CaseFactor> take() {
    for (const auto& entry : cases_) row_of_case_[entry.load_case] = 0;
    return std::exchange(cases_, {});
  }

 private:
  std::vector<std::size_t> row_of_case_;  ///< counted from 1; 0: not met yet
  std::vector<CombinationPlan::CaseFactor> cases_;
};

/// Builds the plans in an order in which those of nested combinations are there already.
class Compiler {
 public:
  explicit Compiler(const Model& model)
      : model_(model), plans_(model.combinations.size()), case_sum_(model.load_cases.size()) {}

  std::vector<CombinationPlan> run() {
    const std::vector<std::size_t> order = nesting_of(model_.combinations).contained_first;
    rank_.resize(order.size());
    for (std::size_t rank = 0; rank < order.size(); ++rank) rank_[order[rank]] = rank;
    for (const std::size_t place : order) plans_[place] = compile(model_.combinations[place]);
    return std::move(plans_);
  }

 private:
  CombinationPlan compile(const Combination& combination) {
    CombinationPlan plan;
    plan.kind = combination.kind;
    plan.two_sides = combination.kind == CombinationKind::envelope;
    for (const CombinationTerm& term : combination.terms) {
      if (term.factor == 0.0 && combination.kind == CombinationKind::linear) continue;
      const bool of_case = term.source == Source::load_case;
      const std::size_t place = of_case ? model_.load_cases.position(term.number)
                                        : model_.combinations.position(term.number);
      plan.terms.push_back({term.source, place, term.factor});
      if (!of_case && plans_[place].two_sides) plan.two_sides = true;
    }
    plan.cases = cases_of(plan.terms);
    plan.seismic = combination.seismic ||
                   std::any_of(plan.cases.begin(), plan.cases.end(), [this](const auto& entry) {
                     return is_seismic_case(model_.load_cases[entry.load_case]);
                   });
    if (plan.two_sides) {
      plan.needed = needed_by(plan.terms);
    } else {
      plan.terms.clear();
    }
    return plan;
  }

  std::vector<CombinationPlan::CaseFactor> cases_of(
      const std::vector<CombinationPlan::Term>& terms) {
    for (const CombinationPlan::Term& term : terms) {
      if (term.factor == 0.0) continue;
      if (term.source == Source::load_case) {
        case_sum_.add(term.place, term.factor);
      } else {
        for (const auto& inner : plans_[term.place].cases) {
          case_sum_.add(inner.load_case, term.factor * inner.factor);
        }
      }
    }
    return case_sum_.take();
  }

  std::vector<std::size_t> needed_by(const std::vector<CombinationPlan::Term>& terms) const {
    std::vector<std::size_t> needed;
    for (const CombinationPlan::Term& term : terms) {
      if (term.source == Source::load_case || term.factor == 0.0) continue;
      const std::vector<std::size_t>& inner = plans_[term.place].needed;
      needed.insert(needed.end(), inner.begin(), inner.end());
      needed.push_back(term.place);
    }
    const auto by_rank = [this](std::size_t a, std::size_t b) { return rank_[a] < rank_[b]; };
    std::sort(needed.begin(), needed.end(), by_rank);
    needed.erase(std::unique(needed.begin(), needed.end()), needed.end());
    return needed;
  }

  const Model& model_;
  std::vector<CombinationPlan> plans_;
  std::vector<std::size_t> rank_;  ///< by place: position in the order of building
  CaseSum case_sum_;
};

}  // namespace

bool is_seismic_case(const LoadCase& load_case) {
  return load_case.kind == LoadCaseKind::seismic_static ||
         load_case.kind == LoadCaseKind::response_spectrum ||
         load_case.kind == LoadCaseKind::eccentric_spectrum;
}

std::vector<CombinationPlan> compile_combinations(const Model& model) {
  return Compiler(model).run();
}

}  // namespace aluframe::model

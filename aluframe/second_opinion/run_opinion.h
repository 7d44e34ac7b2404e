#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <unordered_map>
#include <vector>

#include "aluframe/forces/inner_forces.h"
#include "aluframe/model/combinations.h"
#include "aluframe/model/members.h"
#include "aluframe/model/model.h"
#include "aluframe/second_opinion/element_opinion.h"
#include "aluframe/second_opinion/member_extremes.h"
#include "aluframe/second_opinion/piece_moments.h"
#include "aluframe/second_opinion/place.h"
#include "aluframe/second_opinion/unchecked_forces.h"

namespace aluframe::second_opinion {

/// The second opinion of one element over all combinations and places.
struct ElementSafe {
  std::optional<double> code;  ///< worst ratio of the checks; not finite where one is not
  double safe = 0.0;
  int item = 0;  ///< RALU_ITEM_TYPE of the safe ratio
  RuleSet rules;
  Place place;              ///< of the safe ratio
  double from_start = 0.0;  ///< mm from the element's start; 0 for the whole member
};

/// What the second opinion of an element came to.
struct ElementFound {
  std::optional<ElementSafe> safe;  ///< nothing: no ratio could be formed
  ElementUnchecked unchecked;
};

/// What the second opinion of a run came to beside that of its elements.
struct RunFound {
  std::vector<Unchecked> unchecked;  ///< kinds that were met
  /// Elements and load cases, by their places, of which nothing is known between the five positions
  /// that are given.
  std::vector<std::pair<std::size_t, std::size_t>> unknown_between;
  /// The same where it is estimated from the five positions alone.
  std::vector<std::pair<std::size_t, std::size_t>> estimated_between;
};

/// What restraints between the ends of members mean beyond what the checks take.
struct RestrainedMembers {
  std::map<model::Number, double> phi_b;  ///< of elements, ElementFacts::restrained_phi_b
  PartedElements parted;
};

/// Asks about every position of a check run while it goes on.
///
///     RunOpinion opinion(model, summary.computed);  // of compute_forces
///     for (every record of the run) opinion.checked(element, combination, min_side, record);
///     opinion.last()    // after the governing record of an element
///     opinion.result()  // in the end
class RunOpinion {
 public:
  /// `model` must outlive the object; its forces must be there.
  /// @param computed pairs whose forces the analysis has computed
  explicit RunOpinion(const model::Model& model, const forces::ComputedPairs& computed = {},
                      RestrainedMembers restrained = {});
  ~RunOpinion();
  RunOpinion(const RunOpinion&) = delete;
  RunOpinion& operator=(const RunOpinion&) = delete;

  /// A record of the run, while its host is bound: combination 0 is the governing one, which ends
  /// the element.
  void checked(std::uint32_t element, std::uint32_t combination, int min_side,
               const T_RALU_D& record);
  /// Of the element that the last governing record has ended.
  const ElementFound& last() const { return last_; }
  /// What an earlier run has found at an element that is not asked about again.
  void take_up(const std::vector<Unchecked>& of_element) { unchecked_.add(of_element); }

  RunFound result() const;

 private:
  struct Current;

  void start(std::uint32_t element);
  void finish(const T_RALU_D& governing);
  void ask_positions(ElementOpinion& opinion, const Place& place, const model::CaseForces& forces,
                     const T_RALU_D& record);
  void ask_between(ElementOpinion& opinion, const Place& place, const model::CaseForces& forces);
  void ask_member(ElementOpinion& opinion, const Place& place, const model::CaseForces& forces);
  std::array<double, 2> piece_factors(const LargestForces& largest) const;
  void ask_for_torsion_above(double stress);
  void keep(const SafeRatio& ratio, const Place& place);
  AluDgnSectForce section_force(const Place& place) const;
  ElementFacts facts_of(const MemberChain& chain, const model::Element& element) const;
  AluDgnEndForce end_moments(const Place& place, const model::CaseForces& own) const;

  const model::Model& model_;
  const RestrainedMembers restrained_;
  model::CombinationEvaluator evaluator_;
  model::Connectivity connectivity_;
  std::vector<bool> is_seismic_;  ///< by place of the combination
  MemberExtremes extremes_;
  forces::InnerForces inner_;
  std::vector<forces::PlaceForces> places_;  ///< kept, so that a record allocates nothing
  Engine engine_;
  std::unique_ptr<Current> current_;
  AluDgnEndForce end_;  ///< of the member, for the record at hand
  UncheckedForces unchecked_;
  ElementFound last_;
  RunFound result_;
};

}  // namespace aluframe::second_opinion

#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <map>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "aluframe/model/combinations.h"
#include "aluframe/second_opinion/piece_moments.h"

namespace aluframe::second_opinion {

/// Elements that the checks take as one member, from its start to its end.
struct MemberChain {
  std::vector<std::size_t> elements;  ///< places in the model
  std::vector<bool> reversed;         ///< the element runs against the member
};

/// Largest forces of a combination over one member, and its end moments. N and N·mm.
struct LargestForces {
  double n = 0.0;       ///< the largest compression, negative; 0: none is compressed
  double my_max = 0.0;  ///< the largest My, not below 0
  double my_min = 0.0;  ///< the smallest My, not above 0
  double mz = 0.0;      ///< the largest |Mz|
  /// Moments grow between the ends of the member, by loads or by what frames in there.
  bool has_span_moments = false;
  /// About y and z, where restraints part the member: the largest equivalent moment of its pieces,
  /// PieceMoments; else 0.
  std::array<double, 2> piece_moments{};

  /// The least equivalent moment factors about y and z that the pieces of the member call for, so
  /// that they times the largest moments are the equivalent ones; 0 without pieces or moments.
  std::array<double, 2> piece_factors() const;

  template <class SixForces>
  void add(const SixForces& at);
};

template <class SixForces>
void LargestForces::add(const SixForces& at) {
  // N, Fy, Fz, Mx, My, Mz.
  n = std::min(n, static_cast<double>(at[0]));
  my_max = std::max(my_max, static_cast<double>(at[4]));
  my_min = std::min(my_min, static_cast<double>(at[4]));
  mz = std::max(mz, std::fabs(static_cast<double>(at[5])));
}

/// Finds the largest forces of members. Only elements with the section and material of the asked
/// one count: what another section carries says nothing about it.
class MemberExtremes {
 public:
  /// All must outlive the object.
  MemberExtremes(const model::Model& model, const model::CombinationEvaluator& evaluator,
                 const PartedElements& parted)
      : model_(model), evaluator_(evaluator), parted_(parted) {}

  /// @param element place in the model, one of the member's
  /// @param own its forces for the combination
  LargestForces of(const MemberChain& member, std::size_t element, model::Number combination,
                   model::Side side, const model::CaseForces& own);
  /// An element of the member asks no more; after its last one nothing of it is kept.
  void finished_element(const MemberChain& member);

 private:
  /// Combination, side, section and material.
  using Key = std::tuple<model::Number, int, model::Number, model::Number>;
  /// What is known of a member until all its elements are done.
  struct Known {
    std::map<Key, LargestForces> forces;
    std::size_t elements_done = 0;
  };

  bool is_alike(const model::Element& a, const model::Element& b) const;
  LargestForces gather(const MemberChain& member, std::size_t element, model::Number combination,
                       model::Side side) const;

  const model::Model& model_;
  const model::CombinationEvaluator& evaluator_;
  const PartedElements& parted_;
  std::unordered_map<std::size_t, Known> known_;  ///< by the member's first element
};

}  // namespace aluframe::second_opinion

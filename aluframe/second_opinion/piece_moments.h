#pragma once

#include <array>
#include <map>
#include <optional>
#include <vector>

#include "aluframe/model/combinations.h"
#include "aluframe/model/model.h"

namespace aluframe::second_opinion {

/// An element of a member whose restraints part it into pieces that buckle by themselves. Of both
/// axes: y, z.
struct PartedElement {
  /// Where pieces meet in it: shares of the element's length from its start, in any order. Where
  /// they meet at a node of two elements of the member, one of both has it.
  std::array<std::vector<double>, 2> at;
  /// Moments of this sign compress the side of the member that they compress in its first element.
  std::array<double, 2> sign{1.0, 1.0};
  /// The checks have the length of a piece for the element.
  std::array<bool, 2> is_shortened{};
};

/// Elements by their numbers; those of other members are not there.
using PartedElements = std::map<model::Number, PartedElement>;

/// Equivalent moments of the pieces of a member about one axis: of each piece what a moment of the
/// same size at both of its ends would do to it. Moments come in the order of the member, as N·mm.
///
///     PieceMoments moments;
///     moments.add(element_forces, component, parted.at[axis], parted.sign[axis], is_reversed);
///     moments.largest()
class PieceMoments {
 public:
  /// One element of the member, with its forces at five positions or, without inner ones, at its
  /// ends.
  /// @param at where pieces meet in it, by shares of its length from its start
  void add(const model::CaseForces& forces, std::size_t component, const std::vector<double>& at,
           double sign, bool is_reversed);

  /// The largest of all pieces: 0.6·M1 + 0.4·M2 of the ends of a piece, |M1| >= |M2|
  /// (GB 50429-2007, chapter 8), or the largest moment in it where that exceeds both.
  double largest();

 private:
  void take(double moment);
  void end_piece(double moment);

  std::optional<double> start_;  ///< of the piece at hand
  double end_ = 0.0;             ///< the last moment that was met
  double inner_ = 0.0;           ///< the largest magnitude in it
  double largest_ = 0.0;
};

}  // namespace aluframe::second_opinion

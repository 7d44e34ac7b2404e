#include "aluframe/run/whole_member.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace aluframe::run {

namespace {

using restraints::BucklingPart;
using restraints::Flange;
using restraints::LateralHold;
using restraints::LateralLayout;
using restraints::LateralSegment;
using restraints::Segment;

/// Moments of a twentieth of the buckling load need no second look: a piece's coefficient is for
/// all combinations, so that one which hardly loads the member must not spoil it.
constexpr double far_from_buckling = 20.0;
/// Pieces that promise the same to within this govern together.
constexpr double together = 1e-2;

/// The largest moment that compresses the flange in what a piece and an element share.
double largest_moment(const restraints::ElementMoments& moments, const Segment& piece,
                      Flange compressed) {
  const double sign = compressed == Flange::top ? 1.0 : -1.0;
  double largest = 0.0;
  for (std::size_t i = 0; i + 1 < moments.at.size(); ++i) {
    const auto &left = moments.at[i], &right = moments.at[i + 1];
    if (!piece.overlaps({left[0], right[0]})) continue;
    for (const double place : {std::max(left[0], piece.start), std::min(right[0], piece.end)}) {
      const double share = (place - left[0]) / (right[0] - left[0]);
      largest = std::max(largest, sign * std::lerp(left[1], right[1], share));
    }
  }
  return largest;
}

/// The load factor up to which a piece promises to be stable by itself.
double promised(const LateralSegment& piece, const std::vector<BucklingPart>& parts,
                Flange compressed) {
  double factor = std::numeric_limits<double>::infinity();
  for (const BucklingPart& part : parts) {
    const double moment = largest_moment(part.moments, piece.segment, compressed);
    if (!(moment > 0.0)) continue;
    const double critical =
        restraints::critical_moments(part.section, compressed, piece.segment.length()).smaller();
    factor = std::min(factor, critical / moment);
  }
  return factor;
}

std::vector<LateralHold> all_holds(const std::vector<restraints::HeldPlace>& places,
                                   const std::vector<restraints::ElementMoments>& moments,
                                   std::vector<LateralHold> holds, double noise) {
  for (const restraints::HeldPlace& place : places) {
    LateralHold hold{.at = place.at,
                     .sideways = false,
                     .twist = (place.parts & model::twist_part) != 0,
                     .rotation = false,
                     .top = (place.parts & model::top_part) != 0,
                     .bottom = (place.parts & model::bottom_part) != 0};
    if (place.compressed_flange) {
      const auto compressed = restraints::compressed_at(moments, place.at, noise);
      hold.top = hold.top || compressed == Flange::top;
      hold.bottom = hold.bottom || compressed == Flange::bottom;
    }
    holds.push_back(hold);
  }
  return holds;
}

}  // namespace

std::vector<BoundPiece> bound_by_member(const LateralLayout& layout,
                                        const std::vector<BucklingPart>& parts,
                                        const std::vector<restraints::HeldPlace>& places,
                                        const std::vector<LateralHold>& frame_holds, double noise) {
  struct Promise {
    const LateralSegment* piece;
    Flange compressed;
    double factor;
  };
  const double length = parts.back().moments.stretch.end;
  std::vector<Promise> promises;
  double least = far_from_buckling;
  for (const LateralSegment& piece : layout.segments) {
    // These stay as the checks have them.
    if (piece.is_free || piece.segment == Segment{0.0, length}) continue;
    for (const Flange flange : {Flange::top, Flange::bottom}) {
      promises.push_back({&piece, flange, promised(piece, parts, flange)});
      least = std::min(least, promises.back().factor);
    }
  }
  if (!(least < far_from_buckling)) return {};
  std::vector<restraints::ElementMoments> moments;
  for (const BucklingPart& part : parts) moments.push_back(part.moments);
  const restraints::MemberBuckling member(parts, all_holds(places, moments, frame_holds, noise));
  const double critical = member.factor_below(least);
  std::vector<BoundPiece> bound;
  for (const auto& [piece, compressed, factor] : promises) {
    if (factor > least * (1.0 + together) || !(critical < least)) continue;
    bound.push_back({piece->segment, compressed, critical / factor});
  }
  return bound;
}

}  // namespace aluframe::run

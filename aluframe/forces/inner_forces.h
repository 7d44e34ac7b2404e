#pragma once

#include <array>
#include <span>
#include <vector>

#include "aluframe/forces/bowed_line.h"
#include "aluframe/forces/load_sets.h"
#include "aluframe/forces/span_changes.h"
#include "aluframe/forces/weights.h"
#include "aluframe/model/combinations.h"
#include "aluframe/model/model.h"

namespace aluframe::forces {

/// Forces of a section between the ends of an element.
struct PlaceForces {
  double x = 0.0;                  ///< mm from the start
  double fraction = 0.0;           ///< x over the length of the element
  std::array<double, 6> forces{};  ///< N, Fy, Fz, Mx, My, Mz, N and N·mm, local axes
};

/// The side of a place where a load acts.
enum class PlaceSide { towards_start, towards_end };

/// Exact forces between the five positions, where they may be worse than at any of them.
///
/// Built once from the loads of a model, which must outlive it; const and safe to use from several
/// threads. Forces follow by statics from those at the start of the element and the loads between
/// its ends; in second order moments follow from the deflection that agrees with the five
/// positions. Where given forces of a load case do not follow from the loads of the model, a
/// distributed load stands for what they show, linear between the five positions.
///
///     const InnerForces inner(model, summary.computed);  // of compute_forces
///     std::vector<PlaceForces> places;
///     inner.peaks(element, 7, model::Side::maximum, *five, weights, places);
class InnerForces {
 public:
  /// @param computed pairs whose forces follow from the loads; others are compared with these
  explicit InnerForces(const model::Model& model, const ComputedPairs& computed = {});

  /// Pairs whose given forces show that something acts between the ends but not what, such as the
  /// unsigned maxima of a response spectrum. Nothing is found for combinations with them.
  std::span<const SpanChanges::Pair> unknown() const { return changes_.unknown(); }
  /// Pairs whose given forces do not follow from the model's loads, so that peaks between the five
  /// positions are those of an estimated load.
  std::span<const SpanChanges::Pair> estimated() const { return changes_.estimated(); }

  /// Whether the element can have peaks: some load case loads it between its ends, or its axial
  /// force bends it further.
  bool has_peaks(std::size_t element) const { return changes_.any(element) || is_bowed(element); }

  /// Appends to `out`, in ascending order, the places of an element between its five positions
  /// - where a force or moment acts, both of its sides (also the inner side of an end), and
  /// - where a component, or wN·N ± wMy·My ± wMz·Mz of any of the weights, has an extreme beyond
  ///   its values at the five positions; a millionth counts as rounding of those.
  /// What follows from those components linearly is therefore nowhere larger than at the five
  /// positions and these places. Nothing for trusses and where the inner positions are unknown.
  /// A combination with two sides has the extremes of its parts, at the places of the parts by
  /// themselves; nothing in second order, where the forces of the parts are not kept.
  /// @param element its place in the model's table
  /// @param five the combination's forces, as the evaluator of combinations gives them
  void peaks(std::size_t element, model::Number combination, model::Side side,
             const model::CaseForces& five, std::span<const Weights> weights,
             std::vector<PlaceForces>& out) const;
  /// The same for load cases times factors that act together, on elements that are straight before.
  void peaks(std::size_t element, std::span<const model::CombinationPlan::CaseFactor> cases,
             const model::CaseForces& five, std::span<const Weights> weights,
             std::vector<PlaceForces>& out) const;

  /// Forces at x, mm from the start, under load cases times factors that act together, of an
  /// element that is straight before.
  std::array<double, 6> forces_at(std::size_t element,
                                  std::span<const model::CombinationPlan::CaseFactor> cases,
                                  const model::CaseForces& five, double x,
                                  PlaceSide side = PlaceSide::towards_start) const;

 private:
  struct Place {
    double x = 0.0;
    PlaceSide side = PlaceSide::towards_start;
    auto operator<=>(const Place&) const = default;
  };

  InnerForces(const model::Model& model, const analysis::Frame& frame,
              const ComputedPairs& computed);

  /// Whether the axial force acts on the deflection.
  bool is_bowed(std::size_t element) const {
    return !planes_.empty() && planes_[element][0].ei > 0.0;
  }
  bool is_straight(std::size_t element, const model::CaseForces& five) const;
  BowedLine bowed_line(std::size_t element,
                       std::span<const model::CombinationPlan::CaseFactor> cases,
                       const model::CaseForces& five, std::span<const FactoredChange> changes,
                       const model::InitialCurvatures& initial) const;
  void peaks_of_sum(std::size_t element, std::span<const model::CombinationPlan::CaseFactor> cases,
                    const model::InitialCurvatures& initial, const model::CaseForces& five,
                    std::span<const Weights> weights, std::vector<PlaceForces>& out) const;
  bool is_known(std::size_t element,
                std::span<const model::CombinationPlan::CaseFactor> cases) const;
  std::vector<Place> envelope_places(std::size_t element, const model::CombinationPlan& plan,
                                     std::span<const Weights> weights) const;
  void envelope_peaks(std::size_t element, const model::CombinationPlan& plan, model::Side side,
                      std::span<const Weights> weights, std::vector<PlaceForces>& out) const;

  const model::Model& model_;
  std::vector<model::CombinationPlan> plans_;
  SpanChanges changes_;
  std::vector<BowedLine::Planes> planes_;  ///< by element, in second order
};

}  // namespace aluframe::forces

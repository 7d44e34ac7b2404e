#pragma once

#include <array>
#include <span>
#include <vector>

#include "aluframe/forces/load_sets.h"
#include "aluframe/forces/span_changes.h"
#include "aluframe/model/combinations.h"
#include "aluframe/model/model.h"

namespace aluframe::forces {

/// Weights of a sum of N, My and Mz, such as a stress: 1/A, 1/Wy and 1/Wz.
struct Weights {
  double n = 0.0, my = 0.0, mz = 0.0;
};

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
/// its ends. Where given forces of a load case do not follow from the loads of the model, a
/// distributed load stands for what they show, linear between the five positions.
///
///     const InnerForces inner(model);
///     std::vector<PlaceForces> places;
///     inner.peaks(element, 7, model::Side::maximum, *five, weights, places);
class InnerForces {
 public:
  explicit InnerForces(const model::Model& model);

  /// Pairs whose given forces show that something acts between the ends but not what, such as the
  /// unsigned maxima of a response spectrum. Nothing is found for combinations with them.
  std::span<const SpanChanges::Pair> unknown() const { return changes_.unknown(); }

  /// Whether any load case loads the element between its ends; if not it has no peaks there.
  bool has_loads(std::size_t element) const { return changes_.any(element); }

  /// Appends to `out`, in ascending order, the places of an element between its five positions
  /// - where a force or moment acts, both of its sides (also the inner side of an end), and
  /// - where a component, or wN·N ± wMy·My ± wMz·Mz of any of the weights, has an extreme beyond
  ///   its values at the five positions; a millionth counts as rounding of those.
  /// What follows from those components linearly is therefore nowhere larger than at the five
  /// positions and these places. Nothing for trusses and where the inner positions are unknown.
  /// Nothing in second order.
  /// A combination with two sides has the extremes of its parts, at the places of the parts by
  /// themselves.
  /// @param element its place in the model's table
  /// @param five the combination's forces, as the evaluator of combinations gives them
  void peaks(std::size_t element, model::Number combination, model::Side side,
             const model::CaseForces& five, std::span<const Weights> weights,
             std::vector<PlaceForces>& out) const;
  /// The same for load cases times factors that act together.
  void peaks(std::size_t element, std::span<const model::CombinationPlan::CaseFactor> cases,
             const model::CaseForces& five, std::span<const Weights> weights,
             std::vector<PlaceForces>& out) const;

  /// Forces at x, mm from the start, under load cases times factors that act together.
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

  bool is_known(std::size_t element,
                std::span<const model::CombinationPlan::CaseFactor> cases) const;
  std::vector<Place> envelope_places(std::size_t element, const model::CombinationPlan& plan,
                                     std::span<const Weights> weights) const;
  void envelope_peaks(std::size_t element, const model::CombinationPlan& plan, model::Side side,
                      std::span<const Weights> weights, std::vector<PlaceForces>& out) const;

  const model::Model& model_;
  std::vector<model::CombinationPlan> plans_;
  SpanChanges changes_;
};

}  // namespace aluframe::forces

#pragma once

#include "aluframe/analysis/analyse.h"
#include "aluframe/analysis/element_shape.h"
#include "aluframe/analysis/imperfections.h"
#include "aluframe/analysis/initial_slope.h"

namespace aluframe::analysis {

struct SecondOrderOptions {
  int most_iterations = 20;
  /// Iterations end when no axial force changes by more than this share of the largest.
  double tolerance = 1e-6;
  Options limits = {};
  Imperfections imperfections = {};
  bool with_shapes = false;  ///< whether the deflections between the nodes are wanted too
};

/// Growth beyond which displacements are no longer small. A frame whose stiffness falls evenly with
/// its displacement has lost twice as much of it: a tenth, as much as second order itself is
/// usually granted; a shallow truss of two bars reaches it below half of the load that snaps it
/// through.
inline constexpr double noticeable_growth = 0.05;

/// So many times as far a frame is displaced to see whether it flattens. A shallow truss of two
/// bars does from below half of the load that snaps it through; frames that sway do not, because
/// their elements turn together.
inline constexpr double flattening_times = 8.0;

struct SecondOrderResult {
  CaseResult result;
  int iterations = 0;              ///< solutions beyond the one of first order
  double change = 0.0;             ///< last change of an axial force, as a share of the largest
  InitialCurvatures initial = {};  ///< that the imperfections give the elements
  /// How the elements are displaced across their axes, from the shape that they have unloaded; each
  /// is approached to 1e-7 of its largest deflection between loads. Empty unless asked for.
  std::vector<ElementShape> shapes = {};
  /// Part of the displacements that equilibrium at the displaced nodes would add to them, by one
  /// step from here: what second order leaves out. 0 where large displacements were followed.
  double growth = 0.0;
  /// Whether a part of the frame would have no stiffness left, displaced `flattening_times` as far:
  /// it may be small beside what moves elsewhere.
  bool flattens = false;
  /// What moves in the growth, when it is above `noticeable_growth`, or in what flattens.
  std::string growing = {};
  /// "in equilibrium after 3 iterations, axial forces certain to 2.0e-09"
  std::string message() const;
};

/// Analysis of one combination in second order: axial forces act on the displaced frame, on the
/// slope of the chords (P-Delta) and on the deflection between the nodes (P-delta). Displacements
/// stay small, and so do the angles: forces are along the axes of the undisplaced elements.
/// Elements do not shorten by bowing, and twisting by axial force is left out.
///
/// Imperfections are a shape without stress that the frame has before it is loaded: the axial
/// forces act on its slope as they do on that of the deflection. Displacements count from there.
/// Signs are taken so that everything adds to what the loads do.
///
/// Superposition does not hold: analyse the combined loads (`combine`), not the cases.
///
/// Loads that the frame cannot carry are a problem that names what buckles.
Result<SecondOrderResult> analyse_second_order(const Frame& frame, const LoadCase& loads,
                                               const SecondOrderOptions& options = {});

}  // namespace aluframe::analysis

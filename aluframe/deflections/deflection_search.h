#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "aluframe/deflections/spans.h"
#include "aluframe/forces/compute_forces.h"
#include "aluframe/forces/load_sets.h"

namespace aluframe::deflections {

/// Loads that act together, and the combination that they are of.
struct State {
  model::Number combination = 0;
  forces::LoadSet loads;
};

/// The largest magnitude of a deflection, with its sign, and where and when it is reached.
struct Extreme {
  double value = 0.0;             ///< mm
  std::size_t element = 0;        ///< place in the model's table
  double x = 0.0;                 ///< mm from the start of the element
  model::Number combination = 0;  ///< 0: nothing moves under any
};

/// Of one span along one axis of its elements.
struct AxisDeflection {
  Extreme relative;  ///< as its kind counts it
  Extreme absolute;  ///< against where it was unloaded
};

/// Of one limit for one node.
struct NodeDisplacement {
  std::size_t limit = 0;  ///< place in the model's displacement limits
  std::size_t node = 0;   ///< place in the model's table
  double value = 0.0;     ///< mm; signed along an axis, else a magnitude
  model::Number combination = 0;
};

struct Drift {
  double value = 0.0;  ///< mm, a magnitude
  model::Number combination = 0;
};

/// A combination under which some displacements are not known, and why.
struct Unknown {
  model::Number combination = 0;
  std::string reason;
};

struct Deflections {
  std::vector<Span> spans;
  std::vector<std::array<AxisDeflection, 2>> of_spans;  ///< along local y and z, by span
  std::vector<Drift> drifts;                            ///< by limit
  std::vector<NodeDisplacement> nodes;                  ///< by limit, then as it lists them
  std::vector<Unknown> unknown;
};

/// Asked between steps of the search; when it says no, the rest is not looked at, and what is found
/// is of no use.
using GoesOn = std::function<bool(int done, int total)>;

/// The largest deflections of all spans, and what the model's limits of drifts and displacements
/// ask for, over the states.
///
/// In first order shapes are exact (analysis::DisplacedElement), and so are their extremes: the
/// polynomials of the load cases add up in Bernstein form, whose coefficients bound them, and where
/// the bound exceeds what was found the extreme is looked for. In second order each state is
/// analysed by itself; where forces follow large displacements so do drifts and limited nodes, and
/// the deflections of spans, which turn with their ends, are those of second order.
///
/// Of deflections that differ by rounding alone the first is told. The model's forces, given or
/// computed, are not read.
///
/// @param known displacements of the load cases by a linear analysis of the same model; null, or
/// without one of those that the states need: it is analysed here
Deflections find_deflections(const model::Model& model, const std::vector<State>& states,
                             const GoesOn& goes_on = {},
                             const forces::CaseDisplacements* known = nullptr);

}  // namespace aluframe::deflections

#pragma once

#include <algorithm>
#include <cmath>
#include <span>

#include "aluframe/analysis/assembly.h"
#include "aluframe/analysis/element_loads.h"

namespace aluframe::analysis {

/// Six values of every node, global axes.
using NodeValues = std::vector<double>;

/// The twelve values of an element's two nodes.
Vector12 at_ends(const Element& element, const NodeValues& values);
void add_at_ends(const Element& element, const Vector12& part, NodeValues& values);

/// Loads that the case puts on nodes, and displacements that it prescribes to supports.
NodeValues nodal_loads(const Frame& frame, const LoadCase& load_case);
NodeValues settlements(const Frame& frame, const LoadCase& load_case);

/// End forces of a clamped element under its loads, local axes.
struct ClampedEnds {
  Vector12 condensed;   ///< with its releases
  Vector12 unreleased;  ///< as if nothing were released
};

/// Gives the clamped ends of the element at a place.
using ClampedSource = std::function<void(std::size_t, ClampedEnds&)>;
ClampedSource clamped_source(const Frame& frame, const LoadsByElement& loads);

/// Largest force and largest moment of several.
struct Norms {
  double force = 0.0, moment = 0.0;

  /// @param direction 0 to 2 of a force, 3 to 5 of a moment, and so on by sixes
  void include(std::size_t direction, double value) {
    double& norm = direction % 6 < 3 ? force : moment;
    norm = std::max(norm, std::abs(value));
  }
};

/// All loads of a case as loads on nodes, and how large they are. Their size counts what clamped
/// elements and prescribed displacements would exert before releases and sums take from it: a
/// temperature that releases let go free is a load of that size all the same.
struct EquivalentLoads {
  NodeValues values;
  Norms size;
};

/// Given loads, those that hold clamped elements turned round, and those of prescribed
/// displacements.
/// @param moved displacements with nothing but the prescribed ones
EquivalentLoads equivalent_loads(const Frame& frame, std::span<const Geometry> geometry,
                                 const LoadCase& load_case, const NodeValues& moved,
                                 const StiffnessSource& stiffness, const ClampedSource& clamped);

}  // namespace aluframe::analysis

#pragma once

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

/// End forces of the clamped element under its loads, its releases condensed.
using ClampedSource = std::function<void(std::size_t, Vector12&)>;
ClampedSource clamped_source(const Frame& frame, const LoadsByElement& loads);

/// All loads of a case as loads on nodes: given ones, those that hold clamped elements turned
/// round, and those of prescribed displacements.
/// @param moved displacements with nothing but the prescribed ones
NodeValues equivalent_loads(const Frame& frame, std::span<const Geometry> geometry,
                            const LoadCase& load_case, const NodeValues& moved,
                            const StiffnessSource& stiffness, const ClampedSource& clamped);

}  // namespace aluframe::analysis

#pragma once

#include "aluframe/analysis/assembly.h"

namespace aluframe::analysis {

/// What an element's end forces become where its nodes are displaced, less what second order takes
/// them for, global axes, acting ON the element: it grows longer by turning, and all its forces
/// turn with its chord. Second order has the turning of the axial force alone.
/// @param stiffness under its axial force
/// @param thermal axial force that its temperature exerts on it when its ends are fixed, N, tension
///        positive
/// @param u displacements of its nodes, global axes
Vector12 change_by_displacement(const Geometry& geometry, const ElementStiffness& stiffness,
                                double thermal, const Vector12& u);

/// The axes of an element whose chord turns.
/// @param apart by which its end moves more than its start, global axes, mm
Axes turned_with_chord(const Geometry& geometry, const Eigen::Vector3d& apart);

/// Part of the displacements by which those of second order grow once the geometry of the displaced
/// nodes counts; less than 0 where it stiffens the frame.
/// @param displacements of second order, six values a node
/// @param growth what the changes above displace further
double growth_share(std::span<const double> displacements, std::span<const double> growth);

}  // namespace aluframe::analysis

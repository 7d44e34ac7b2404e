#pragma once

#include <span>

#include "aluframe/analysis/imperfections.h"
#include "aluframe/analysis/initial_slope.h"
#include "aluframe/analysis/local_axes.h"

namespace aluframe::analysis {

/// The frame leans by so many rad along X (0) or Y (1): every point is displaced by its height
/// times the lean, so that elements turn by what the heights of their ends differ.
InitialShape shape_of_sway(const Frame& frame, std::span<const Geometry> geometry,
                           std::size_t direction, double lean);

/// Chains with every element in one: those given, then the others each alone.
std::vector<std::vector<std::size_t>> all_members(const Frame& frame,
                                                  const Imperfections& imperfections);

/// A member bowed to a parabola from one end to the other, along y (0) or z (1) of its first
/// element; of several elements, each has its piece, and other elements that meet them stay as they
/// are.
/// @param bow in the middle over the length of the member
InitialShape shape_of_bow(const Frame& frame, std::span<const Geometry> geometry,
                          std::span<const std::size_t> member, std::size_t axis, double bow);

}  // namespace aluframe::analysis

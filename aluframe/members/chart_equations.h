#pragma once

/// Effective length factor of a column between two elastic restraints: the equations behind the
/// alignment charts, solved.
///
/// Both take G of the two ends, the stiffness EI/L of the columns that meet there over that of the
/// beams that restrain them (times their far-end factors): 0 clamped, infinity hinged. G is not
/// negative.
///
/// Source: T. C. Kavanagh, "Effective length of framed columns", Trans. ASCE 127 (1962) II;
/// AISC 360-16 commentary, appendix 7.2, equations C-A-7-1 and C-A-7-2.
namespace aluframe::members {

/// Largest factor that is given. A column that is hinged at both ends and may sway has none at all
/// (its factor is infinite); with 10 its slenderness fails every limit, which is what is to be
/// seen.
inline constexpr double largest_factor = 10.0;

/// Ends that cannot move sideways:
///     GA·GB/4·u² + (GA + GB)/2·(1 − u/tan u) + 2·tan(u/2)/u − 1 = 0,  u = π/K.
/// @return K, 0.5 (both clamped) to 1 (both hinged)
double non_sway_factor(double ga, double gb);

/// Ends that move sideways freely:
///     (GA·GB·u² − 36)/(6·(GA + GB)) − u/tan u = 0,  u = π/K.
/// An end at which nothing holds the column but its own continuity is free: G = infinity.
/// @return K, 1 (both clamped) to `largest_factor`
double sway_factor(double ga, double gb);

}  // namespace aluframe::members

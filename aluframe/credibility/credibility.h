#pragma once

#include <optional>
#include <string>
#include <vector>

#include "aluframe/model/model.h"

/// Magnitudes of a model that are hardly meant: most often a number in another unit than the one
/// that its file declares, or an angle in radians. Nothing of it is a fault; a remark says where it
/// stands, what was found, what is usual, and what may be the cause.
namespace aluframe::credibility {

/// Spans between these are usual, mm.
inline constexpr double shortest_span = 100.0;
inline constexpr double longest_span = 500e3;
/// Walls of aluminium sections are between these, mm.
inline constexpr double thinnest_plate = 0.1;
inline constexpr double thickest_plate = 100.0;
/// Moduli of metals are between these, N/mm², and their densities, kg/mm³.
inline constexpr double softest_metal = 10e3;
inline constexpr double stiffest_metal = 500e3;
inline constexpr double lightest_metal = 1e-6;
inline constexpr double heaviest_metal = 25e-6;
/// Forces over this many times what a section carries at its ultimate strength are no forces that
/// anybody designs for.
inline constexpr double times_the_strength = 1000.0;

/// All magnitudes of one kind that are not credible.
struct Doubt {
  std::vector<model::Number> elements;   ///< that it concerns, ascending
  std::optional<model::Number> element;  ///< the worst of them
  std::string text;                      ///< one line
};

/// All doubts, at most one of each kind. The model must be consistent, as its reader leaves it,
/// with its members and the forces that are known of its load cases.
std::vector<Doubt> doubts(const model::Model& model);

/// The second moment of area of a section that has an area A, and that reaches to `above` and
/// `below` of its centroid: at most A·above·below, with all area in the two outermost fibres
/// (no distribution between two bounds has a larger variance).
double largest_inertia(double area, double above, double below);
/// At least that of a strip over the whole width along the axis, A³/(12·width²): any other
/// distribution puts area farther from the axis. A width of 0 gives infinity.
double smallest_inertia(double area, double width);

}  // namespace aluframe::credibility

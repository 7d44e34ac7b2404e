#pragma once

#include <cmath>
#include <functional>
#include <numbers>
#include <stdexcept>
#include <vector>

#include "tests/support/buckle.h"

namespace aluframe::analysis::verification {

inline constexpr double pi = std::numbers::pi;
inline constexpr std::array<bool, 6> clamped{true, true, true, true, true, true};

/// A frame in the plane XZ and its loads. Sections are given by their I in that plane; across it
/// they are a thousand times as stiff. Elements do not shorten: their area is what makes axial
/// strains 1e-9 of the strains of bending.
struct PlaneFrame {
  static constexpr double e = 70000.0;
  Frame frame;
  LoadCase loads;

  std::size_t node(double x, double z, std::array<bool, 3> fixed = {}) {
    const auto place = frame.nodes.size();
    frame.nodes.push_back({static_cast<Number>(place + 1), x, 0.0, z});
    frame.supports.push_back({place, {fixed[0], true, fixed[1], true, fixed[2], true}});
    return place;
  }
  Element& beam(std::size_t start, std::size_t end, double inertia) {
    Element element;
    element.number = static_cast<Number>(frame.elements.size() + 1);
    element.start = start;
    element.end = end;
    element.stiffness = {
        .e = e, .g = 27000.0, .area = 1e7, .it = 1e6, .iyy = 1e3 * inertia, .izz = inertia};
    element.reference = Vector3{0, 1, 0};  // y lies in the plane, so that z bends it
    return frame.elements.emplace_back(element);
  }
  Element& truss(std::size_t start, std::size_t end, double inertia) {
    Element& element = beam(start, end, inertia);
    element.kind = ElementKind::truss;
    return element;
  }
  void press(std::size_t node, double force) { loads.nodal.push_back({node, {0, 0, -force}}); }
  double factor() const {
    const BucklingResult found = buckle(frame, loads);
    if (found.modes.empty()) throw std::runtime_error("does not buckle");
    return found.modes[0].factor;
  }
};

/// Restraints of a node of a plane frame: along X, along Z, against rotation.
using Restraint = std::array<bool, 3>;
inline constexpr Restraint clamped_base{true, true, true}, hinged_base{true, true, false},
    hinged_top{true, false, false}, guided_top{false, false, true}, clamped_top{true, false, true},
    free_node{};

/// The root of a function that changes its sign once between two places, by bisection.
inline double root_between(double low, double high, const std::function<double(double)>& f) {
  const bool rises = f(low) < 0.0;
  if (rises == (f(high) < 0.0)) throw std::runtime_error("no root is bracketed");
  for (int i = 0; i < 200; ++i) {
    const double middle = (low + high) / 2.0;
    ((f(middle) < 0.0) == rises ? low : high) = middle;
  }
  return (low + high) / 2.0;
}

/// Stability functions of a compressed column, u = sqrt(P/EI)·L, over EI/L (Livesley and Chandler,
/// Stability Functions for Structural Frameworks, 1956): the moment at an end turned by 1 while the
/// far end is clamped; what arrives there over that; and the moment when the far end is hinged.
inline double near_moment(double u) {
  return u * (std::sin(u) - u * std::cos(u)) / (2.0 - 2.0 * std::cos(u) - u * std::sin(u));
}
inline double carry_over(double u) {
  return (u - std::sin(u)) / (std::sin(u) - u * std::cos(u));
}
inline double near_moment_far_hinged(double u) {
  return u * u / (1.0 - u / std::tan(u));
}

}  // namespace aluframe::analysis::verification

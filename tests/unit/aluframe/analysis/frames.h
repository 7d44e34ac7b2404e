#pragma once

#include <gmock/gmock.h>

#include <cmath>
#include <stdexcept>

#include "aluframe/analysis/analyse.h"
#include "aluframe/analysis/local_axes.h"

namespace aluframe::analysis {

/// Places of the end forces and of the directions of a node.
enum Component { n, fy, fz, mx, my, mz };
enum Direction { dx, dy, dz, rx, ry, rz };

inline constexpr std::array<bool, 6> clamped{true, true, true, true, true, true};
inline constexpr std::array<bool, 6> pinned{true, true, true, false, false, false};

/// An aluminium section of odd numbers, all stiffnesses different; rigid in shear.
inline Stiffness plain_stiffness() {
  return {.e = 70000.0, .g = 27000.0, .area = 2500.0, .it = 3.1e5, .iyy = 9.3e6, .izz = 2.9e6};
}

/// The same with shear areas.
inline Stiffness shear_stiffness() {
  Stiffness s = plain_stiffness();
  s.ay = 1100.0;
  s.az = 700.0;
  return s;
}

/// Adds a node, numbered from 1. @return its place
inline std::size_t add_node(Frame& frame, double x, double y, double z) {
  const auto place = frame.nodes.size();
  frame.nodes.push_back({static_cast<Number>(place + 1), x, y, z});
  return place;
}

/// Adds an element, numbered from 1, between two places. @return the element
inline Element& add_element(Frame& frame, std::size_t start, std::size_t end,
                            const Stiffness& stiffness = plain_stiffness()) {
  Element element;
  element.number = static_cast<Number>(frame.elements.size() + 1);
  element.start = start;
  element.end = end;
  element.stiffness = stiffness;
  return frame.elements.emplace_back(element);
}

inline Element& add_truss(Frame& frame, std::size_t start, std::size_t end) {
  Element& element = add_element(frame, start, end);
  element.kind = ElementKind::truss;
  return element;
}

/// One element along X from the origin, clamped at its start.
inline Frame cantilever(double length, const Stiffness& stiffness = plain_stiffness()) {
  Frame frame;
  add_node(frame, 0, 0, 0);
  add_node(frame, length, 0, 0);
  add_element(frame, 0, 1, stiffness);
  frame.supports.push_back({0, clamped});
  return frame;
}

/// Result of one case; a problem ends the test.
inline CaseResult solved(const Frame& frame, const LoadCase& load_case) {
  auto result = analyse(frame, {&load_case, 1});
  if (const auto* problem = std::get_if<Problem>(&result)) throw std::runtime_error(problem->text);
  return std::get<Solution>(std::move(result)).cases.front();
}

/// The problem of one case; a result ends the test.
inline Problem problem_of(const Frame& frame, const LoadCase& load_case) {
  auto result = analyse(frame, {&load_case, 1});
  if (auto* problem = std::get_if<Problem>(&result)) return std::move(*problem);
  throw std::runtime_error("was analysed");
}

/// A float as close as single precision comes, measured by the largest number involved.
inline auto float_near(double expected, double size) {
  return testing::FloatNear(static_cast<float>(expected),
                            static_cast<float>(2e-6 * std::abs(size)));
}
/// A double as close as the solution of well-conditioned equations comes.
inline auto close_to(double expected) {
  return testing::DoubleNear(expected, 1e-9 * std::abs(expected) + 1e-300);
}

}  // namespace aluframe::analysis

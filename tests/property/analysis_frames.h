#pragma once

#include <rapidcheck.h>

#include <cmath>

#include "aluframe/analysis/analyse.h"
#include "aluframe/analysis/local_axes.h"

namespace aluframe::analysis {

/// A number between two bounds, in steps of a thousandth.
inline double number_between(double low, double high) {
  return low + (high - low) * *rc::gen::inRange(0, 1001) / 1000.0;
}

inline bool by_chance(int percent) {
  return *rc::gen::inRange(0, 100) < percent;
}

inline std::size_t place_below(std::size_t count) {
  return *rc::gen::inRange<std::size_t>(0, count);
}

inline Vector3 any_vector(double size) {
  return {number_between(-size, size), number_between(-size, size), number_between(-size, size)};
}

inline Stiffness any_stiffness() {
  return {.e = 70000.0,
          .g = 27000.0,
          .area = number_between(500, 5000),
          .ay = by_chance(50) ? number_between(200, 2000) : 0.0,
          .az = by_chance(50) ? number_between(200, 2000) : 0.0,
          .it = number_between(1e4, 1e6),
          .iyy = number_between(1e6, 2e7),
          .izz = number_between(1e6, 2e7)};
}

inline Element any_beam(std::size_t start, std::size_t end, Number number) {
  Element element;
  element.number = number;
  element.start = start;
  element.end = end;
  element.stiffness = any_stiffness();
  element.beta = number_between(-180, 180);
  element.density = 2.7e-6;
  element.expansion = 2.3e-5;
  return element;
}

/// A truss, or a beam some of whose end forces are released: it may rely on what holds its ends.
inline Element any_member(std::size_t start, std::size_t end, Number number) {
  Element element = any_beam(start, end, number);
  if (by_chance(30)) {
    element.kind = ElementKind::truss;
    return element;
  }
  // One of each pair, and of the bending planes one more: whatever the choice, the element is
  // restrained.
  for (const std::size_t place : {0U, 3U, 4U, 5U}) {
    if (by_chance(25)) element.released[by_chance(50) ? place : place + 6] = true;
  }
  for (const std::size_t place : {7U, 8U}) element.released[place] = by_chance(10);
  return element;
}

/// A connected frame of 2 to 7 nodes, metres apart. Beams without releases make a tree of it that
/// stands on a clamped node; further members are of any kind. Supports and springs are alike in all
/// directions, so that the frame may be turned.
inline Frame any_frame() {
  Frame frame;
  const auto count = *rc::gen::inRange<std::size_t>(2, 8);
  for (std::size_t i = 0; i < count; ++i) {
    // A step of its own for each node keeps any two of them apart.
    const double step = 1500.0 * static_cast<double>(i);
    frame.nodes.push_back({static_cast<Number>(i + 1), step + number_between(0, 1000),
                           number_between(-3000, 3000), number_between(-3000, 3000)});
  }
  const auto number = [&] { return static_cast<Number>(frame.elements.size() + 1); };
  for (std::size_t i = 1; i < count; ++i) {
    frame.elements.push_back(any_beam(place_below(i), i, number()));
  }
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t a = place_below(count), b = place_below(count);
    if (a != b) frame.elements.push_back(any_member(a, b, number()));
  }
  frame.supports.push_back({0, {true, true, true, true, true, true}});
  if (by_chance(50)) frame.supports.push_back({count - 1, {true, true, true}});
  if (by_chance(30)) {
    const double k = number_between(10, 1000), r = number_between(1e6, 1e9);
    frame.springs.push_back({place_below(count), {k, k, k, r, r, r}});
  }
  return frame;
}

inline LoadAxes any_axes() {
  return *rc::gen::element(LoadAxes::local, LoadAxes::global);
}

/// Loads of every kind but projected ones and self-weight, which have directions of their own.
inline LoadCase any_loads(const Frame& frame) {
  LoadCase loads;
  const auto element = [&] { return place_below(frame.elements.size()); };
  const auto some = [] { return *rc::gen::inRange(0, 4); };
  for (int i = 0; i < 3; ++i) {
    const Vector3 f = any_vector(5000), m = any_vector(3e6);
    loads.nodal.push_back({place_below(frame.nodes.size()), {f[0], f[1], f[2], m[0], m[1], m[2]}});
  }
  for (int i = some(); i > 0; --i) {
    const double a = number_between(0, 0.9), b = number_between(a, 1);
    loads.distributed.push_back({element(), any_axes(), any_vector(8), any_vector(8), a, b});
  }
  for (int i = some(); i > 0; --i) {
    const std::size_t on = element();
    const bool turns = frame.elements[on].kind == ElementKind::beam;
    loads.points.push_back({on, any_axes(), any_vector(5000), turns ? any_vector(3e6) : Vector3{},
                            number_between(0, 1)});
  }
  for (int i = some(); i > 0; --i) {
    loads.temperatures.push_back({element(), number_between(-40, 40), number_between(-30, 30),
                                  number_between(50, 300), number_between(-30, 30),
                                  number_between(50, 300)});
  }
  for (int i = some(); i > 0; --i) {
    loads.settlements.push_back({0, place_below(6), number_between(-0.01, 0.01)});
  }
  return loads;
}

/// Loads of every kind, with those that have directions of their own: projected ones and weight.
inline LoadCase any_loads_of_a_site(const Frame& frame) {
  LoadCase loads = any_loads(frame);
  loads.self_weight = any_vector(2);
  loads.distributed.push_back({place_below(frame.elements.size()), LoadAxes::projected,
                               any_vector(8), any_vector(8), number_between(0, 0.4),
                               number_between(0.5, 1)});
  return loads;
}

/// Results of all cases; a problem fails the property.
inline std::vector<CaseResult> solved(const Frame& frame, const std::vector<LoadCase>& cases) {
  auto result = analyse(frame, cases);
  if (const auto* problem = std::get_if<Problem>(&result)) RC_FAIL(problem->text);
  return std::get<Solution>(std::move(result)).cases;
}

/// Asserts that forces agree to what single precision keeps of the largest of their kind in the
/// case.
inline void assert_same_forces(const std::vector<ElementForces>& found,
                               const std::vector<ElementForces>& expected,
                               double tolerance = 2e-6) {
  RC_ASSERT(found.size() == expected.size());
  std::array<double, 2> largest{};
  for (const auto& element : expected) {
    for (const auto& at : element) {
      for (std::size_t i = 0; i < 6; ++i) {
        largest[i / 3] = std::max(largest[i / 3], std::abs(static_cast<double>(at[i])));
      }
    }
  }
  // Moments of a frame that carries axial forces only are rounding of force times length.
  largest[1] = std::max(largest[1], largest[0] * 1000.0);
  largest[0] = std::max(largest[0], largest[1] / 10000.0);
  for (std::size_t e = 0; e < expected.size(); ++e) {
    for (std::size_t p = 0; p < 5; ++p) {
      for (std::size_t i = 0; i < 6; ++i) {
        const double apart =
            std::abs(static_cast<double>(found[e][p][i]) - static_cast<double>(expected[e][p][i]));
        if (apart <= tolerance * largest[i / 3]) continue;
        RC_LOG() << "element " << e << " position " << p << " component " << i << ": found "
                 << found[e][p][i] << ", expected " << expected[e][p][i] << std::endl;
        RC_FAIL("forces differ");
      }
    }
  }
}

}  // namespace aluframe::analysis

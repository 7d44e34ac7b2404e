#include "aluframe/analysis/extended_element.h"

#include "aluframe/analysis/element_stiffness.h"

namespace aluframe::analysis {

namespace {

using Extended3 = std::array<Extended, 3>;

Extended3 three_at(const Extended12& all, std::size_t first) {
  return {all[first], all[first + 1], all[first + 2]};
}

Extended3 turned(const Axes& axes, const Extended3& global) {
  Extended3 local;
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t j = 0; j < 3; ++j) {
      local[i] += global[j] * axes(static_cast<int>(i), static_cast<int>(j));
    }
  }
  return local;
}

/// How the ends moved, local axes.
struct Moves {
  Extended3 apart;  ///< the end against the start
  Extended3 start_turn, end_turn;
};

Moves moves_of(const Axes& axes, const Extended12& moved) {
  Extended3 apart = three_at(moved, 6);
  for (std::size_t i = 0; i < 3; ++i) apart[i] = apart[i] - moved[i];
  return {turned(axes, apart), turned(axes, three_at(moved, 3)), turned(axes, three_at(moved, 9))};
}

/// Stiffness of one bending plane against the slopes of its ends and against `across`, the
/// deflection of the end against the start.
struct PlaneStiffness {
  double start = 0.0, mixed = 0.0, end = 0.0;
  Extended across_start, across_end, across;
};

/// By statics from the stiffness against rotations, so that the rest holds to the last digit.
PlaneStiffness plane_stiffness(const PlanePlaces& places, const ElementStiffness& stiffness,
                               double length) {
  const auto [w1, t1, w2, t2] = places.place;
  const Matrix12& k = stiffness.condensed;
  const auto turned = [&](int place) { return Extended(stiffness.turned[place]); };
  PlaneStiffness plane{k(t1, t1), k(t1, t2), k(t2, t2), {}, {}, {}};
  plane.across_start =
      (turned(t1) * places.rotation_sign - exact_sum(plane.start, plane.mixed)) / length;
  plane.across_end =
      (turned(t2) * places.rotation_sign - exact_sum(plane.mixed, plane.end)) / length;
  plane.across = (turned(w2) - plane.across_start - plane.across_end) / length;
  return plane;
}

void add_plane(const PlanePlaces& places, std::size_t axis, const PlaneStiffness& k,
               const Moves& moves, Extended12& forces) {
  const auto place = [&](std::size_t i) { return static_cast<std::size_t>(places.place[i]); };
  const std::size_t turning = place(1) - 3;
  const double sign = places.rotation_sign;
  const Extended start = moves.start_turn[turning] * sign, end = moves.end_turn[turning] * sign;
  const Extended& across = moves.apart[axis];
  const Extended shear = k.across * across + k.across_start * start + k.across_end * end;
  forces[place(0)] = -shear;
  forces[place(2)] = shear;
  forces[place(1)] = (k.across_start * across + start * k.start + end * k.mixed) * sign;
  forces[place(3)] = (k.across_end * across + start * k.mixed + end * k.end) * sign;
}

/// Axial force or torsion: a spring between component `place` of the start and of the end.
void add_spring(std::size_t place, const Matrix12& k, const Extended& apart, Extended12& forces) {
  const auto end = static_cast<int>(place) + 6;
  forces[place + 6] = apart * k(end, end);
  forces[place] = -forces[place + 6];
}

}  // namespace

Extended12 extended_end_forces(const ElementStiffness& stiffness, const Geometry& geometry,
                               const Extended12& moved) {
  const Moves moves = moves_of(geometry.axes, moved);
  const Matrix12& k = stiffness.condensed;
  Extended12 forces;
  add_spring(0, k, moves.apart[0], forces);
  add_spring(3, k, moves.end_turn[0] - moves.start_turn[0], forces);
  add_plane(places_y, 1, plane_stiffness(places_y, stiffness, geometry.length), moves, forces);
  add_plane(places_z, 2, plane_stiffness(places_z, stiffness, geometry.length), moves, forces);
  for (std::size_t i = 0; i < 12; ++i) {
    const auto at = static_cast<int>(i);
    if (k(at, at) == 0.0) forces[i] = {};
  }
  return forces;
}

Extended12 to_global(const Axes& axes, const Extended12& local) {
  Extended12 global;
  for (std::size_t first = 0; first < 12; first += 3) {
    const Extended3 three = turned(axes.transpose(), three_at(local, first));
    for (std::size_t i = 0; i < 3; ++i) global[first + i] = three[i];
  }
  return global;
}

}  // namespace aluframe::analysis

#pragma once

#include <algorithm>
#include <numbers>
#include <numeric>

#include "analysis_frames.h"

// Changes of a frame that leave its behaviour.

namespace aluframe::analysis {

using Rotation = Eigen::Matrix3d;

inline Rotation any_rotation() {
  const Vector3 axis = any_vector(1);
  const Eigen::Vector3d unit = Eigen::Vector3d(axis[0], axis[1], axis[2] + 1.5).normalized();
  return Eigen::AngleAxisd(number_between(-3, 3), unit).toRotationMatrix();
}

inline Vector3 turned(const Rotation& r, const Vector3& v) {
  const Eigen::Vector3d t = r * Eigen::Vector3d(v[0], v[1], v[2]);
  return {t.x(), t.y(), t.z()};
}

inline Vector6 turned(const Rotation& r, const Vector6& v) {
  const Vector3 f = turned(r, Vector3{v[0], v[1], v[2]}), m = turned(r, Vector3{v[3], v[4], v[5]});
  return {f[0], f[1], f[2], m[0], m[1], m[2]};
}

/// Turns the nodes; each element's beta makes up for the vertical that did not turn with it.
inline Frame turned(const Rotation& r, const Frame& frame) {
  Frame result = frame;
  for (Node& node : result.nodes) {
    const Vector3 p = turned(r, Vector3{node.x, node.y, node.z});
    node = {node.number, p[0], p[1], p[2]};
  }
  const std::vector<Geometry> before = element_geometry(frame);
  for (std::size_t i = 0; i < result.elements.size(); ++i) {
    Element& e = result.elements[i];
    const Axes plain = geometry_between(result.nodes[e.start], result.nodes[e.end], 0.0).axes;
    const Eigen::Vector3d y = r * before[i].axes.row(1).transpose();
    e.beta = std::atan2(plain.row(2).dot(y), plain.row(1).dot(y)) * 180.0 / std::numbers::pi;
  }
  return result;
}

inline LoadCase turned(const Rotation& r, const LoadCase& loads) {
  LoadCase result = loads;
  for (NodalLoad& load : result.nodal) load.value = turned(r, load.value);
  for (DistributedLoad& load : result.distributed) {
    if (load.axes == LoadAxes::local) continue;
    load.from_value = turned(r, load.from_value);
    load.to_value = turned(r, load.to_value);
  }
  for (PointLoad& load : result.points) {
    if (load.axes == LoadAxes::local) continue;
    load.force = turned(r, load.force);
    load.moment = turned(r, load.moment);
  }
  result.settlements.clear();
  for (const Settlement& s : loads.settlements) {
    Vector6 value{};
    value[s.direction] = s.value;
    value = turned(r, value);
    for (std::size_t i = 0; i < 6; ++i) result.settlements.push_back({s.node, i, value[i]});
  }
  return result;
}

inline std::vector<std::size_t> any_permutation(std::size_t count) {
  std::vector<std::size_t> places(count);
  std::iota(places.begin(), places.end(), std::size_t{0});
  for (std::size_t i = count; i > 1; --i) std::swap(places[i - 1], places[place_below(i)]);
  return places;
}

/// The same frame in another order.
struct Renumbered {
  Frame frame;
  LoadCase loads;
  std::vector<std::size_t> element_at;  ///< new places
};

inline Renumbered renumbered_by_chance(const Frame& frame, const LoadCase& loads) {
  const auto node_at = any_permutation(frame.nodes.size());
  const auto element_at = any_permutation(frame.elements.size());
  Frame other = frame;
  LoadCase renumbered = loads;
  for (std::size_t i = 0; i < node_at.size(); ++i) other.nodes[node_at[i]] = frame.nodes[i];
  for (std::size_t i = 0; i < element_at.size(); ++i) {
    Element& e = other.elements[element_at[i]] = frame.elements[i];
    e.start = node_at[e.start];
    e.end = node_at[e.end];
  }
  for (Support& s : other.supports) s.node = node_at[s.node];
  for (Spring& s : other.springs) s.node = node_at[s.node];
  for (NodalLoad& l : renumbered.nodal) l.node = node_at[l.node];
  for (Settlement& l : renumbered.settlements) l.node = node_at[l.node];
  for (DistributedLoad& l : renumbered.distributed) l.element = element_at[l.element];
  for (PointLoad& l : renumbered.points) l.element = element_at[l.element];
  for (Temperature& l : renumbered.temperatures) l.element = element_at[l.element];
  return {other, renumbered, element_at};
}

/// Cuts an element at a part of its length; the second half is added at the end.
inline void split(Frame& frame, LoadCase& loads, std::size_t place, double at) {
  const Node a = frame.nodes[frame.elements[place].start],
             b = frame.nodes[frame.elements[place].end];
  frame.nodes.push_back({static_cast<Number>(frame.nodes.size() + 1), a.x + at * (b.x - a.x),
                         a.y + at * (b.y - a.y), a.z + at * (b.z - a.z)});
  Element second = frame.elements[place];
  second.start = frame.elements[place].end = frame.nodes.size() - 1;
  for (std::size_t i = 0; i < 6; ++i) {
    second.released[i] = false;
    frame.elements[place].released[6 + i] = false;
  }
  frame.elements.push_back(second);
  const std::size_t other = frame.elements.size() - 1;
  LoadCase parts = loads;
  parts.distributed.clear();
  parts.points.clear();
  for (const DistributedLoad& load : loads.distributed) {
    const auto part = [&](double from, double to, std::size_t on, double start, double length) {
      if (from >= to) return;
      DistributedLoad piece = load;
      const auto value = [&](double x, std::size_t i) {
        const double share = (x - load.from) / (load.to - load.from);
        return load.from_value[i] + share * (load.to_value[i] - load.from_value[i]);
      };
      for (std::size_t i = 0; i < 3; ++i) {
        piece.from_value[i] = value(from, i);
        piece.to_value[i] = value(to, i);
      }
      piece.element = on;
      piece.from = std::clamp((from - start) / length, 0.0, 1.0);
      piece.to = std::clamp((to - start) / length, 0.0, 1.0);
      parts.distributed.push_back(piece);
    };
    if (load.element != place) {
      parts.distributed.push_back(load);
      continue;
    }
    part(load.from, std::min(load.to, at), place, 0.0, at);
    part(std::max(load.from, at), load.to, other, at, 1.0 - at);
  }
  for (PointLoad load : loads.points) {
    if (load.element == place) {
      const bool first = load.at <= at;
      load.element = first ? place : other;
      load.at = first ? load.at / at : (load.at - at) / (1.0 - at);
    }
    parts.points.push_back(load);
  }
  for (Temperature t : loads.temperatures) {
    if (t.element != place) continue;
    t.element = other;
    parts.temperatures.push_back(t);
  }
  loads = parts;
}

}  // namespace aluframe::analysis

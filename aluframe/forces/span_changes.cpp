#include "aluframe/forces/span_changes.h"

#include <algorithm>
#include <cmath>

#include "aluframe/analysis/local_axes.h"
#include "aluframe/forces/frame_of_model.h"
#include "aluframe/forces/load_agreement.h"

namespace aluframe::forces {

namespace {

/// How N, Fy and Fz change with the load along x, y and z.
constexpr std::array<double, 3> signs{-1.0, 1.0, 1.0};

void append_distributed(const analysis::LocalDistributed& load, double length,
                        std::vector<SpanChange>& out) {
  if (load.to <= load.from) return;
  SpanChange begin{.x = load.from}, end{.x = load.to};
  for (std::size_t i = 0; i < signs.size(); ++i) {
    const auto axis = static_cast<Eigen::Index>(i);
    const double from = signs[i] * load.from_value[axis], to = signs[i] * load.to_value[axis];
    begin.rate[i] = from;
    begin.slope[i] = (to - from) / (load.to - load.from);
    end.rate[i] = -to;
    end.slope[i] = -begin.slope[i];
  }
  out.push_back(begin);
  if (load.to < length) out.push_back(end);
}

void append_point(const analysis::LocalPoint& load, std::vector<SpanChange>& out) {
  SpanChange change{.x = load.at};
  change.jump = {-load.force.x(),  load.force.y(),  load.force.z(),
                 -load.moment.x(), load.moment.y(), -load.moment.z()};
  if (change.has_jump()) out.push_back(change);
}

template <std::size_t count>
void add(std::array<double, count>& sum, const std::array<double, count>& values) {
  for (std::size_t i = 0; i < count; ++i) sum[i] += values[i];
}

/// Makes one change of those at the same place.
void merge(std::vector<SpanChange>& changes, std::size_t first) {
  std::size_t last = first;
  for (std::size_t i = first + 1; i < changes.size(); ++i) {
    if (changes[i].x == changes[last].x) {
      add(changes[last].jump, changes[i].jump);
      add(changes[last].rate, changes[i].rate);
      add(changes[last].slope, changes[i].slope);
    } else {
      changes[++last] = changes[i];
    }
  }
  if (first < changes.size()) changes.resize(last + 1);
}

/// The load along one axis, linear over a piece, that takes a shear force and its moment from their
/// values at its start to those at its end.
/// @return false when the shear force would have to leave the range of its two values
bool find_shear_load(double shear, double next_shear, double moment, double next_moment,
                     double length, double& rate, double& slope) {
  const double mean = (next_moment - moment) / length;
  const auto [low, high] = std::minmax(shear, next_shear);
  const double margin = 0.01 * std::max(std::abs(low), std::abs(high));
  if (mean < low - margin || mean > high + margin) return false;
  const double by_shear = (next_shear - shear) / length;
  const double by_moment = 2.0 * (mean - shear) / length;
  rate = 3.0 * by_moment - 2.0 * by_shear;
  slope = 6.0 * (by_shear - by_moment) / length;
  return true;
}

/// The load of a piece from the forces at its ends; see find_shear_load.
bool find_load(const model::SectionForces& start, const model::SectionForces& end, double length,
               SpanChange& load) {
  load.rate[0] = (double{end[0]} - double{start[0]}) / length;
  return find_shear_load(start[1], end[1], start[5], end[5], length, load.rate[1], load.slope[1]) &&
         find_shear_load(start[2], end[2], start[4], end[4], length, load.rate[2], load.slope[2]);
}

}  // namespace

void append_changes(const analysis::ElementLoads& loads, std::vector<SpanChange>& out) {
  const std::size_t first = out.size();
  for (const auto& load : loads.distributed) append_distributed(load, loads.length, out);
  for (const auto& load : loads.points) append_point(load, out);
  std::stable_sort(out.begin() + static_cast<std::ptrdiff_t>(first), out.end(),
                   [](const SpanChange& a, const SpanChange& b) { return a.x < b.x; });
  merge(out, first);
}

bool append_changes(const model::CaseForces& forces, double length, std::vector<SpanChange>& out) {
  const std::size_t first = out.size();
  SpanChange before;  // rate and slope of the quarter before
  const double quarter = length / 4.0;
  for (std::size_t i = 0; i < 4; ++i) {
    SpanChange load{.x = quarter * static_cast<double>(i)};
    if (!find_load(forces.at[i], forces.at[i + 1], quarter, load)) {
      out.resize(first);
      return false;
    }
    SpanChange change = load;
    for (std::size_t j = 0; j < 3; ++j) {
      change.rate[j] -= before.rate[j] + quarter * before.slope[j];
      change.slope[j] -= before.slope[j];
    }
    out.push_back(change);
    before = load;
  }
  return true;
}

SpanChanges::SpanChanges(const model::Model& model, const analysis::Frame& frame,
                         const ComputedPairs& computed)
    : loaded_(model.elements.size(), 0) {
  const auto geometry = analysis::element_geometry(frame);
  for (const analysis::Geometry& g : geometry) lengths_.push_back(g.length);
  for (std::size_t i = 0; i < model.load_cases.size(); ++i) {
    const analysis::LoadsByElement loads(frame, geometry, loads_of(model, model.load_cases[i]));
    cases_.push_back(changes_of(model, frame, loads, computed, i));
    if (!model.load_cases[i].loads.temperature.empty()) {
      for (std::size_t e = 0; e < frame.elements.size(); ++e) {
        cases_.back().free.push_back(loads.of(e).free);
      }
    }
  }
  std::ranges::sort(unknown_);
}

SpanChanges::Case SpanChanges::changes_of(const model::Model& model, const analysis::Frame& frame,
                                          const analysis::LoadsByElement& loads,
                                          const ComputedPairs& computed, std::size_t load_case) {
  Case out;
  for (std::size_t i = 0; i < frame.elements.size(); ++i) {
    const std::size_t first = out.changes.size();
    out.begin.push_back(static_cast<std::uint32_t>(first));
    const bool is_beam = frame.elements[i].kind == analysis::ElementKind::beam;
    if (!is_beam || !(lengths_[i] > 0.0)) continue;
    if (loads.has_forces(i)) append_changes(loads.of(i), out.changes);
    const model::CaseForces* forces = model.forces.find(i, load_case);
    const bool is_given = forces != nullptr && !computed.contains(i, load_case);
    if (is_given) correct(*forces, {i, load_case}, first, out.changes);
    if (out.changes.size() > first) loaded_[i] = 1;
  }
  out.begin.push_back(static_cast<std::uint32_t>(out.changes.size()));
  return out.changes.empty() ? Case() : out;
}

/// Where forces do not follow from the changes of the loads, takes what the forces show.
/// @param first place of the first change of the pair; there are none behind it
void SpanChanges::correct(const model::CaseForces& forces, Pair pair, std::size_t first,
                          std::vector<SpanChange>& changes) {
  const double length = lengths_[pair.element];
  if (follow_from_loads(forces, std::span(changes).subspan(first), length)) return;
  changes.resize(first);
  if (!forces.inner || !append_changes(forces, length, changes)) {
    unknown_.push_back(pair);
  } else if (changes.size() > first) {
    estimated_.push_back(pair);
  }
}

}  // namespace aluframe::forces

#include "aluframe/forces/peak_finder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace aluframe::forces {

namespace {

/// The five positions are in single precision and so are the forces that the others start from.
constexpr double rounding = 1e-6;
/// Components that are zero but for the rounding of axes, against the largest of the element.
constexpr double noise = 1e-9;
/// Parts of the length. Next to a position an extreme differs from the value there by the square of
/// this, of what the load makes over the element.
constexpr double next_to_position = 1e-4;
constexpr double same_place = 1e-9;
/// Stresses of torsion are looked at so many times a piece, then closer on both sides of those
/// that are larger than their neighbours: where torsion adds too little between two stretches, each
/// end of a stretch has one. A step leaves 0.618 of the place; what is left is a thousandth of a
/// part.
constexpr int torsion_parts = 16;
constexpr int golden_steps = 14;

double sum_of(const Weights& w, const std::array<double, 2>& signs,
              const std::array<double, 6>& forces) {
  return w.n * forces[0] + signs[0] * w.my * forces[4] + signs[1] * w.mz * forces[5];
}

/// Calls `use` with the place and the value of each component and weighted sum.
template <class Use>
void for_each_quantity(const std::array<double, 6>& forces, std::span<const Weights> weights,
                       Use use) {
  std::size_t place = 0;
  for (const double force : forces) use(place++, force);
  for (const Weights& w : weights) {
    for (const auto& signs : sign_pairs) use(place++, sum_of(w, signs, forces));
  }
}

std::array<double, 6> in_double(const model::SectionForces& forces) {
  std::array<double, 6> out{};
  std::ranges::copy(forces, out.begin());
  return out;
}

/// What counts as zero of each component.
std::array<double, 6> noise_of(const model::CaseForces& five, double length) {
  double force = 0.0, moment = 0.0;
  for (const model::SectionForces& at : five.at) {
    for (std::size_t i = 0; i < 3; ++i) force = std::max(force, std::abs(double{at[i]}));
    for (std::size_t i = 3; i < 6; ++i) moment = std::max(moment, std::abs(double{at[i]}));
  }
  const double f = noise * force, m = noise * std::max(moment, force * length);
  return {f, f, f, m, m, m};
}

/// The largest value between two places by golden section, and where it is.
template <class Value>
double golden_place(double low, double high, Value value) {
  constexpr double golden = 0.6180339887498949;
  double a = high - golden * (high - low), b = low + golden * (high - low);
  double at_a = value(a), at_b = value(b);
  for (int step = 0; step < golden_steps; ++step) {
    if (at_a > at_b) {
      high = std::exchange(b, a);
      at_b = at_a;
      a = high - golden * (high - low);
      at_a = value(a);
    } else {
      low = std::exchange(a, b);
      at_a = at_b;
      b = low + golden * (high - low);
      at_b = value(b);
    }
  }
  return at_a > at_b ? a : b;
}

bool is_next_to_position(double fraction, double distance) {
  const double quarters = 4.0 * fraction;
  return std::abs(quarters - std::round(quarters)) <= 4.0 * distance;
}

}  // namespace

void PositionExtremes::set(const model::CaseForces& five, std::span<const Weights> weights,
                           double length) {
  weights_ = weights;
  ranges_.resize(6 + 4 * weights.size());
  for_each_quantity(in_double(five.at[0]), weights,
                    [&](std::size_t place, double value) { ranges_[place] = {value, value}; });
  for (std::size_t i = 1; i < five.at.size(); ++i) {
    for_each_quantity(in_double(five.at[i]), weights, [&](std::size_t place, double value) {
      ranges_[place].low = std::min(ranges_[place].low, value);
      ranges_[place].high = std::max(ranges_[place].high, value);
    });
  }
  torsion_.resize(weights.size());
  for (std::size_t i = 0; i < weights.size(); ++i) {
    torsion_[i] = weights[i].least_torsion;
    for (const model::SectionForces& at : five.at) {
      torsion_[i] = std::max(torsion_[i], torsion_stress(weights[i], in_double(at)));
    }
  }
  const std::array<double, 6> zero = noise_of(five, length);
  for (std::size_t place = 0; place < ranges_.size(); ++place) {
    Range& range = ranges_[place];
    double margin = rounding * std::max(std::abs(range.low), std::abs(range.high));
    margin += place < 6 ? zero[place] : sum_of(weights[(place - 6) / 4], {1.0, 1.0}, zero);
    range = {range.low - margin, range.high + margin};
  }
}

bool PositionExtremes::exceeded_by(const std::array<double, 6>& forces) const {
  bool found = false;
  for_each_quantity(forces, weights_, [&](std::size_t place, double value) {
    found = found || exceeded_by(value, place);
  });
  for (std::size_t i = 0; i < weights_.size() && !found; ++i) {
    found = torsion_stress(weights_[i], forces) > torsion_[i] * (1.0 + rounding);
  }
  return found;
}

template <class Line>
void PeakFinder<Line>::find(const Line& line, double length,
                            std::span<const FactoredChange> changes, const model::CaseForces& five,
                            std::span<const Weights> weights, std::vector<PlaceForces>& out) {
  length_ = length;
  changes_ = changes;
  five_ = &five;
  weights_ = weights;
  out_ = &out;
  line_ = line;
  x_ = 0.0;
  next_ = 0;
  has_extremes_ = false;
  while (next_ < changes_.size()) {
    go_to(changes_[next_].change->x);
    apply_changes();
  }
  go_to(length);
}

/// Takes the line to a place without changes before it.
template <class Line>
void PeakFinder<Line>::go_to(double x) {
  while (x_ < x) {
    const double left = x - x_, piece = line_.longest_piece(left);
    scan_piece(piece);
    line_.advance(piece);
    x_ = left - piece <= same_place * length_ ? x : x_ + piece;
  }
}

template <class Line>
void PeakFinder<Line>::scan_piece(double length) {
  candidates_.clear();
  line_.for_each_extreme(length, weights_, [&](double distance) {
    if (is_next_to_position((x_ + distance) / length_, next_to_position)) return;
    candidates_.push_back(distance);
  });
  if (line_.forces[3] != 0.0) {
    for (std::size_t i = 0; i < weights_.size(); ++i) {
      if (i == 0 || weights_[i] != weights_[i - 1]) add_torsion_peaks(i, length);
    }
  }
  std::ranges::sort(candidates_);
  double last = -length_;
  for (const double distance : candidates_) {
    if (distance - last <= same_place * length_) continue;
    last = distance;
    const std::array<double, 6> forces = line_.forces_after(distance);
    if (exceeds(forces)) report(x_ + distance, forces);
  }
}

/// The stress of torsion peaks off the peaks of bending and of shear, where a load lies between.
template <class Line>
void PeakFinder<Line>::add_torsion_peaks(std::size_t place_of_weights, double length) {
  const Weights& weights = weights_[place_of_weights];
  if (weights.mx == 0.0) return;
  const auto stress = [&](double distance) {
    return torsion_stress(weights, line_.forces_after(distance));
  };
  const double most = largest_stress(weights, line_.largest_within(length));
  if (most <= weights.least_torsion || most <= extremes().largest_torsion(place_of_weights)) return;
  const double part = length / torsion_parts;
  std::array<double, torsion_parts + 3> at{};  // a zero before the piece and behind it
  for (int i = 0; i <= torsion_parts; ++i) at[static_cast<std::size_t>(i) + 1] = stress(part * i);
  for (int i = 0; i <= torsion_parts; ++i) {
    const auto here = at.begin() + i + 1;
    if (*here == 0.0 || *here < *(here - 1) || *here < *(here + 1)) continue;
    const std::size_t known = candidates_.size();
    for (const int side : {i - 1, i}) {
      if (side < 0 || side == torsion_parts) continue;
      const double place = golden_place(part * side, part * (side + 1), stress);
      if (stress(place) > *here) candidates_.push_back(place);
    }
    if (candidates_.size() == known) candidates_.push_back(part * i);
  }
}

/// Takes the line over the place where it stands, with all changes there.
template <class Line>
void PeakFinder<Line>::apply_changes() {
  const std::array<double, 6> before = line_.forces;
  const std::array<double, 3> rate_before = line_.rate;
  for (; next_ < changes_.size() && changes_[next_].change->x == x_; ++next_) {
    line_.add(*changes_[next_].change, changes_[next_].factor);
  }
  const bool is_position = is_next_to_position(x_ / length_, same_place);
  if (line_.forces != before) {
    // At a position the side towards the start is known; beyond the end there is none.
    if (!is_position || x_ >= length_) report(x_, before);
    if (x_ < length_) report(x_, line_.forces);
  } else if (!is_position && is_kink_beyond_positions(rate_before)) {
    report(x_, before);
  }
}

/// Where a distributed load begins or ends, forces have a kink, and so have sums with N. Moments
/// grow on smoothly.
template <class Line>
bool PeakFinder<Line>::is_kink_beyond_positions(const std::array<double, 3>& rate_before) {
  if (!weights_.empty() && rate_before[0] != line_.rate[0]) return exceeds(line_.forces);
  for (std::size_t i = 0; i < 3; ++i) {
    const bool turns = rate_before[i] * line_.rate[i] <= 0.0;
    if (turns && extremes().exceeded_by(line_.forces[i], i)) return true;
  }
  return false;
}

template <class Line>
const PositionExtremes& PeakFinder<Line>::extremes() {
  if (!has_extremes_) extremes_.set(*five_, weights_, length_);
  has_extremes_ = true;
  return extremes_;
}

template <class Line>
bool PeakFinder<Line>::exceeds(const std::array<double, 6>& forces) {
  return extremes().exceeded_by(forces);
}

template <class Line>
void PeakFinder<Line>::report(double x, const std::array<double, 6>& forces) {
  out_->push_back({x, x / length_, forces});
}

template class PeakFinder<SectionLine>;
template class PeakFinder<BowedLine>;

}  // namespace aluframe::forces

#pragma once

#include <span>
#include <vector>

#include "aluframe/forces/inner_forces.h"
#include "aluframe/forces/section_line.h"

namespace aluframe::forces {

/// Largest and smallest values at the five positions: of the six components, of the weighted sums
/// and of the stresses of torsion. Keeps its memory from one element to the next.
class PositionExtremes {
 public:
  void set(const model::CaseForces& five, std::span<const Weights> weights, double length);
  /// Whether any of them lies outside of its range by more than rounding.
  bool exceeded_by(const std::array<double, 6>& forces) const;
  /// The same of one of the six components.
  bool exceeded_by(double force, std::size_t component) const {
    return force < ranges_[component].low || force > ranges_[component].high;
  }

  /// Largest stress of torsion by these weights, or the one that they ask for.
  double largest_torsion(std::size_t place_of_weights) const { return torsion_[place_of_weights]; }

 private:
  struct Range {
    double low = 0.0, high = 0.0;
  };

  std::span<const Weights> weights_;
  std::vector<Range> ranges_;
  std::vector<double> torsion_;  ///< largest stress, by weights
};

/// Finds the peaks of one element under one combination of loads, from its start to its end. Reused
/// for many, so that nothing is allocated per element.
/// @tparam Line how the forces go on: SectionLine or BowedLine
template <class Line>
class PeakFinder {
 public:
  /// @param line at the start of the element
  /// @param changes in ascending order of their places
  void find(const Line& line, double length, std::span<const FactoredChange> changes,
            const model::CaseForces& five, std::span<const Weights> weights,
            std::vector<PlaceForces>& out);

 private:
  void go_to(double x);
  void scan_piece(double length);
  void add_torsion_peaks(std::size_t place_of_weights, double length);
  void apply_changes();
  void report(double x, const std::array<double, 6>& forces);
  bool is_kink_beyond_positions(const std::array<double, 3>& rate_before);
  const PositionExtremes& extremes();
  bool exceeds(const std::array<double, 6>& forces);

  double length_ = 0.0;
  std::span<const FactoredChange> changes_;
  const model::CaseForces* five_ = nullptr;
  std::span<const Weights> weights_;
  std::vector<PlaceForces>* out_ = nullptr;
  Line line_;
  double x_ = 0.0;                  ///< where the line stands
  std::size_t next_ = 0;            ///< first change that is not applied yet
  std::vector<double> candidates_;  ///< distances from x_
  PositionExtremes extremes_;
  bool has_extremes_ = false;
};

}  // namespace aluframe::forces

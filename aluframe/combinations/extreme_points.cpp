#include "aluframe/combinations/extreme_points.h"

#include <cmath>
#include <cstddef>
#include <optional>

namespace aluframe::combinations {

namespace {

/// Factors are of the size of 1 and known to 12 digits.
constexpr double tolerance = 1e-9;

double product(const std::vector<double>& a, const std::vector<double>& b) {
  double sum = 0.0;
  for (std::size_t i = 0; i < a.size(); ++i) sum += a[i] * b[i];
  return sum;
}

bool governs_under_likely_effects(const std::vector<FactorPoint>& points, std::size_t place) {
  const std::vector<double>& effects = points[place].likely_effects;
  const double most = product(points[place].factors, effects);
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (i != place && product(points[i].factors, effects) >= most - tolerance) return false;
  }
  return true;
}

/// Looks for weights, none below 0 and adding up to 1, with which the other points have this one as
/// their mean. The weights are the columns of a tableau; each row has an artificial variable, whose
/// sum phase one brings down to 0 where such weights exist.
class Weights {
 public:
  Weights(const std::vector<FactorPoint>& points, std::size_t place)
      : columns_(points.size() - 1), rows_(points[place].factors.size() + 1) {
    for (std::size_t row = 0; row < rows_.size(); ++row) {
      const bool is_sum = row + 1 == rows_.size();
      for (std::size_t i = 0; i < points.size(); ++i) {
        if (i == place) continue;
        rows_[row].push_back(is_sum ? 1.0 : points[i].factors[row] - points[place].factors[row]);
      }
      rows_[row].push_back(is_sum ? 1.0 : 0.0);
    }
    for (std::size_t row = 0; row < rows_.size(); ++row) basis_.push_back(columns_ + row);
    cost_.assign(columns_ + 1, 0.0);
    for (const auto& row : rows_) {
      for (std::size_t i = 0; i <= columns_; ++i) cost_[i] += row[i];
    }
  }

  bool exist() {
    while (const auto column = entering()) {
      const auto row = leaving(*column);
      if (!row) break;
      pivot(*row, *column);
    }
    return cost_[columns_] < tolerance;
  }

 private:
  /// Bland's rule: the first column that lowers the sum, so that no basis comes twice.
  std::optional<std::size_t> entering() const {
    for (std::size_t i = 0; i < columns_; ++i) {
      if (cost_[i] > tolerance) return i;
    }
    return std::nullopt;
  }

  std::optional<std::size_t> leaving(std::size_t column) const {
    std::optional<std::size_t> best;
    for (std::size_t row = 0; row < rows_.size(); ++row) {
      if (rows_[row][column] <= tolerance) continue;
      if (!best || precedes(row, *best, column)) best = row;
    }
    return best;
  }

  bool precedes(std::size_t row, std::size_t other, std::size_t column) const {
    const double ratio = rows_[row][columns_] / rows_[row][column];
    const double of_other = rows_[other][columns_] / rows_[other][column];
    if (std::fabs(ratio - of_other) > tolerance) return ratio < of_other;
    return basis_[row] < basis_[other];
  }

  void pivot(std::size_t row, std::size_t column) {
    const double divisor = rows_[row][column];
    for (double& value : rows_[row]) value /= divisor;
    const auto eliminate = [&](std::vector<double>& from) {
      const double factor = from[column];
      if (factor == 0.0) return;
      for (std::size_t i = 0; i <= columns_; ++i) from[i] -= factor * rows_[row][i];
    };
    for (std::size_t other = 0; other < rows_.size(); ++other) {
      if (other != row) eliminate(rows_[other]);
    }
    eliminate(cost_);
    basis_[row] = column;
  }

  std::size_t columns_;
  std::vector<std::vector<double>> rows_;  ///< each with its right side behind the columns
  std::vector<std::size_t> basis_;  ///< column of each row; artificial ones stand behind the others
  std::vector<double> cost_;        ///< what a column lowers the sum by; behind it the sum
};

}  // namespace

std::vector<bool> are_extreme(const std::vector<FactorPoint>& points) {
  std::vector<bool> extreme(points.size(), true);
  if (points.size() < 2) return extreme;
  for (std::size_t i = 0; i < points.size(); ++i) {
    extreme[i] = governs_under_likely_effects(points, i) || !Weights(points, i).exist();
  }
  return extreme;
}

}  // namespace aluframe::combinations

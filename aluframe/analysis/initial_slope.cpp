#include "aluframe/analysis/initial_slope.h"

#include <algorithm>

namespace aluframe::analysis {

InitialSlope::InitialSlope(std::span<const double> powers) {
  std::copy_n(powers.begin(), std::min(powers.size(), most_terms), powers_.begin());
  for (std::size_t k = 0; k < most_terms; ++k) {
    if (powers_[k] != 0.0) terms_ = k + 1;
  }
}

double InitialSlope::at(double t) const {
  double sum = 0.0;
  for (std::size_t k = terms_; k-- > 0;) sum = sum * t + powers_[k];
  return sum;
}

double InitialSlope::mean() const {
  double sum = 0.0;
  for (std::size_t k = 0; k < terms_; k += 2) sum += powers_[k] / static_cast<double>(k + 1);
  return sum;
}

/// By repeated synthetic division, each of which leaves the next coefficient.
InitialSlope::Powers InitialSlope::around(double centre, double unit) const {
  Powers out = powers_;
  double scale = 1.0;
  for (std::size_t k = 0; k < terms_; ++k) {
    for (std::size_t j = terms_ - 1; j-- > k;) out[j] += centre * out[j + 1];
    out[k] *= scale;
    scale *= unit;
  }
  return out;
}

InitialSlope& InitialSlope::add(const InitialSlope& other, double factor) {
  terms_ = std::max(terms_, other.terms_);
  for (std::size_t k = 0; k < other.terms_; ++k) powers_[k] += factor * other.powers_[k];
  return *this;
}

}  // namespace aluframe::analysis

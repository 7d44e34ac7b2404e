#include "aluframe/analysis/releases.h"

#include <cmath>

namespace aluframe::analysis {

namespace {

/// A pivot this small against the stiffness it came from is rounding: nothing holds the element.
constexpr double no_hold = 1e-9;

}  // namespace

std::optional<Releases> Releases::condense(const std::array<bool, 12>& released, Matrix12& k,
                                           int* negative) {
  Releases result;
  const Vector12 before = k.diagonal();
  for (int place = 0; place < 12; ++place) {
    if (!released[static_cast<std::size_t>(place)] || before[place] == 0.0) continue;
    const double pivot = k(place, place);
    if (std::abs(pivot) <= no_hold * std::abs(before[place])) return std::nullopt;
    if (pivot < 0.0 && negative != nullptr) ++*negative;
    Step& step = result.steps_[result.count_++];
    step = {place, pivot, k.row(place).transpose() / pivot};
    const Vector12 row = k.row(place);
    k.noalias() -= step.share * row.transpose();
    k.row(place).setZero();
    k.col(place).setZero();
  }
  return result;
}

void Releases::condense_forces(Vector12& clamped) const {
  for (std::size_t i = 0; i < count_; ++i) {
    const Step& step = steps_[i];
    const double force = clamped[step.place];
    clamped -= force * step.share;
    clamped[step.place] = 0.0;
  }
}

void Releases::restore(const Vector12& clamped, Vector12& displacements) const {
  Vector12 forces = clamped;
  std::array<double, 12> own{};
  for (std::size_t i = 0; i < count_; ++i) {
    own[i] = forces[steps_[i].place];
    forces -= own[i] * steps_[i].share;
    forces[steps_[i].place] = 0.0;
  }
  for (std::size_t i = count_; i-- > 0;) {
    const Step& step = steps_[i];
    displacements[step.place] = 0.0;
    // Components released before this one have no share left here.
    const double by_others = step.share.dot(displacements);
    displacements[step.place] = -by_others - own[i] / step.pivot;
  }
}

}  // namespace aluframe::analysis

#include "aluframe/analysis/releases.h"

#include <cmath>

namespace aluframe::analysis {

namespace {

/// A pivot this small against the stiffness it came from is rounding: the element is a mechanism.
constexpr double zero_pivot = 1e-9;

}  // namespace

std::optional<Releases> Releases::condense(const std::array<bool, 12>& released, Matrix12& k,
                                           int* negative) {
  Releases result;
  const Vector12 before = k.diagonal();
  for (int dof = 0; dof < 12; ++dof) {
    if (!released[static_cast<std::size_t>(dof)] || before[dof] == 0.0) continue;
    const double pivot = k(dof, dof);
    if (std::abs(pivot) <= zero_pivot * std::abs(before[dof])) return std::nullopt;
    if (pivot < 0.0 && negative != nullptr) ++*negative;
    Step& step = result.steps_[result.count_++];
    step = {dof, pivot, k.row(dof).transpose() / pivot};
    const Vector12 row = k.row(dof);
    k.noalias() -= step.share * row.transpose();
    k.row(dof).setZero();
    k.col(dof).setZero();
  }
  return result;
}

void Releases::condense_forces(Vector12& fixed_end) const {
  for (std::size_t i = 0; i < count_; ++i) {
    const Step& step = steps_[i];
    const double force = fixed_end[step.dof];
    fixed_end -= force * step.share;
    fixed_end[step.dof] = 0.0;
  }
}

void Releases::restore(const Vector12& fixed_end, Vector12& displacements) const {
  Vector12 forces = fixed_end;
  std::array<double, 12> own{};
  for (std::size_t i = 0; i < count_; ++i) {
    own[i] = forces[steps_[i].dof];
    forces -= own[i] * steps_[i].share;
    forces[steps_[i].dof] = 0.0;
  }
  for (std::size_t i = count_; i-- > 0;) {
    const Step& step = steps_[i];
    displacements[step.dof] = 0.0;
    // Components released before this one have no share left here.
    const double by_others = step.share.dot(displacements);
    displacements[step.dof] = -by_others - own[i] / step.pivot;
  }
}

}  // namespace aluframe::analysis

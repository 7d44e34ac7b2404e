#pragma once

#include <stdexcept>
#include <utility>
#include <variant>

#include "aluframe/analysis/analyse.h"
#include "aluframe/analysis/buckling.h"

namespace aluframe::analysis {

/// Axial forces of first order, and the factors under them. A problem ends the test.
inline BucklingResult buckle(const Frame& frame, const LoadCase& loads, int modes = 1) {
  const LoadCase cases[]{loads};
  const auto solved = analyse(frame, cases);
  if (const auto* problem = std::get_if<Problem>(&solved)) throw std::runtime_error(problem->text);
  const auto axial = axial_forces_at_start(std::get<Solution>(solved).cases[0]);
  auto found = Buckling(frame).find(loads, axial, modes);
  if (const auto* problem = std::get_if<Problem>(&found)) throw std::runtime_error(problem->text);
  return std::get<BucklingResult>(std::move(found));
}

}  // namespace aluframe::analysis

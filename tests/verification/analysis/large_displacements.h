#pragma once

#include "aluframe/analysis/large_displacement.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "tests/unit/aluframe/analysis/frames.h"

// What tests of large displacements share: results, or the end of the test by their problem.

namespace aluframe::analysis {

inline constexpr double pi = std::numbers::pi;

inline CaseResult displaced(const Frame& frame, const LoadCase& loads) {
  auto result = analyse_large_displacements(frame, loads);
  if (const auto* problem = std::get_if<Problem>(&result)) throw std::runtime_error(problem->text);
  return std::get<SecondOrderResult>(std::move(result)).result;
}

inline LimitLoad limit_of(const Frame& frame, const LoadCase& loads, double largest = 10.0) {
  auto result = find_limit_load(frame, loads, largest);
  if (const auto* problem = std::get_if<Problem>(&result)) throw std::runtime_error(problem->text);
  return std::get<LimitLoad>(std::move(result));
}

}  // namespace aluframe::analysis

#pragma once

// What an engine call leaves, value by value.

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

#include "tests/property/engine_generators.h"

namespace engine_outcomes {

using engine_generators::OUTCOME;

inline constexpr double kSentinel = 12345.678;

/// Puts a value that no calculation gives into every output.
inline void FillWithSentinels(OUTCOME& outcome) {
  for (T_RALU_RLT& item : outcome.result.aItem) item = {kSentinel, kSentinel, kSentinel};
  ALU_CAL_SECTPARA& para = outcome.buffer.sectpara;
  para.dA = para.dW1 = para.dW2 = para.dWz = para.dR1 = para.dR2 = para.dRw = kSentinel;
  for (double& value : outcome.buffer.report->dValue) value = kSentinel;
}

/// Bits of everything that a call leaves.
inline std::vector<std::uint64_t> Bits(const OUTCOME& outcome) {
  std::vector<double> values;
  for (const T_RALU_RLT& item : outcome.result.aItem) {
    values.insert(values.end(), {item.dDemand, item.dCapacity, item.dReserve});
  }
  const ALU_CAL_SECTPARA& para = outcome.buffer.sectpara;
  values.insert(values.end(),
                {para.dA, para.dW1, para.dW2, para.dWz, para.dR1, para.dR2, para.dRw});
  for (const double value : outcome.buffer.report->dValue) values.push_back(value);
  std::vector<std::uint64_t> bits(values.size());
  std::memcpy(bits.data(), values.data(), values.size() * sizeof(double));
  return bits;
}

inline bool HoldsASentinel(const OUTCOME& outcome) {
  std::uint64_t sentinel = 0;
  std::memcpy(&sentinel, &kSentinel, sizeof sentinel);
  const std::vector<std::uint64_t> bits = Bits(outcome);
  return std::find(bits.begin(), bits.end(), sentinel) != bits.end();
}

}  // namespace engine_outcomes

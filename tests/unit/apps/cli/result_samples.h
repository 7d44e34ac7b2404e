#pragma once

#include <vector>

#include "aluframe/store/result_file.h"
#include "apps/cli/output_table.h"

namespace aluframe::cli {

/// The governing check of a beam: at its start, in combination 3.
inline store::GoverningRow row(std::uint32_t element, int item, double demand, double capacity) {
  return {element, 2, item, {.nPos = 0, .dDemand = demand, .dCapacity = capacity, .nLComb = 3}};
}

/// A run of combination 3 and the envelope 4.
inline store::RunInfo sample_info() {
  return {.model_title = "",
          .code = "",
          .program = "",
          .combinations = {{3, "ULS", false, false}, {4, "ENV", true, false}},
          .model_digest = ""};
}

inline bool is_empty(const Cell& cell) {
  return std::holds_alternative<std::monostate>(cell);
}

inline std::vector<std::string> keys_of(const OutputTable& table) {
  std::vector<std::string> keys;
  for (const Column& column : table.columns) keys.push_back(column.key);
  return keys;
}

}  // namespace aluframe::cli

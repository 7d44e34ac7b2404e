#pragma once

#include <vector>

#include "aluframe/store/result_file.h"
#include "aluframe/tables/output_table.h"
#include "tests/unit/aluframe/run/governing_row.h"

namespace aluframe::tables {

using run::row;

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

}  // namespace aluframe::tables

#pragma once

#include <cstdint>
#include <string>

#include "aluframe/tables/output_table.h"

// Cells that a table is expected to have.

namespace aluframe::tables {

inline const Cell none;

inline Cell text(const char* value) {
  return std::string(value);
}

inline Cell phrase(const char* value) {
  return Phrase{value};
}

inline Cell whole(std::int64_t value) {
  return value;
}

}  // namespace aluframe::tables

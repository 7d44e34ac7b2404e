#pragma once

#include <cstdint>

#include "aluframe/store/element_row.h"

namespace aluframe::store {

/// Tells what is stored of an element apart, so that damage to a file without a seal is found.
/// @param row null: it has no records
std::int64_t element_digest(const ElementRow* row, const ElementNotes& notes);

}  // namespace aluframe::store

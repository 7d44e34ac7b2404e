#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <cstdint>
#include <vector>

#include "aluframe/store/element_notes.h"

namespace aluframe::store {

/// What a run without a seal has stored of the elements that it was through with, in the order of
/// the run. Every value of theirs in the file is compared with what the run wrote.
/// @throws std::runtime_error when one differs
std::vector<FinishedElement> load_finished(SQLite::Database& database);

/// Drops what belongs to other elements than the first `count` finished ones, and what stands at
/// the end of a run; its state is `running` again.
void keep_finished(SQLite::Database& database, std::size_t count);

}  // namespace aluframe::store

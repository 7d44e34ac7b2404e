#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include "aluframe/store/element_notes.h"

// Rows of elements as the tables have them, for statements that begin with these texts.

namespace aluframe::store {

inline constexpr const char* select_not_checked =
    "SELECT element, combination, reason, force, magnitude, position, at_combination, at_min_side "
    "FROM not_checked";
NotChecked not_checked_row(SQLite::Statement& select);

inline constexpr const char* select_safe =
    "SELECT safe.element, code_ratio, safe_ratio, item, rules, combination, min_side, fraction, "
    "from_start_mm, item_name FROM safe JOIN element ON element.number = safe.element";
SafeRow safe_row(SQLite::Statement& select);

inline constexpr const char* select_unchecked =
    "SELECT kind, magnitude, combination, min_side, fraction, ratio, ratio_combination, "
    "ratio_min_side, ratio_fraction FROM unchecked";
UncheckedRow unchecked_row(SQLite::Statement& select);

}  // namespace aluframe::store

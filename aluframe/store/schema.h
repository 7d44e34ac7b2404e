#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "aluframe/files/file_kind.h"
#include "aluframe/store/check_names.h"
#include "aluframe/store/result_file.h"
#include "host/tz_db/ralu.h"

namespace aluframe::store {

/// Marks an SQLite file as a result file ("AluR").
inline constexpr std::uint32_t application_id = files::result_file_mark;
/// Raised when an older program could misread the file.
inline constexpr int format_version = 6;

/// The tables that have rows of elements, by their column `element`; `element` itself names it
/// `number`.
inline constexpr std::array<const char*, 7> tables_of_elements = {
    "record", "governing", "not_checked", "safe", "unchecked", "assertion", "finished"};

/// What the table `governing` says of values that are not finite: "demand nan, ratio nan"; empty
/// when all are.
std::string not_finite(const T_RALU_ITEM& item);

/// The state of a run as the table `run` has it.
const char* state_name(RunState state);
/// @throws std::runtime_error for a text that is no state
RunState state_named(std::string_view name);

/// The kind of a displacement by its name in the table. @throws std::runtime_error for another text
DisplacementKind displacement_kind_named(std::string_view name);

/// Lays out an empty database as the result file of a run that has started: page size, format
/// marks, tables, the run and its combinations, in one transaction.
void lay_out(SQLite::Database& database, const RunInfo& info);

/// Digest of what the file says of its run from the start: its tables' definitions, the run without
/// its state, settings and combinations.
std::string head_digest(SQLite::Database& database);

/// Adds the combinations of `info` that the file lacks.
void add_combinations(SQLite::Database& database, const RunInfo& info);

/// Sets the state of the run. A complete one is sealed with the digest of the content, which a
/// reader compares; any other is not.
void store_state(SQLite::Database& database, RunState state);

/// @throws std::runtime_error when the file of a complete run does not hold what the run wrote
void require_undamaged(SQLite::Database& database);

RunState load_state(SQLite::Database& database);
RunInfo load_info(SQLite::Database& database);

}  // namespace aluframe::store

#include "aluframe/store/schema.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace aluframe::store {

namespace {

/// By RunState.
constexpr std::array<const char*, 4> state_names = {"running", "complete", "cancelled", "failed"};

/// `demand`, `capacity` and `ratio` have no declared type: a REAL column would turn -0.0 into 0.
constexpr const char* tables = R"sql(
CREATE TABLE run (
  state TEXT NOT NULL,
  version INTEGER NOT NULL,
  title TEXT NOT NULL,
  code TEXT NOT NULL,
  program TEXT NOT NULL,
  model_digest TEXT NOT NULL);
CREATE TABLE combination (
  sequence INTEGER PRIMARY KEY,
  number INTEGER NOT NULL UNIQUE,
  name TEXT NOT NULL,
  two_sides INTEGER NOT NULL,
  seismic INTEGER NOT NULL);
CREATE TABLE element (
  number INTEGER PRIMARY KEY,
  sequence INTEGER NOT NULL,
  member_type INTEGER NOT NULL,
  records INTEGER NOT NULL);
CREATE TABLE governing (
  element INTEGER NOT NULL,
  item INTEGER NOT NULL,
  item_name TEXT NOT NULL,
  position INTEGER NOT NULL,
  demand,
  capacity,
  ratio,
  combination INTEGER NOT NULL,
  min_side INTEGER NOT NULL,
  not_finite TEXT,
  PRIMARY KEY (element, item)) WITHOUT ROWID;
CREATE TABLE not_checked (
  sequence INTEGER PRIMARY KEY,
  element INTEGER NOT NULL,
  combination INTEGER,
  reason TEXT NOT NULL);
CREATE TABLE safe (
  element INTEGER PRIMARY KEY,
  code_ratio,
  safe_ratio,
  item_name TEXT NOT NULL,
  item INTEGER NOT NULL,
  rules TEXT NOT NULL,
  combination INTEGER NOT NULL,
  min_side INTEGER NOT NULL,
  fraction,
  from_start_mm);
CREATE TABLE remark (
  sequence INTEGER PRIMARY KEY,
  kind TEXT NOT NULL,
  elements TEXT NOT NULL,
  text TEXT NOT NULL,
  ratio,
  element INTEGER,
  combination INTEGER);
CREATE TABLE record (
  element INTEGER PRIMARY KEY,
  data BLOB NOT NULL);
)sql";

void insert_run(SQLite::Database& database, const RunInfo& info) {
  SQLite::Statement run(database, "INSERT INTO run VALUES (?, ?, ?, ?, ?, ?)");
  run.bind(1, state_name(RunState::running));
  run.bind(2, format_version);
  run.bind(3, info.model_title);
  run.bind(4, info.code);
  run.bind(5, info.program);
  run.bind(6, info.model_digest);
  run.exec();
}

void insert_combinations(SQLite::Database& database, const RunInfo& info, const char* sql) {
  SQLite::Statement insert(database, sql);
  for (const CombinationRow& row : info.combinations) {
    insert.bind(1, row.number);
    insert.bind(2, row.name);
    insert.bind(3, row.two_sides ? 1 : 0);
    insert.bind(4, row.seismic ? 1 : 0);
    insert.exec();
    insert.reset();
  }
}

}  // namespace

const char* state_name(RunState state) {
  return state_names.at(static_cast<std::size_t>(state));
}

RunState state_named(std::string_view name) {
  const auto found = std::ranges::find(state_names, name);
  if (found == state_names.end()) {
    throw std::runtime_error("unknown state of a run \"" + std::string(name) + "\"");
  }
  return static_cast<RunState>(found - state_names.begin());
}

void lay_out(SQLite::Database& database, const RunInfo& info) {
  database.exec("PRAGMA page_size = 16384");
  SQLite::Transaction transaction(database);
  database.exec("PRAGMA application_id = " + std::to_string(application_id));
  database.exec("PRAGMA user_version = " + std::to_string(format_version));
  database.exec(tables);
  insert_run(database, info);
  insert_combinations(database, info, "INSERT INTO combination VALUES (NULL, ?, ?, ?, ?)");
  transaction.commit();
}

void add_combinations(SQLite::Database& database, const RunInfo& info) {
  SQLite::Transaction transaction(database);
  insert_combinations(database, info,
                      "INSERT OR IGNORE INTO combination VALUES (NULL, ?, ?, ?, ?)");
  transaction.commit();
}

void store_state(SQLite::Database& database, RunState state) {
  SQLite::Statement update(database, "UPDATE run SET state = ?");
  update.bind(1, state_name(state));
  update.exec();
}

RunState load_state(SQLite::Database& database) {
  return state_named(database.execAndGet("SELECT state FROM run").getString());
}

RunInfo load_info(SQLite::Database& database) {
  RunInfo info;
  SQLite::Statement run(database, "SELECT title, code, program, model_digest FROM run");
  if (!run.executeStep()) throw std::runtime_error("it does not say which run it is of");
  info.model_title = run.getColumn(0).getString();
  info.code = run.getColumn(1).getString();
  info.program = run.getColumn(2).getString();
  info.model_digest = run.getColumn(3).getString();
  SQLite::Statement combinations(
      database, "SELECT number, name, two_sides, seismic FROM combination ORDER BY sequence");
  while (combinations.executeStep()) {
    info.combinations.push_back(
        {combinations.getColumn(0).getUInt(), combinations.getColumn(1).getString(),
         combinations.getColumn(2).getInt() != 0, combinations.getColumn(3).getInt() != 0});
  }
  return info;
}

}  // namespace aluframe::store

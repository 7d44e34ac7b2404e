#include "aluframe/store/schema.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>
#include <string>
#include <utility>

#include "aluframe/store/content_digest.h"
#include "aluframe/store/stored_text.h"

namespace aluframe::store {

namespace {

/// By RunState.
constexpr std::array<const char*, 4> state_names = {"running", "complete", "cancelled", "failed"};
constexpr std::array<const char*, 3> displacement_kinds = {"deflection", "drift", "displacement"};

/// `demand`, `capacity` and `ratio` have no declared type: a REAL column would turn -0.0 into 0.
constexpr const char* tables = R"sql(
CREATE TABLE run (
  state TEXT NOT NULL,
  version INTEGER NOT NULL,
  title TEXT NOT NULL,
  code TEXT NOT NULL,
  program TEXT NOT NULL,
  model_digest TEXT NOT NULL,
  analysis TEXT NOT NULL,
  second_order_asked INTEGER NOT NULL,
  model_file TEXT NOT NULL,
  forces_file TEXT NOT NULL,
  model_elements INTEGER NOT NULL,
  model_combinations INTEGER NOT NULL,
  model_states INTEGER NOT NULL,
  build TEXT NOT NULL,
  elements TEXT NOT NULL,
  forces_digest TEXT NOT NULL);
CREATE TABLE setting (
  sequence INTEGER PRIMARY KEY,
  key TEXT NOT NULL,
  value TEXT NOT NULL,
  origin TEXT NOT NULL);
CREATE TABLE combination (
  sequence INTEGER PRIMARY KEY,
  number INTEGER NOT NULL UNIQUE,
  name TEXT NOT NULL,
  two_sides INTEGER NOT NULL,
  seismic INTEGER NOT NULL,
  state_of INTEGER);
CREATE TABLE envelope_state (
  sequence INTEGER PRIMARY KEY,
  envelope INTEGER NOT NULL,
  combination INTEGER NOT NULL,
  UNIQUE (envelope, combination));
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
  reason TEXT NOT NULL,
  force TEXT,
  magnitude,
  position INTEGER,
  at_combination INTEGER,
  at_min_side INTEGER);
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
CREATE TABLE unchecked (
  element INTEGER NOT NULL,
  sequence INTEGER NOT NULL,
  kind TEXT NOT NULL,
  magnitude,
  combination INTEGER NOT NULL,
  min_side INTEGER NOT NULL,
  fraction,
  ratio,
  ratio_combination INTEGER,
  ratio_min_side INTEGER,
  ratio_fraction,
  PRIMARY KEY (element, sequence)) WITHOUT ROWID;
CREATE TABLE assertion (
  element INTEGER NOT NULL,
  place TEXT NOT NULL,
  count INTEGER NOT NULL,
  PRIMARY KEY (element, place)) WITHOUT ROWID;
CREATE TABLE finished (
  element INTEGER PRIMARY KEY,
  sequence INTEGER NOT NULL,
  checked_positions INTEGER NOT NULL,
  digest INTEGER NOT NULL);
CREATE TABLE remark (
  sequence INTEGER PRIMARY KEY,
  kind TEXT NOT NULL,
  elements TEXT NOT NULL,
  text TEXT NOT NULL,
  ratio,
  element INTEGER,
  combination INTEGER);
CREATE TABLE buckling (
  combination INTEGER PRIMARY KEY,
  name TEXT NOT NULL,
  factor,
  shape TEXT NOT NULL,
  elements TEXT NOT NULL,
  unknown TEXT NOT NULL);
CREATE TABLE displacement (
  sequence INTEGER PRIMARY KEY,
  kind TEXT NOT NULL,
  member INTEGER,
  elements TEXT NOT NULL,
  name TEXT NOT NULL,
  first_node INTEGER NOT NULL,
  second_node INTEGER,
  is_cantilever INTEGER NOT NULL,
  direction TEXT NOT NULL,
  length_mm,
  value_mm,
  limit_mm,
  combination INTEGER,
  element INTEGER,
  from_start_mm,
  absolute_mm);
CREATE TABLE record (
  element INTEGER PRIMARY KEY,
  data BLOB NOT NULL);
CREATE TABLE seal (
  digest TEXT NOT NULL);
)sql";

std::string text_of(double value) {
  if (std::isnan(value)) return "nan";
  return value < 0.0 ? "-inf" : "inf";
}

void insert_run(SQLite::Database& database, const RunInfo& info) {
  SQLite::Statement run(database,
                        "INSERT INTO run VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
  run.bind(1, state_name(RunState::running));
  run.bind(2, format_version);
  run.bind(3, info.model_title);
  run.bind(4, info.code);
  run.bind(5, info.program);
  run.bind(6, info.model_digest);
  run.bind(7, info.setup.analysis);
  run.bind(8, info.setup.second_order_asked ? 1 : 0);
  run.bind(9, info.setup.model_file);
  run.bind(10, info.setup.forces_file);
  run.bind(11, info.model_elements);
  run.bind(12, info.model_combinations);
  run.bind(13, info.model_states);
  run.bind(14, info.build);
  run.bind(15, info.elements);
  run.bind(16, info.setup.forces_digest);
  run.exec();
}

void insert_settings(SQLite::Database& database, const RunInfo& info) {
  SQLite::Statement insert(database, "INSERT INTO setting VALUES (NULL, ?, ?, ?)");
  for (const SettingRow& row : info.setup.settings) {
    insert.bind(1, row.key);
    insert.bind(2, row.value);
    insert.bind(3, row.origin);
    insert.exec();
    insert.reset();
  }
}

/// @param verb "INSERT", or "INSERT OR IGNORE" to keep the rows that are there
void insert_combinations(SQLite::Database& database, const RunInfo& info, const std::string& verb) {
  SQLite::Statement insert(database, verb + " INTO combination VALUES (NULL, ?, ?, ?, ?, ?)");
  for (const CombinationRow& row : info.combinations) {
    insert.bind(1, row.number);
    insert.bind(2, row.name);
    insert.bind(3, row.two_sides ? 1 : 0);
    insert.bind(4, row.seismic ? 1 : 0);
    if (row.state_of) {
      insert.bind(5, *row.state_of);
    } else {
      insert.bind(5);
    }
    insert.exec();
    insert.reset();
  }
  SQLite::Statement state(database, verb + " INTO envelope_state VALUES (NULL, ?, ?)");
  for (const EnvelopeState& row : info.envelope_states) {
    state.bind(1, row.envelope);
    state.bind(2, row.combination);
    state.exec();
    state.reset();
  }
}

std::vector<CombinationRow> load_combinations(SQLite::Database& database) {
  std::vector<CombinationRow> rows;
  SQLite::Statement select(
      database,
      "SELECT number, name, two_sides, seismic, state_of FROM combination ORDER BY sequence");
  while (select.executeStep()) {
    CombinationRow row{.number = select.getColumn(0).getUInt(),
                       .name = stored_line(select.getColumn(1)),
                       .two_sides = select.getColumn(2).getInt() != 0,
                       .seismic = select.getColumn(3).getInt() != 0};
    if (!select.isColumnNull(4)) row.state_of = select.getColumn(4).getUInt();
    rows.push_back(std::move(row));
  }
  return rows;
}

std::vector<EnvelopeState> load_envelope_states(SQLite::Database& database) {
  std::vector<EnvelopeState> rows;
  SQLite::Statement select(database,
                           "SELECT envelope, combination FROM envelope_state ORDER BY sequence");
  while (select.executeStep()) {
    rows.push_back({select.getColumn(0).getUInt(), select.getColumn(1).getUInt()});
  }
  return rows;
}

RunInfo load_run(SQLite::Database& database) {
  RunInfo info;
  SQLite::Statement run(database,
                        "SELECT title, code, program, model_digest, analysis, second_order_asked, "
                        "model_file, forces_file, model_elements, model_combinations, "
                        "model_states, build, elements, forces_digest FROM run");
  if (!run.executeStep()) throw std::runtime_error("it does not say which run it is of");
  info.model_title = stored_line(run.getColumn(0));
  info.code = stored_line(run.getColumn(1));
  info.program = stored_line(run.getColumn(2));
  info.model_digest = run.getColumn(3).getString();
  info.setup.analysis = stored_line(run.getColumn(4));
  info.setup.second_order_asked = run.getColumn(5).getInt() != 0;
  info.setup.model_file = run.getColumn(6).getString();
  info.setup.forces_file = run.getColumn(7).getString();
  info.model_elements = run.getColumn(8).getUInt();
  info.model_combinations = run.getColumn(9).getUInt();
  info.model_states = run.getColumn(10).getUInt();
  info.build = stored_line(run.getColumn(11));
  info.elements = stored_line(run.getColumn(12));
  info.setup.forces_digest = stored_line(run.getColumn(13));
  return info;
}

std::vector<SettingRow> load_settings(SQLite::Database& database) {
  std::vector<SettingRow> rows;
  SQLite::Statement select(database, "SELECT key, value, origin FROM setting ORDER BY sequence");
  while (select.executeStep()) {
    rows.push_back({stored_line(select.getColumn(0)), stored_line(select.getColumn(1)),
                    stored_line(select.getColumn(2))});
  }
  return rows;
}

}  // namespace

std::string not_finite(const T_RALU_ITEM& item) {
  const std::array<std::pair<const char*, double>, 3> values = {
      {{"demand", item.dDemand}, {"capacity", item.dCapacity}, {"ratio", item.Ratio()}}};
  std::string text;
  for (const auto& [name, value] : values) {
    if (std::isfinite(value)) continue;
    text += (text.empty() ? "" : ", ") + std::string(name) + " " + text_of(value);
  }
  return text;
}

const char* state_name(RunState state) {
  return state_names.at(static_cast<std::size_t>(state));
}

std::string_view name_of(DisplacementKind kind) {
  return displacement_kinds.at(static_cast<std::size_t>(kind));
}

DisplacementKind displacement_kind_named(std::string_view name) {
  const auto found = std::ranges::find(displacement_kinds, name);
  if (found == displacement_kinds.end()) {
    throw std::runtime_error("is damaged: unknown kind of a displacement \"" + std::string(name) +
                             "\"");
  }
  return static_cast<DisplacementKind>(found - displacement_kinds.begin());
}

RunState state_named(std::string_view name) {
  const auto found = std::ranges::find(state_names, name);
  if (found == state_names.end()) {
    throw std::runtime_error("is damaged: unknown state of a run \"" + std::string(name) + "\"");
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
  insert_settings(database, info);
  insert_combinations(database, info, "INSERT");
  transaction.commit();
}

std::string head_digest(SQLite::Database& database) {
  constexpr std::array rows{
      table_definitions,
      "SELECT version, title, code, program, model_digest, analysis, second_order_asked, "
      "model_file, forces_file, model_elements, model_combinations, model_states, build, elements, "
      "forces_digest FROM run",
      "SELECT * FROM setting ORDER BY sequence", "SELECT * FROM combination ORDER BY sequence",
      "SELECT * FROM envelope_state ORDER BY sequence"};
  return digest_of_rows(database, rows);
}

void add_combinations(SQLite::Database& database, const RunInfo& info) {
  SQLite::Transaction transaction(database);
  insert_combinations(database, info, "INSERT OR IGNORE");
  transaction.commit();
}

void store_state(SQLite::Database& database, RunState state) {
  SQLite::Transaction transaction(database);
  SQLite::Statement update(database, "UPDATE run SET state = ?");
  update.bind(1, state_name(state));
  update.exec();
  database.exec("DELETE FROM seal");
  if (state == RunState::complete) {
    SQLite::Statement seal(database, "INSERT INTO seal VALUES (?)");
    seal.bind(1, content_digest(database));
    seal.exec();
  }
  transaction.commit();
}

void require_undamaged(SQLite::Database& database) {
  if (load_state(database) != RunState::complete) return;
  SQLite::Statement seal(database, "SELECT digest FROM seal");
  if (seal.executeStep() && seal.getColumn(0).getString() == content_digest(database)) return;
  throw std::runtime_error(
      "is damaged: it does not hold what its run wrote; check the model again");
}

RunState load_state(SQLite::Database& database) {
  return state_named(database.execAndGet("SELECT state FROM run").getString());
}

RunInfo load_info(SQLite::Database& database) {
  RunInfo info = load_run(database);
  info.setup.settings = load_settings(database);
  info.combinations = load_combinations(database);
  info.envelope_states = load_envelope_states(database);
  return info;
}

}  // namespace aluframe::store

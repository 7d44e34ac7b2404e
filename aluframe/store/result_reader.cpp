#include <filesystem>
#include <optional>
#include <string>
#include <utility>

#include "aluframe/store/database.h"
#include "aluframe/store/result_file.h"
#include "aluframe/store/row_query.h"
#include "aluframe/store/schema.h"
#include "aluframe/store/stored_rows.h"
#include "aluframe/store/stored_text.h"
#include "aluframe/texts/text.h"

namespace aluframe::store {

namespace {

constexpr const char* select_governing =
    "SELECT governing.element, element.member_type, item, position, demand, capacity, combination, "
    "min_side FROM element JOIN governing ON governing.element = element.number "
    "ORDER BY element.sequence, item";

/// What a run finds at positions goes before what it finds between them.
constexpr const char* told_order = " ORDER BY coalesce(position, 0) < 0, sequence";

class FileReader : public ResultReader {
 public:
  explicit FileReader(std::filesystem::path path)
      : path_(std::move(path)),
        database_(open_for_reading(path_)),
        records_(database_),
        info_(load_info(database_)) {
    require_undamaged(database_);
  }

  RunState state() const override {
    return about_file(path_, [this] { return load_state(database_); });
  }
  const RunInfo& info() const override { return info_; }

  std::vector<std::uint32_t> elements() override {
    return about_file(path_, [this] {
      std::vector<std::uint32_t> numbers;
      SQLite::Statement select(database_, "SELECT number FROM element ORDER BY sequence");
      while (select.executeStep()) numbers.push_back(select.getColumn(0).getUInt());
      return numbers;
    });
  }

  std::vector<GoverningRow> governing() override {
    return about_file(path_, [this] {
      std::vector<GoverningRow> rows;
      SQLite::Statement select(database_, select_governing);
      while (select.executeStep()) rows.push_back(governing_row(select));
      return rows;
    });
  }

  std::optional<T_RALU_D> read(std::uint32_t element, std::uint32_t combination,
                               int min_side) override {
    return about_file(path_, [&] { return records_.find(element, {combination, min_side}); });
  }

  std::vector<StoredRecord> read_all(std::uint32_t element) override {
    return about_file(path_, [&] { return records_.all(element); });
  }

  std::vector<NotChecked> not_checked() override {
    return about_file(path_, [this] {
      std::vector<NotChecked> items;
      SQLite::Statement select(database_, select_not_checked + std::string(told_order));
      while (select.executeStep()) items.push_back(not_checked_row(select));
      return items;
    });
  }

  std::vector<SafeRow> safe() override {
    return about_file(path_, [this] {
      std::vector<SafeRow> rows;
      SQLite::Statement select(database_, select_safe + std::string(" ORDER BY element.sequence"));
      while (select.executeStep()) rows.push_back(safe_row(select));
      return rows;
    });
  }

  std::vector<RemarkRow> remarks() override {
    return about_file(path_, [this] {
      std::vector<RemarkRow> rows;
      SQLite::Statement select(database_,
                               "SELECT kind, elements, text, ratio, element, combination FROM "
                               "remark ORDER BY sequence");
      while (select.executeStep()) rows.push_back(remark_row(select));
      return rows;
    });
  }

  std::vector<BucklingRow> buckling() override {
    return about_file(path_, [this] {
      std::vector<BucklingRow> rows;
      SQLite::Statement select(database_,
                               "SELECT combination, name, factor, shape, elements, unknown FROM "
                               "buckling ORDER BY combination");
      while (select.executeStep()) rows.push_back(buckling_row(select));
      return rows;
    });
  }

  std::vector<DisplacementRow> displacements() override {
    return about_file(path_, [this] {
      std::vector<DisplacementRow> rows;
      SQLite::Statement select(
          database_,
          "SELECT kind, member, elements, name, first_node, second_node, is_cantilever, direction, "
          "length_mm, value_mm, limit_mm, combination, element, from_start_mm, absolute_mm FROM "
          "displacement ORDER BY sequence");
      while (select.executeStep()) rows.push_back(displacement_row(select));
      return rows;
    });
  }

 private:
  GoverningRow governing_row(SQLite::Statement& select) {
    GoverningRow row{select.getColumn(0).getUInt(), select.getColumn(1).getInt(),
                     select.getColumn(2).getInt(), T_RALU_ITEM()};
    const SQLite::Column demand = select.getColumn(4);
    const SQLite::Column capacity = select.getColumn(5);
    row.governing = {select.getColumn(3).getInt(), demand.getDouble(), capacity.getDouble(),
                     select.getColumn(6).getUInt(), select.getColumn(7).getInt()};
    if (demand.isNull() || capacity.isNull()) restore_not_a_number(row);
    return row;
  }

  /// SQLite has no NaN: the column is NULL, the packed record has the value.
  void restore_not_a_number(GoverningRow& row) {
    const std::optional<T_RALU_D> record = records_.find(row.element, RecordKey());
    if (!record)
      throw std::runtime_error(texts::translated("an element has lost its governing record"));
    row.governing = record->aComp.at(static_cast<std::size_t>(row.item));
  }

  static std::optional<std::uint32_t> number_or_nothing(const SQLite::Column& column) {
    return column.isNull() ? std::nullopt : std::optional(column.getUInt());
  }

  static std::optional<double> value_or_nothing(const SQLite::Column& column) {
    return column.isNull() ? std::nullopt : std::optional(column.getDouble());
  }

  static RemarkRow remark_row(SQLite::Statement& select) {
    return {.kind = stored_line(select.getColumn(0)),
            .elements = stored_line(select.getColumn(1)),
            .text = stored_line(select.getColumn(2)),
            .ratio = value_or_nothing(select.getColumn(3)),
            .element = number_or_nothing(select.getColumn(4)),
            .combination = number_or_nothing(select.getColumn(5))};
  }

  static BucklingRow buckling_row(SQLite::Statement& select) {
    return {.combination = select.getColumn(0).getUInt(),
            .name = stored_line(select.getColumn(1)),
            .factor = value_or_nothing(select.getColumn(2)),
            .shape = stored_line(select.getColumn(3)),
            .elements = stored_line(select.getColumn(4)),
            .unknown = stored_line(select.getColumn(5))};
  }

  static DisplacementRow displacement_row(SQLite::Statement& select) {
    return {.kind = displacement_kind_named(stored_line(select.getColumn(0))),
            .member = number_or_nothing(select.getColumn(1)),
            .elements = stored_line(select.getColumn(2)),
            .name = stored_line(select.getColumn(3)),
            .first_node = select.getColumn(4).getUInt(),
            .second_node = number_or_nothing(select.getColumn(5)),
            .is_cantilever = select.getColumn(6).getInt() != 0,
            .direction = stored_line(select.getColumn(7)),
            .length = value_or_nothing(select.getColumn(8)),
            .value = value_or_nothing(select.getColumn(9)),
            .limit = value_or_nothing(select.getColumn(10)),
            .combination = number_or_nothing(select.getColumn(11)),
            .element = number_or_nothing(select.getColumn(12)),
            .from_start = value_or_nothing(select.getColumn(13)),
            .absolute = value_or_nothing(select.getColumn(14))};
  }

  std::filesystem::path path_;
  mutable SQLite::Database database_;
  RowQuery records_;
  RunInfo info_;
};

}  // namespace

std::unique_ptr<ResultReader> ResultReader::open(const std::filesystem::path& path) {
  return about_file(
      path, [&]() -> std::unique_ptr<ResultReader> { return std::make_unique<FileReader>(path); });
}

}  // namespace aluframe::store

#include "apps/desktop/spreadsheet.h"

#include <xlsxwriter.h>

#include <QString>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <ranges>
#include <stdexcept>
#include <variant>
#include <vector>

#include "aluframe/files/publication.h"
#include "aluframe/texts/text.h"
#include "apps/desktop/written_file.h"

namespace aluframe::desktop {

namespace {

using tables::Cell;
using tables::Column;

/// Cells of a sheet take no longer texts.
constexpr qsizetype longest_text = 32767;
/// Characters in a sheet's name, and those that it must not have.
constexpr qsizetype longest_name = 31;
constexpr QStringView forbidden_in_name = u"[]:*?/\\'";
/// Of columns, in characters.
constexpr int narrowest = 6, widest = 60;

/// UTF-8 for certain, and not too long.
std::string cell_of(const std::string& text) {
  const QString characters = QString::fromStdString(text);
  if (characters.size() <= longest_text) return characters.toStdString();
  return characters.left(longest_text - 1).toStdString() + "\u2026";
}

std::string name_of_sheet(const std::string& wanted) {
  QString name = QString::fromStdString(wanted);
  name.removeIf([](QChar c) { return forbidden_in_name.contains(c); });
  return name.left(longest_name).toStdString();
}

/// "0.000"
std::string number_format(const Column& column) {
  if (column.is_scientific) return "0.0E+00";
  return column.decimals == 0 ? "0"
                              : "0." + std::string(static_cast<std::size_t>(column.decimals), '0');
}

void require(lxw_error error) {
  if (error != LXW_NO_ERROR) throw std::runtime_error(lxw_strerror(error));
}

/// Wide characters take two.
int width_of(const std::string& text) {
  int width = 0;
  for (const QChar c : QString::fromStdString(text)) width += c.unicode() < 0x1100 ? 1 : 2;
  return width;
}

/// One sheet that is filled cell by cell.
class Sheet {
 public:
  Sheet(lxw_workbook& book, const std::string& name, const tables::OutputTable& table)
      : sheet_(*workbook_add_worksheet(&book, name.c_str())), table_(table) {
    heading_ = workbook_add_format(&book);
    format_set_bold(heading_);
    format_set_text_wrap(heading_);
    format_set_bottom(heading_, LXW_BORDER_THIN);
    over_ = workbook_add_format(&book);
    format_set_bold(over_);
    format_set_font_color(over_, 0x9C0006);
    format_set_bg_color(over_, 0xFFC7CE);
    for (const Column& column : table.columns) {
      lxw_format* format = workbook_add_format(&book);
      format_set_num_format(format, number_format(column).c_str());
      numbers_.push_back(format);
    }
  }

  void fill() {
    for (std::size_t column = 0; column < table_.columns.size(); ++column) {
      require(worksheet_write_string(&sheet_, 0, place(column),
                                     cell_of(tables::heading_text(table_.columns[column])).c_str(),
                                     heading_));
    }
    for (std::size_t row = 0; row < table_.rows.size(); ++row) {
      for (std::size_t column = 0; column < table_.columns.size(); ++column) write(row, column);
    }
    for (std::size_t column = 0; column < table_.columns.size(); ++column) arrange(column);
    worksheet_freeze_panes(&sheet_, 1, 0);
    worksheet_autofilter(&sheet_, 0, 0, last_row(), place(table_.columns.size() - 1));
  }

 private:
  static lxw_col_t place(std::size_t column) { return static_cast<lxw_col_t>(column); }
  lxw_row_t last_row() const { return static_cast<lxw_row_t>(table_.rows.size()); }

  void write(std::size_t row, std::size_t column) {
    const Cell& cell = table_.rows[row][column];
    const auto at = static_cast<lxw_row_t>(row + 1);
    if (std::holds_alternative<std::monostate>(cell)) return;
    const auto* number = std::get_if<double>(&cell);
    if (const auto* whole = std::get_if<std::int64_t>(&cell)) {
      require(
          worksheet_write_number(&sheet_, at, place(column), static_cast<double>(*whole), nullptr));
    } else if (number != nullptr && std::isfinite(*number)) {
      require(worksheet_write_number(&sheet_, at, place(column), *number, numbers_[column]));
    } else {
      const std::string text = tables::cell_text(table_.columns[column], cell);
      require(worksheet_write_string(&sheet_, at, place(column), cell_of(text).c_str(), nullptr));
    }
  }

  /// As wide as its texts, within reason; and its ratios over 1 marked.
  void arrange(std::size_t column) {
    constexpr int filter_button = 3;
    constexpr std::ptrdiff_t looked_at = 1000;  // rows, which say enough of how wide it is
    const Column& of = table_.columns[column];
    int width = std::min(width_of(tables::heading_text(of)) + filter_button, widest / 2);
    for (const auto& row : table_.rows | std::views::take(looked_at)) {
      if (std::holds_alternative<std::monostate>(row[column])) continue;
      width = std::max(width, width_of(tables::cell_text(of, row[column])) + 1);
    }
    worksheet_set_column(&sheet_, place(column), place(column),
                         std::clamp(width, narrowest, widest), nullptr);
    if (!of.is_ratio || table_.rows.empty()) return;
    lxw_conditional_format rule = {};
    rule.type = LXW_CONDITIONAL_TYPE_CELL;
    rule.criteria = LXW_CONDITIONAL_CRITERIA_GREATER_THAN;
    rule.value = 1.0;
    rule.format = over_;
    require(worksheet_conditional_format_range(&sheet_, 1, place(column), last_row(), place(column),
                                               &rule));
  }

  lxw_worksheet& sheet_;
  const tables::OutputTable& table_;
  lxw_format* heading_ = nullptr;
  lxw_format* over_ = nullptr;
  std::vector<lxw_format*> numbers_;  ///< by column
};

void write_workbook(const tables::OutputTable& table, const std::string& sheet,
                    const std::filesystem::path& path) {
  if (table.rows.size() >= LXW_ROW_MAX) {
    throw std::runtime_error(texts::translated("{} rows are more than a sheet takes, which is {}",
                                               table.rows.size(), LXW_ROW_MAX - 1));
  }
  lxw_workbook* book = workbook_new(path.c_str());
  if (book == nullptr) throw std::runtime_error(lxw_strerror(LXW_ERROR_MEMORY_MALLOC_FAILED));
  try {
    Sheet(*book, name_of_sheet(sheet), table).fill();
  } catch (...) {
    workbook_close(book);  // frees it
    throw;
  }
  require(workbook_close(book));
}

}  // namespace

std::optional<std::string> write_spreadsheet(const tables::OutputTable& table,
                                             const std::string& sheet,
                                             const std::filesystem::path& path) {
  return write_chosen_file(texts::translatable("the table"), path, [&] {
    files::Publication file(path);
    write_workbook(table, sheet, file.path());
    file.publish();
  });
}

}  // namespace aluframe::desktop

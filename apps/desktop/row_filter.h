#pragma once

#include <QString>
#include <memory>

namespace aluframe::desktop {

class TableModel;

/// Which rows of a table are shown, as the user types it:
/// - `ratio > 0.9`: a column by its heading or its key, one of < <= > >= = and a number; a ratio
///   that is no number is larger than any
/// - `element 3-7, 9`: numbers in a column of numbers or of lists of them
/// - anything else: a text in any column, whatever its case
class RowFilter {
 public:
  /// Shows everything.
  RowFilter() = default;
  /// @param model of the table whose columns the text names
  RowFilter(const QString& text, const TableModel& model);

  bool is_empty() const { return condition_ == nullptr; }
  bool accepts(const TableModel& model, int row) const;

  /// What a row has to meet.
  class Condition {
   public:
    Condition() = default;
    Condition(const Condition&) = delete;
    Condition& operator=(const Condition&) = delete;
    virtual ~Condition() = default;
    virtual bool is_met(const TableModel& model, int row) const = 0;
  };

 private:
  std::shared_ptr<const Condition> condition_;
};

}  // namespace aluframe::desktop

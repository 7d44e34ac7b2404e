#include "apps/desktop/row_filter.h"

#include <QRegularExpression>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <utility>
#include <variant>

#include "aluframe/model/number_ranges.h"
#include "apps/desktop/table_model.h"

namespace aluframe::desktop {

namespace {

using model::NumberRanges;

class HoldsText : public RowFilter::Condition {
 public:
  explicit HoldsText(QString text) : text_(std::move(text)) {}
  bool is_met(const TableModel& model, int row) const override {
    return model.holds_text(row, text_);
  }

 private:
  QString text_;
};

std::optional<double> number_in(const tables::Cell& cell) {
  if (const auto* whole = std::get_if<std::int64_t>(&cell)) return static_cast<double>(*whole);
  const auto* number = std::get_if<double>(&cell);
  if (number == nullptr) return std::nullopt;
  return std::isnan(*number) ? std::numeric_limits<double>::infinity() : *number;
}

enum class Comparison { less, at_most, more, at_least, equal };

class Compares : public RowFilter::Condition {
 public:
  Compares(int column, Comparison comparison, double limit)
      : column_(column), comparison_(comparison), limit_(limit) {}
  bool is_met(const TableModel& model, int row) const override {
    const std::optional<double> value = number_in(model.cell(row, column_));
    if (!value) return false;
    switch (comparison_) {
      case Comparison::less:
        return *value < limit_;
      case Comparison::at_most:
        return *value <= limit_;
      case Comparison::more:
        return *value > limit_;
      case Comparison::at_least:
        return *value >= limit_;
      case Comparison::equal:
        break;
    }
    return *value == limit_;
  }

 private:
  int column_;
  Comparison comparison_;
  double limit_;
};

std::optional<NumberRanges> ranges_in(const std::string& text) {
  std::string packed = text;
  std::erase(packed, ' ');
  auto parsed = model::parse_number_ranges(packed);
  auto* ranges = std::get_if<NumberRanges>(&parsed);
  return ranges == nullptr ? std::nullopt : std::optional(std::move(*ranges));
}

bool meet(const NumberRanges& some, const NumberRanges& others) {
  for (const model::NumberRange& range : some.ranges()) {
    for (const model::NumberRange& other : others.ranges()) {
      if (range.first <= other.last && other.first <= range.last) return true;
    }
  }
  return false;
}

class IsAmong : public RowFilter::Condition {
 public:
  IsAmong(int column, NumberRanges ranges) : column_(column), ranges_(std::move(ranges)) {}
  bool is_met(const TableModel& model, int row) const override {
    const tables::Cell& cell = model.cell(row, column_);
    if (const auto* number = std::get_if<std::int64_t>(&cell)) {
      return ranges_.contains(static_cast<model::Number>(*number));
    }
    const auto* list = std::get_if<std::string>(&cell);
    const auto numbers = list == nullptr ? std::nullopt : ranges_in(*list);
    return numbers && meet(*numbers, ranges_);
  }

 private:
  int column_;
  NumberRanges ranges_;
};

/// The column that is called so, or, when none is, the only one whose name begins so.
std::optional<int> find_column(const TableModel& model, const QString& name) {
  std::optional<int> beginning;
  int beginnings = 0;
  for (int column = 0; column < model.columnCount(); ++column) {
    const auto& of = model.table().columns[static_cast<std::size_t>(column)];
    for (const QString& called : {model.heading(column), QString::fromStdString(of.key)}) {
      if (called.compare(name, Qt::CaseInsensitive) == 0) return column;
    }
    if (model.heading(column).startsWith(name, Qt::CaseInsensitive)) {
      beginning = column;
      ++beginnings;
    }
  }
  return beginnings == 1 ? beginning : std::nullopt;
}

/// Signs of Chinese keyboards are as good.
QString with_plain_signs(QString text) {
  return text.replace(u'＞', u'>')
      .replace(u'＜', u'<')
      .replace(u'＝', u'=')
      .replace(u'≥', QStringLiteral(">="))
      .replace(u'≤', QStringLiteral("<="))
      .replace(u'，', u',')
      .trimmed();
}

Comparison comparison_of(const QString& sign) {
  if (sign == QStringLiteral("<")) return Comparison::less;
  if (sign == QStringLiteral("<=")) return Comparison::at_most;
  if (sign == QStringLiteral(">")) return Comparison::more;
  return sign == QStringLiteral(">=") ? Comparison::at_least : Comparison::equal;
}

std::shared_ptr<const RowFilter::Condition> comparison_in(const QString& text,
                                                          const TableModel& model) {
  static const QRegularExpression form(
      QStringLiteral(R"(^(.+?)\s*(<=|>=|<|>|=)\s*([-+]?[0-9.]+(?:e[-+]?[0-9]+)?)$)"),
      QRegularExpression::CaseInsensitiveOption);
  const QRegularExpressionMatch match = form.match(text);
  if (!match.hasMatch()) return nullptr;
  bool is_number = false;
  const double limit = match.captured(3).toDouble(&is_number);
  const auto column = find_column(model, match.captured(1).trimmed());
  if (!is_number || !column) return nullptr;
  return std::make_shared<Compares>(*column, comparison_of(match.captured(2)), limit);
}

std::shared_ptr<const RowFilter::Condition> ranges_of_column(const QString& text,
                                                             const TableModel& model) {
  static const QRegularExpression form(QStringLiteral(R"(^(.*?)\s*([0-9][0-9,\s-]*)$)"));
  const QRegularExpressionMatch match = form.match(text);
  const QString name = match.captured(1).trimmed();
  if (!match.hasMatch() || name.isEmpty()) return nullptr;
  const auto column = find_column(model, name);
  auto ranges = ranges_in(match.captured(2).toStdString());
  if (!column || !ranges) return nullptr;
  return std::make_shared<IsAmong>(*column, *std::move(ranges));
}

}  // namespace

RowFilter::RowFilter(const QString& text, const TableModel& model) {
  const QString plain = with_plain_signs(text);
  if (plain.isEmpty()) return;
  condition_ = comparison_in(plain, model);
  if (!condition_) condition_ = ranges_of_column(plain, model);
  if (!condition_) condition_ = std::make_shared<HoldsText>(text.trimmed());
}

bool RowFilter::accepts(const TableModel& model, int row) const {
  return condition_ == nullptr || condition_->is_met(model, row);
}

}  // namespace aluframe::desktop

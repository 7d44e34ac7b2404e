#include "apps/desktop/check_list.h"

#include <fmt/format.h>

#include <QHeaderView>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <cmath>

#include "aluframe/run/told.h"
#include "aluframe/tables/names.h"
#include "aluframe/tables/not_checked_tables.h"
#include "aluframe/tables/result_tables.h"
#include "aluframe/tables/safe_tables.h"
#include "aluframe/texts/sentence.h"
#include "aluframe/texts/text.h"
#include "apps/desktop/result_words.h"
#include "apps/desktop/ui_texts.h"

namespace aluframe::desktop {

namespace {

using texts::translatable;

constexpr std::array headings{translatable("check"),    translatable("ratio"),
                              translatable("verdict"),  translatable("demand"),
                              translatable("capacity"), translatable("unit"),
                              translatable("position"), translatable("combination")};

bool is_slenderness(int item) {
  return item == RALU_SLENDERNESS_Y || item == RALU_SLENDERNESS_Z;
}

QString fixed(double value) {
  return shown(std::isfinite(value) ? fmt::format("{:.3f}", value) : tables::short_number(value));
}

QStringList cells_of(const store::GoverningRow& check, const store::RunInfo& info) {
  const T_RALU_ITEM& of = check.governing;
  return {item_words(check.item),
          ratio_words(check),
          verdict_words(check),
          fixed(of.dDemand),
          of.dCapacity == 0.0 ? QStringLiteral("–") : fixed(of.dCapacity),
          is_slenderness(check.item) ? QString() : QStringLiteral("N/mm²"),
          position_words(of.nPos),
          combination_words(info, of.nLComb, of.nMinSide)};
}

QTableWidget* create_table() {
  auto* table = new QTableWidget(0, static_cast<int>(headings.size()));
  QStringList texts;
  for (const char* heading : headings) texts.push_back(ui_text(heading));
  table->setHorizontalHeaderLabels(texts);
  table->setWordWrap(false);
  table->setHorizontalScrollMode(QTableWidget::ScrollPerPixel);
  table->verticalHeader()->hide();
  table->setEditTriggers(QTableWidget::NoEditTriggers);
  table->setSelectionBehavior(QTableWidget::SelectRows);
  table->setSelectionMode(QTableWidget::SingleSelection);
  table->setTabKeyNavigation(false);
  table->setAccessibleName(ui_text(translatable("Checks of the element")));
  table->setToolTip(ui_text(translatable("Enter or a double click shows the steps of a check.")));
  return table;
}

QTableWidgetItem* create_cell(const QString& text, const store::GoverningRow& check, int column) {
  auto* cell = new QTableWidgetItem(text);
  cell->setData(Qt::UserRole, check.item);
  cell->setToolTip(text);
  const bool is_number = column == 1 || column == 3 || column == 4;
  cell->setTextAlignment((is_number ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  QFont font = cell->font();
  font.setBold(run::fails(check));
  cell->setFont(font);
  return cell;
}

/// Lines of a text block, without its heading and indentation.
QStringList lines_below_heading(const std::string& block) {
  QStringList lines;
  for (const QString& line : shown(block).split(u'\n', Qt::SkipEmptyParts).mid(1)) {
    lines.push_back(line.trimmed());
  }
  return lines;
}

/// Combinations by the number that the model has, of a state its envelope's.
run::ModelCombination model_combinations(const run::ShownResults& of) {
  return [&info = of.info](model::Number combination) {
    return tables::number_of_combination(info, combination);
  };
}

QStringList remarks_on(model::Number element, const std::vector<store::RemarkRow>& remarks) {
  QStringList lines;
  for (const store::RemarkRow& remark : remarks) {
    if (!run::ConcernedElements(remark).contains(element)) continue;
    std::string text =
        texts::translated("{}: {}", remark.kind, texts::sentence_in_words(remark.text));
    if (remark.ratio) text += texts::translated("; {}", tables::second_opinion_text(remark));
    lines.push_back(shown(text));
  }
  return lines;
}

std::vector<store::NotChecked> not_checked_of(model::Number element, const run::ShownResults& of) {
  std::vector<store::NotChecked> items;
  for (const store::NotChecked& item : of.told.not_checked) {
    if (item.element == element) items.push_back(item);
  }
  return run::with_envelopes(std::move(items), model_combinations(of));
}

QString paragraph(const QString& text) {
  return QStringLiteral("<p style='margin:2px 0'>%1</p>").arg(text.toHtmlEscaped());
}

void add_block(QStringList& to, const char* heading, const QStringList& lines) {
  if (lines.isEmpty()) return;
  to.push_back(QStringLiteral("<h4>%1</h4>").arg(ui_text(heading).toHtmlEscaped()));
  for (const QString& line : lines) to.push_back(paragraph(line));
}

}  // namespace

CheckList::CheckList(Workspace& workspace)
    : workspace_(workspace), checks_(create_table()), said_(new QLabel) {
  said_->setTextFormat(Qt::RichText);
  said_->setWordWrap(true);
  said_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  said_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  said_->setObjectName(QStringLiteral("said"));
  auto* area = new QScrollArea;
  area->setWidget(said_);
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  // On the ground of the tab.
  area->viewport()->setAutoFillBackground(false);
  said_->setAutoFillBackground(false);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(checks_);
  layout->addWidget(area, 1);
  connect(checks_, &QTableWidget::cellActivated, this, [this](int row, int column) {
    Q_EMIT wanted(checks_->item(row, column)->data(Qt::UserRole).toInt());
  });
}

void CheckList::refresh() {
  checks_->setRowCount(0);
  checks_->hide();
  said_->clear();
  const auto current = workspace_.current();
  if (!current) return;
  const run::ShownResults* results = workspace_.results();
  if (results != nullptr) {
    if (const run::ElementResult* result = results->find(*current)) {
      show_checks(*result, results->info);
    }
  }
  said_->setText(said_of(*current).join(QString()));
}

void CheckList::show_checks(const run::ElementResult& result, const store::RunInfo& info) {
  for (const store::GoverningRow& check : result.items) {
    const int row = checks_->rowCount();
    checks_->insertRow(row);
    const QStringList cells = cells_of(check, info);
    for (int column = 0; column < cells.size(); ++column) {
      checks_->setItem(row, column, create_cell(cells[column], check, column));
    }
    if (check.item == result.worst().item) checks_->setCurrentCell(row, 0);
  }
  checks_->resizeColumnsToContents();
  checks_->resizeRowsToContents();
  fill_width();
  const int bar = checks_->horizontalScrollBar()->sizeHint().height();
  checks_->setFixedHeight(checks_->horizontalHeader()->sizeHint().height() +
                          checks_->verticalHeader()->length() + bar + 2 * checks_->frameWidth());
  checks_->show();
}

/// The last column takes what the others leave, and is never narrower than its names.
void CheckList::fill_width() {
  const int last = checks_->columnCount() - 1;
  checks_->resizeColumnToContents(last);
  const int left = checks_->viewport()->width() - checks_->columnViewportPosition(last) -
                   checks_->horizontalScrollBar()->value();
  checks_->setColumnWidth(last, std::max(checks_->columnWidth(last), left));
}

void CheckList::resizeEvent(QResizeEvent* event) {
  DetailPart::resizeEvent(event);
  fill_width();
}

/// In rich text, a paragraph each.
QStringList CheckList::said_of(model::Number element) const {
  const run::ShownResults* results = workspace_.results();
  if (results == nullptr) {
    return {paragraph(
        workspace_.results_problem().empty()
            ? ui_text(translatable("The model has not been checked: there are no results."))
            : shown(workspace_.results_problem()))};
  }
  QStringList lines;
  const auto not_checked = not_checked_of(element, *results);
  const auto remarks = run::with_envelopes(results->told.remarks, model_combinations(*results));
  if (results->find(element) == nullptr) {
    lines.push_back(paragraph(ui_text(not_checked.empty()
                                          ? translatable("The results do not cover this element.")
                                          : translatable("This element has no check."))));
  }
  if (const auto safe = results->safe.find(element); safe != results->safe.end()) {
    add_block(lines, translatable("Second opinion"),
              {shown(tables::safe_text(safe->second, results->info))});
  }
  if (!not_checked.empty()) {
    add_block(lines, translatable("Not checked"),
              lines_below_heading(tables::not_checked_text(not_checked, remarks)));
  }
  add_block(lines, translatable("Remarks"), remarks_on(element, remarks));
  return lines;
}

}  // namespace aluframe::desktop

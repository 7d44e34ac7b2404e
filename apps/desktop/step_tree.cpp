#include "apps/desktop/step_tree.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QSignalBlocker>
#include <QSplitter>
#include <QTextBrowser>
#include <QTreeWidget>
#include <exception>
#include <utility>
#include <variant>

#include "aluframe/explain/step_words.h"
#include "aluframe/files/error_text.h"
#include "aluframe/run/check_explainer.h"
#include "aluframe/run/results.h"
#include "aluframe/texts/sentence.h"
#include "aluframe/texts/text.h"
#include "apps/desktop/result_words.h"
#include "apps/desktop/steady_choice.h"
#include "apps/desktop/ui_texts.h"

namespace aluframe::desktop {

namespace {

using explain::Step;
using explain::StepPointer;
using texts::translatable;

/// A quantity of the tree. Those that it follows from are added when it is opened: a quantity that
/// many follow from would else stand in the tree thousands of times.
class StepItem : public QTreeWidgetItem {
 public:
  explicit StepItem(StepPointer step) : step_(std::move(step)) {
    const std::string& unit = step_->info.unit;
    const std::string result = explain::line_of(*step_).result;
    setText(0, shown(step_->info.symbol));
    setText(1, shown(unit.empty() ? result : result + " " + unit));
    setText(2, shown(explain::words_of(step_->info).quantity));
    for (int column = 0; column < 3; ++column) setToolTip(column, text(column));
    if (!step_->from.empty()) setChildIndicatorPolicy(ShowIndicator);
  }

  const Step& step() const { return *step_; }
  void add_sources() {
    if (childCount() > 0) return;
    for (const StepPointer& source : step_->from) addChild(new StepItem(source));
  }

 private:
  StepPointer step_;
};

QTreeWidget* create_tree() {
  auto* tree = new QTreeWidget;
  tree->setColumnCount(3);
  tree->setHeaderLabels({ui_text(translatable("Symbol")), ui_text(translatable("Value")),
                         ui_text(translatable("Quantity"))});
  tree->header()->setStretchLastSection(true);
  tree->setUniformRowHeights(true);
  tree->setAccessibleName(ui_text(translatable("Steps of the check")));
  return tree;
}

QTextBrowser* create_page() {
  auto* page = new QTextBrowser;
  page->setAccessibleName(ui_text(translatable("Chosen step")));
  page->setTabChangesFocus(true);
  return page;
}

QString paragraph(const QString& text) {
  return QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped());
}

/// "σ = k·|N| / A = 1·|-50000| / 2500 = 20 N/mm²", a line for every equals sign.
QString calculation(const Step& step) {
  const explain::NumberLine line = explain::line_of(step);
  QStringList sides;
  if (step.formula) {
    const std::string symbols = explain::formula(*step.formula);
    sides.push_back(shown(symbols));
    const bool is_alone = step.formula->operation() == explain::Operation::symbol;
    if (!is_alone && line.numbers != symbols) sides.push_back(shown(line.numbers));
  }
  const std::string& unit = step.info.unit;
  sides.push_back(shown(unit.empty() ? line.result : line.result + " " + unit));
  QString text = QStringLiteral("<b>%1</b>").arg(shown(step.info.symbol).toHtmlEscaped());
  for (const QString& side : sides) {
    text += QStringLiteral("%1= %2").arg(
        &side == &sides.front() ? QStringLiteral(" ") : QStringLiteral("<br>&nbsp;&nbsp;"),
        side.toHtmlEscaped());
  }
  return QStringLiteral("<p>%1</p>").arg(text);
}

/// Where a governing check stands, for its explanation.
run::CheckPlace place_of(const store::GoverningRow& check) {
  const T_RALU_ITEM& of = check.governing;
  return {check.item, of.nLComb, of.nMinSide, of.nPos, T_RALU_RLT{of.dDemand, of.dCapacity, 0.0}};
}

class WaitCursor {
 public:
  WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
  ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
};

}  // namespace

StepTree::StepTree(Workspace& workspace, PreparedInput& prepared)
    : workspace_(workspace),
      prepared_(prepared),
      item_(new SteadyChoice),
      said_(new QLabel),
      tree_(create_tree()),
      step_(create_page()) {
  said_->setWordWrap(true);
  said_->setTextFormat(Qt::PlainText);
  said_->setObjectName(QStringLiteral("said"));
  said_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* name = new QLabel(ui_text(translatable("Check")));
  name->setBuddy(item_);
  item_->setAccessibleName(name->text());
  item_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  auto* top = new QHBoxLayout;
  top->addWidget(name);
  top->addWidget(item_, 1);
  auto* split = new QSplitter(Qt::Vertical);
  split->addWidget(tree_);
  split->addWidget(step_);
  split->setStretchFactor(0, 3);
  split->setStretchFactor(1, 2);
  split->setChildrenCollapsible(false);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top);
  layout->addWidget(said_);
  layout->addWidget(split, 1);
  layout->addStretch(0);
  connect(item_, &QComboBox::currentIndexChanged, this, [this] { show_chosen(); });
  connect(tree_, &QTreeWidget::itemExpanded, this,
          [](QTreeWidgetItem* item) { static_cast<StepItem*>(item)->add_sources(); });
  connect(tree_, &QTreeWidget::currentItemChanged, this,
          [this](const QTreeWidgetItem* item) { show_step(item); });
  connect(&prepared_, &PreparedInput::changed, this, [this] { tell_changed(); });
  connect(&workspace_, &Workspace::busy_changed, this, [this] { tell_changed(); });
}

void StepTree::choose(int item) {
  if (const run::ElementResult* result = current_result()) fill_items(*result);
  const int place = item_->findData(item);
  if (place >= 0) item_->setCurrentIndex(place);
}

const run::ElementResult* StepTree::current_result() const {
  const auto current = workspace_.current();
  const run::ShownResults* results = workspace_.results();
  return current && results != nullptr ? results->find(*current) : nullptr;
}

QString StepTree::obstacle() {
  if (!workspace_.current()) return ui_text(translatable("Nothing is selected."));
  const run::ShownResults* results = workspace_.results();
  if (results == nullptr) {
    return ui_text(translatable("The model has not been checked: there are no results."));
  }
  if (current_result() == nullptr) {
    return ui_text(translatable("This element has no check."));
  }
  if (workspace_.is_busy()) {
    return ui_text(
        translatable("A run or a dialog is going on: the steps come when it has ended."));
  }
  prepared_.want();
  if (!prepared_.problem().empty()) return shown(prepared_.problem());
  if (!prepared_.input()) return ui_text(translatable("The forces are being computed..."));
  if (prepared_.input()->digest != results->info.model_digest) {
    return shown(run::other_state_text(workspace_.document()->path(), results->file));
  }
  return {};
}

void StepTree::clear(const QString& said) {
  said_->setText(said);
  said_->setVisible(!said.isEmpty());
  tree_->clear();
  step_->clear();
  for (QWidget* part : {static_cast<QWidget*>(tree_), static_cast<QWidget*>(step_)}) {
    part->setVisible(said.isEmpty());
  }
}

void StepTree::refresh() {
  const QString reason = obstacle();
  const run::ElementResult* result = current_result();
  item_->setEnabled(reason.isEmpty());
  if (result == nullptr) {
    item_->clear();
    listed_.reset();
  } else {
    fill_items(*result);
  }
  if (!reason.isEmpty() || result == nullptr) {
    explained_.clear();
    explained_element_.reset();
    explained_input_.reset();
    return clear(reason);
  }
  if (explained_element_ == result->element && explained_input_ == prepared_.input()) return;
  explain_all(*result);
  explained_element_ = result->element;
  explained_input_ = prepared_.input();
  show_chosen();
}

/// The worst check first chosen.
void StepTree::fill_items(const run::ElementResult& result) {
  const model::Number element = result.element;
  QStringList texts;
  for (const store::GoverningRow& check : result.items) {
    texts.push_back(item_words(check.item) + QStringLiteral("  ") + ratio_words(check) +
                    QStringLiteral("  ") + verdict_words(check));
  }
  bool is_same = listed_ == element && item_->count() == texts.size();
  for (int i = 0; is_same && i < texts.size(); ++i) is_same = item_->itemText(i) == texts[i];
  if (is_same) return;
  const QSignalBlocker blocker(item_);
  item_->clear();
  for (std::size_t i = 0; i < result.items.size(); ++i) {
    item_->addItem(texts[static_cast<qsizetype>(i)], result.items[i].item);
  }
  item_->setCurrentIndex(item_->findData(result.worst().item));
  listed_ = element;
}

/// All checks at once: making the module ready takes longer than explaining them.
void StepTree::explain_all(const run::ElementResult& result) {
  const WaitCursor waiting;
  explained_.clear();
  const run::ShownResults& results = *workspace_.results();
  try {
    const run::CheckExplainer explainer(*prepared_.input(), results.info, results.file,
                                        {result.element});
    for (const store::GoverningRow& check : result.items) {
      Explained entry{.item = check.item, .root = {}, .heading = {}, .problem = {}};
      auto found = explainer.explain(result.element, place_of(check));
      if (auto* problem = std::get_if<run::Problem>(&found)) {
        entry.problem = std::move(problem->text);
      } else {
        const auto& of = std::get<run::ExplainedCheck>(found);
        entry.root = of.explanation.ratio;
        entry.heading = shown(texts::translated(
            "{}, position {}, combination {}", texts::sentence_in_words(of.explanation.check),
            position_words(of.place.position).toStdString(),
            combination_words(results.info, of.place.combination, of.place.min_side)
                .toStdString()));
      }
      explained_.push_back(std::move(entry));
    }
  } catch (const std::exception& error) {
    for (const store::GoverningRow& check : result.items) {
      explained_.push_back({check.item, {}, {}, files::error_text(error)});
    }
  }
}

void StepTree::show_chosen() {
  const int item = item_->currentData().toInt();
  for (const Explained& entry : explained_) {
    if (entry.item != item) continue;
    clear(shown(entry.problem));
    if (!entry.root) return;
    said_->setText(entry.heading);
    said_->show();
    auto* root = new StepItem(entry.root);
    tree_->addTopLevelItem(root);
    root->setExpanded(true);
    for (int i = 0; i < root->childCount(); ++i) root->child(i)->setExpanded(true);
    tree_->setCurrentItem(root);
    const int letters = fontMetrics().averageCharWidth();
    tree_->setColumnWidth(0, 20 * letters);
    tree_->setColumnWidth(1, 18 * letters);
    return;
  }
}

void StepTree::show_step(const QTreeWidgetItem* item) {
  step_->clear();
  if (item == nullptr) return;
  const Step& step = static_cast<const StepItem*>(item)->step();
  const explain::StepWords words = explain::words_of(step.info);
  QString page = paragraph(shown(words.quantity)) + calculation(step);
  if (!words.why.empty()) page += paragraph(shown(words.why));
  if (!words.clause.empty()) {
    page += paragraph(QStringLiteral("GB 50429-2007, ") + shown(words.clause));
  }
  step_->setHtml(page);
}

}  // namespace aluframe::desktop

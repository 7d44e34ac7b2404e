#include "apps/desktop/table_panel.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>
#include <variant>

#include "aluframe/forces/compute_forces.h"
#include "aluframe/tables/force_tables.h"
#include "aluframe/texts/text.h"
#include "apps/desktop/message_boxes.h"
#include "apps/desktop/table_file.h"
#include "apps/desktop/table_view.h"
#include "apps/desktop/ui_texts.h"
#include "apps/desktop/workspace.h"

namespace aluframe::desktop {

namespace {

using texts::translatable;

/// Roles of an entry of the list of subjects.
constexpr int number_role = Qt::UserRole, combination_role = Qt::UserRole + 1;

/// "LC3 Wind", "C3 1.2G+1.4W".
QString subject_text(const char* kind, model::Number number, const std::string& name) {
  return QStringLiteral("%1%2 %3")
      .arg(QString::fromLatin1(kind))
      .arg(number)
      .arg(QString::fromStdString(name))
      .trimmed();
}

/// The hourglass, while it lives.
class Waiting {
 public:
  Waiting() { QApplication::setOverrideCursor(Qt::WaitCursor); }
  ~Waiting() { QApplication::restoreOverrideCursor(); }
  Waiting(const Waiting&) = delete;
  Waiting& operator=(const Waiting&) = delete;
};

}  // namespace

TablePanel::TablePanel(Workspace& workspace)
    : workspace_(workspace),
      pages_(new QStackedWidget),
      view_(new TableView),
      message_(new QLabel) {
  create_chooser();
  create_force_line();
  arrange();
  listen();
  update_buttons();
}

void TablePanel::create_chooser() {
  chooser_ = new QComboBox;
  chooser_->setAccessibleName(ui_text(translatable("Table")));
  for (const TableKind kind : all_tables) {
    if (kind == TableKind::nodes) chooser_->insertSeparator(chooser_->count());
    chooser_->addItem(name_of(kind), static_cast<int>(kind));
  }
  chooser_->setMaxVisibleItems(chooser_->count());
  filter_ = new QLineEdit;
  filter_->setAccessibleName(ui_text(translatable("Filter")));
  filter_->setPlaceholderText(ui_text(translatable("Filter: a text, ratio > 0.9, or element 3-7")));
  filter_->setClearButtonEnabled(true);
  count_ = new QLabel;
  save_ = new QToolButton;
  save_->setText(ui_text(translatable("Save as...")));
  save_->setToolTip(ui_text(translatable("Save the rows that are shown, for a spreadsheet")));
}

void TablePanel::create_force_line() {
  force_line_ = new QWidget;
  subjects_ = new QComboBox;
  subjects_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  subjects_->setMinimumContentsLength(24);
  auto* label = new QLabel(ui_text(translatable("Load case or combination:")));
  label->setBuddy(subjects_);
  subjects_->setAccessibleName(label->text());
  compute_ = new QPushButton(ui_text(translatable("Compute")));
  auto* line = new QHBoxLayout(force_line_);
  line->setContentsMargins({});
  line->addWidget(label);
  line->addWidget(subjects_, 1);
  line->addWidget(compute_);
  line->addStretch(1);
  force_line_->hide();
}

void TablePanel::arrange() {
  message_->setAlignment(Qt::AlignCenter);
  message_->setWordWrap(true);
  message_->setTextFormat(Qt::PlainText);
  message_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  message_->setMargin(fontMetrics().height());
  view_->setAccessibleName(ui_text(translatable("Table")));
  pages_->addWidget(message_);
  pages_->addWidget(view_);
  auto* top = new QHBoxLayout;
  top->addWidget(chooser_);
  top->addWidget(filter_, 1);
  top->addWidget(count_);
  top->addWidget(save_);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top);
  layout->addWidget(force_line_);
  layout->addWidget(pages_, 1);
}

void TablePanel::listen() {
  connect(chooser_, &QComboBox::currentIndexChanged, this,
          [this] { show_table(static_cast<TableKind>(chooser_->currentData().toInt())); });
  connect(filter_, &QLineEdit::textChanged, this, [this](const QString& text) {
    {
      const QSignalBlocker blocked(view_);
      view_->order().filter_by(text);
    }
    mark_selected();
    update_count();
  });
  connect(save_, &QToolButton::clicked, this, [this] { save(); });
  connect(subjects_, &QComboBox::currentIndexChanged, this, [this] {
    update_buttons();
    make_again();
  });
  connect(compute_, &QPushButton::clicked, this, [this] { compute_forces(); });
  connect(view_, &TableView::rows_selected, this, [this] { select_in_model(); });
  connect(view_, &TableView::customContextMenuRequested, this,
          [this](const QPoint& at) { open_menu(at); });
  const auto forget_forces = [this] {
    forces_.reset();
    list_subjects();
  };
  connect(&workspace_, &Workspace::document_changed, this, [this, forget_forces] {
    forget_forces();
    // Its results follow; those that are there are of another model.
    if (!is_of_results(kind_)) make_again();
  });
  connect(&workspace_, &Workspace::edited, this, [this, forget_forces] {
    forget_forces();
    make_again();
  });
  connect(&workspace_, &Workspace::results_changed, this, [this] {
    if (is_of_results(kind_)) make_again();
  });
  connect(&workspace_, &Workspace::selection_changed, this, [this] {
    if (isVisible() && !is_stale_) mark_selected();
  });
  connect(&workspace_, &Workspace::busy_changed, this, [this] { update_buttons(); });
  list_subjects();
}

QSize TablePanel::sizeHint() const {
  const QFontMetrics metrics = fontMetrics();
  return {metrics.averageCharWidth() * 110, metrics.height() * 16};
}

void TablePanel::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (is_stale_) {
    make_table();
  } else {
    mark_selected();
  }
}

void TablePanel::show_table(TableKind kind) {
  if (kind == kind_ && !is_stale_) return;
  if (kind != kind_) {
    // What is filtered for has another meaning, or none, in another table.
    const QSignalBlocker filter_blocked(filter_), view_blocked(view_);
    filter_->clear();
    view_->order().filter_by({});
  }
  kind_ = kind;
  const QSignalBlocker chooser_blocked(chooser_);
  chooser_->setCurrentIndex(chooser_->findData(static_cast<int>(kind)));
  force_line_->setVisible(kind == TableKind::forces);
  make_again();
}

void TablePanel::filter_by(const QString& text) {
  filter_->setText(text);
}

void TablePanel::make_again() {
  is_stale_ = true;
  if (isVisible()) make_table();
}

void TablePanel::make_table() {
  is_stale_ = false;
  ShownTable shown = kind_ == TableKind::forces ? make_forces() : shown_table(kind_, workspace_);
  elements_ = std::move(shown.elements);
  const bool is_empty = shown.table.rows.empty();
  message_->setText(QString::fromStdString(shown.why_empty));
  view_->show_table(std::move(shown.table));
  pages_->setCurrentWidget(is_empty ? static_cast<QWidget*>(message_) : view_);
  update_buttons();
  mark_selected();
  update_count();
}

// Forces.

void TablePanel::list_subjects() {
  const std::optional<run::Subject> earlier = subject();
  const QSignalBlocker blocked(subjects_);
  subjects_->clear();
  if (workspace_.document() == nullptr) return;
  const auto add = [this](const char* kind, const auto& entity, bool is_combination) {
    subjects_->addItem(subject_text(kind, entity.number, entity.name), entity.number);
    subjects_->setItemData(subjects_->count() - 1, is_combination, combination_role);
  };
  for (const auto& combination : workspace_.model().combinations) {
    if (!combination.state_of) add("C", combination, true);
  }
  for (const auto& load_case : workspace_.model().load_cases) add("LC", load_case, false);
  if (earlier) choose_subject(*earlier);
}

std::optional<run::Subject> TablePanel::subject() const {
  if (subjects_->currentIndex() < 0) return std::nullopt;
  return run::Subject{subjects_->currentData(combination_role).toBool(),
                      subjects_->currentData(number_role).toUInt()};
}

void TablePanel::choose_subject(const run::Subject& subject) {
  for (int i = 0; i < subjects_->count(); ++i) {
    if (subjects_->itemData(i, number_role).toUInt() == subject.number &&
        subjects_->itemData(i, combination_role).toBool() == subject.is_combination) {
      subjects_->setCurrentIndex(i);
    }
  }
}

const model::Model* TablePanel::model_with_forces_of(const run::Subject& subject) const {
  if (!forces_) return nullptr;
  const bool of_second_order = subject.is_combination && workspace_.model().analysis.second_order;
  return forces_->of_second_order == of_second_order ? &forces_->model : nullptr;
}

std::optional<std::string> TablePanel::find_forces_of(const run::Subject& subject) {
  const model::Model& model = workspace_.model();
  run::Input input;
  input.file = workspace_.document()->path();
  input.model = model;
  auto found = run::with_forces_of(std::move(input), subject);
  if (auto* problem = std::get_if<run::Problem>(&found)) return std::move(problem->text);
  forces_ = KnownForces{std::get<model::Model>(std::move(found)),
                        subject.is_combination && model.analysis.second_order};
  return std::nullopt;
}

void TablePanel::compute_forces() {
  const std::optional<run::Subject> wanted = subject();
  if (!wanted || workspace_.is_busy()) return;
  std::optional<std::string> problem;
  {
    const Waiting waiting;
    problem = find_forces_of(*wanted);
  }
  if (problem) {
    workspace_.tell(*problem);
    show_problem(this, *problem);
  } else if (kind_ == TableKind::forces) {
    make_again();
  }
}

ShownTable TablePanel::make_forces() {
  if (workspace_.document() == nullptr) return shown_table(TableKind::forces, workspace_);
  const std::optional<run::Subject> wanted = subject();
  if (!wanted) return {{}, {}, texts::translated("The model has no load cases.")};
  const model::Model& model = workspace_.model();
  const bool needs_analysis = model.analysis.second_order || !forces::has_all_forces(model);
  if (model_with_forces_of(*wanted) == nullptr && !needs_analysis) {
    if (auto problem = find_forces_of(*wanted)) return {{}, {}, *std::move(problem)};
  }
  const model::Model* with_forces = model_with_forces_of(*wanted);
  if (with_forces == nullptr) {
    return {{}, {}, texts::translated("These forces take an analysis: press Compute.")};
  }
  tables::OutputTable table = tables::element_forces_table(*with_forces, *wanted);
  RowElements elements = elements_by_number(table);
  return {std::move(table), std::move(elements), texts::translated("No element has forces in it.")};
}

void TablePanel::update_buttons() {
  const std::optional<run::Subject> wanted = subject();
  const bool is_needed = wanted && model_with_forces_of(*wanted) == nullptr;
  compute_->setEnabled(is_needed && !workspace_.is_busy());
  compute_->setToolTip(workspace_.is_busy() ? ui_text(translatable("A run is going on."))
                                            : QString());
  save_->setEnabled(view_->table_model().rowCount() > 0);
  filter_->setEnabled(view_->table_model().rowCount() > 0);
}

// Selection.

void TablePanel::select_in_model() {
  if (elements_.empty()) return;
  std::vector<model::Number> numbers;
  for (const std::size_t row : view_->selected_rows()) {
    const auto of_row = elements_.of(row);
    numbers.insert(numbers.end(), of_row.begin(), of_row.end());
  }
  const QScopedValueRollback selecting(is_selecting_, true);
  workspace_.select(numbers);
}

bool TablePanel::stands_for_selected(std::size_t row) const {
  const auto of_row = elements_.of(row);
  return !of_row.empty() && std::ranges::all_of(of_row, [this](model::Number element) {
    return workspace_.is_selected(element);
  });
}

void TablePanel::mark_selected() {
  if (is_selecting_ || elements_.empty()) return;
  const std::optional<model::Number> current = workspace_.current();
  if (!current) {  // nothing is selected
    view_->mark_rows([](std::size_t) { return false; });
    return;
  }
  view_->mark_rows([this](std::size_t row) { return stands_for_selected(row); });
  for (std::size_t row = 0; row < elements_.rows(); ++row) {
    const auto of_row = elements_.of(row);
    if (std::ranges::find(of_row, *current) == of_row.end() || !stands_for_selected(row)) continue;
    view_->show_row(row);
    return;
  }
}

void TablePanel::update_count() {
  const int all = view_->table_model().rowCount(), shown = view_->order().rowCount();
  if (all == 0) {
    count_->clear();
  } else if (shown == all) {
    count_->setText(QString::fromStdString(texts::counted(
        static_cast<std::size_t>(all), translatable("{} row"), translatable("{} rows"))));
  } else {
    count_->setText(QString::fromStdString(texts::translated("{} of {} rows", shown, all)));
  }
}

void TablePanel::open_menu(const QPoint& at) {
  QMenu menu(this);
  const bool has_rows = view_->selectionModel()->hasSelection();
  const auto add = [&menu](const char* text, bool is_enabled, const auto& act) {
    QAction* action = menu.addAction(ui_text(text));
    action->setEnabled(is_enabled);
    QObject::connect(action, &QAction::triggered, &menu, act);
    return action;
  };
  add(translatable("Copy"), has_rows, [this] {
    view_->copy(false);
  })->setShortcut(QKeySequence::Copy);
  add(translatable("Copy with headings"), has_rows, [this] { view_->copy(true); });
  const int column = view_->columnAt(at.x());
  add(translatable("Copy this column"), column >= 0,
      [this, column] { QApplication::clipboard()->setText(view_->column_text(column)); });
  menu.addSeparator();
  add(translatable("Select in model"), has_rows && !elements_.empty(),
      [this] { select_in_model(); });
  add(translatable("Select all rows"), true, [this] {
    view_->selectAll();
  })->setShortcut(QKeySequence::SelectAll);
  menu.addSeparator();
  add(translatable("Save as..."), save_->isEnabled(), [this] { save(); });
  menu.exec(view_->viewport()->mapToGlobal(at));
}

// Files.

std::optional<std::string> TablePanel::write_to(const std::filesystem::path& path) const {
  const Waiting waiting;
  return write_table_file(view_->order().shown_table(), name_of(kind_).toStdString(), path);
}

bool TablePanel::save_as(const std::filesystem::path& path) {
  if (const auto problem = write_to(path)) {
    show_problem(this, *problem);
    return false;
  }
  workspace_.tell(texts::translated("{}: the table is written", path.string()));
  return true;
}

void TablePanel::save() {
  std::filesystem::path proposal = workspace_.document()->path();
  proposal.replace_filename(proposal.stem().string() + "-" + file_name_of(kind_).toStdString());
  const auto path = choose_table_file(this, QString::fromStdString(proposal.string()));
  if (path) save_as(*path);
}

}  // namespace aluframe::desktop

#include "apps/desktop/section_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "aluframe/section/section_properties.h"
#include "aluframe/texts/text.h"
#include "apps/desktop/model_edit_command.h"
#include "apps/desktop/section_sketch.h"
#include "apps/desktop/ui_texts.h"

namespace aluframe::desktop {

namespace {

using texts::translatable;

QString to_qt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

SectionDialog::SectionDialog(QWidget* parent, Workspace& workspace, QUndoStack& undo,
                             model::Number shown)
    : QDialog(parent),
      workspace_(workspace),
      undo_(undo),
      choice_(new QComboBox),
      shape_(new QLabel),
      problem_(new QLabel),
      form_(new QFormLayout),
      welded_(new QCheckBox(ui_text(translatable("welded")))),
      sketch_(new SectionSketch),
      buttons_(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel)) {
  setWindowTitle(ui_text(translatable("Sections")));
  choice_->setAccessibleName(windowTitle());
  for (const model::Section& section : workspace_.model().sections) {
    choice_->addItem(QStringLiteral("%1 %2").arg(section.number).arg(to_qt(section.name)),
                     section.number);
  }
  problem_->setWordWrap(true);
  problem_->setTextFormat(Qt::PlainText);
  auto* left = new QVBoxLayout;
  left->addWidget(choice_);
  left->addWidget(shape_);
  left->addLayout(form_);
  left->addWidget(welded_);
  left->addWidget(problem_);
  left->addStretch(1);
  auto* parts = new QHBoxLayout;
  parts->addLayout(left);
  parts->addWidget(sketch_, 1);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(parts);
  layout->addWidget(buttons_);
  connect(choice_, &QComboBox::activated, this, [this](int row) {
    show_section(static_cast<model::Number>(choice_->itemData(row).toUInt()));
  });
  connect(welded_, &QCheckBox::toggled, this, [this] { read_edits(); });
  connect(buttons_, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons_, &QDialogButtonBox::rejected, this, &QDialog::reject);
  choice_->setCurrentIndex(choice_->findData(shown));
  show_section(shown);
}

double SectionDialog::millimetres() const {
  return model::millimetres_per(workspace_.model().units.section);
}

void SectionDialog::show_section(model::Number number) {
  section_ = *workspace_.model().sections.find(number);
  edits_.clear();
  while (form_->rowCount() > 0) form_->removeRow(0);
  const auto names = model::dimension_names(section_.shape);
  shape_->setText(
      QString::fromStdString(texts::translated("Shape {}", model::name_of(section_.shape))));
  for (std::size_t i = 0; i < names.size(); ++i) {
    auto* edit = new QLineEdit(QString::number(section_.dimensions[i] / millimetres(), 'g',
                                               QLocale::FloatingPointShortest));
    connect(edit, &QLineEdit::textEdited, this, [this] { read_edits(); });
    form_->addRow(QStringLiteral("%1, %2").arg(
                      to_qt(names[i]), to_qt(model::name_of(workspace_.model().units.section))),
                  edit);
    edits_.push_back(edit);
  }
  const bool has_shape = section_.shape != model::Shape::other;
  welded_->setVisible(has_shape);
  welded_->setChecked(section_.welded);
  if (!has_shape) {
    sketch_->show_nothing();
    problem_->setText(
        ui_text(translatable("This section is given by its properties: change them in the file.")));
    buttons_->button(QDialogButtonBox::Ok)->setEnabled(false);
    return;
  }
  read_edits();
}

void SectionDialog::read_edits() {
  section_.welded = welded_->isChecked();
  QString problem;
  for (std::size_t i = 0; i < edits_.size(); ++i) {
    bool is_number = false;
    const double value = edits_[i]->text().trimmed().toDouble(&is_number);
    if (is_number) {
      section_.dimensions[i] = value * millimetres();
    } else if (problem.isEmpty()) {
      problem = QString::fromStdString(
          texts::translated("{} is no number", model::dimension_names(section_.shape)[i]));
    }
  }
  if (problem.isEmpty()) {
    if (const auto found = section::find_dimension_problem(section_)) {
      problem = QString::fromStdString(found->text);
    }
  }
  problem_->setText(problem);
  buttons_->button(QDialogButtonBox::Ok)->setEnabled(problem.isEmpty());
  if (problem.isEmpty()) {
    sketch_->show_section(section_);
  } else {
    sketch_->show_nothing();
  }
}

void SectionDialog::accept() {
  const model::Section& before = *workspace_.model().sections.find(section_.number);
  if (section_ != before) {
    EditedParts old_parts, new_parts;
    old_parts.sections = {before};
    new_parts.sections = {section_};
    undo_.push(new ModelEditCommand(workspace_, ui_text(translatable("section")),
                                    std::move(old_parts), std::move(new_parts)));
  }
  QDialog::accept();
}

}  // namespace aluframe::desktop

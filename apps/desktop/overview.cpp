#include "apps/desktop/overview.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>
#include <QVBoxLayout>

#include "aluframe/io/format_names.h"
#include "aluframe/texts/text.h"
#include "apps/desktop/ui_texts.h"

namespace aluframe::desktop {

namespace {

using texts::translatable;

QString text_of(double value) {
  return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

QString text_of(const std::string& text) {
  return QString::fromStdString(text);
}

QLabel* create_label() {
  auto* label = new QLabel;
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

QLabel* create_title() {
  QLabel* title = create_label();
  QFont font = title->font();
  font.setBold(true);
  font.setPointSizeF(font.pointSizeF() * 1.3);
  title->setFont(font);
  title->setWordWrap(true);
  return title;
}

QStringList material_headers() {
  return {ui_text(translatable("No.")),
          ui_text(translatable("Name")),
          ui_text(translatable("Standard")),
          ui_text(translatable("Grade")),
          QStringLiteral("E"),
          ui_text(translatable("Poisson's ratio")),
          QStringLiteral("fu"),
          QStringLiteral("f0.2, t \u2264 10 mm"),
          QStringLiteral("f0.2, t > 10 mm")};
}

QTableWidget* create_material_table() {
  auto* table = new QTableWidget;
  const QStringList headers = material_headers();
  table->setColumnCount(static_cast<int>(headers.size()));
  table->setHorizontalHeaderLabels(headers);
  table->verticalHeader()->hide();
  table->setEditTriggers(QTableWidget::NoEditTriggers);
  table->setSelectionBehavior(QTableWidget::SelectRows);
  return table;
}

QStringList cells_of(const model::Material& material) {
  return {QString::number(material.number),
          text_of(material.name),
          text_of(material.standard),
          text_of(material.grade),
          text_of(material.e),
          text_of(material.poisson),
          text_of(material.fu),
          text_of(material.f02_thin),
          text_of(material.f02_thick)};
}

QGroupBox* boxed(const QString& title, QLayout* layout) {
  auto* box = new QGroupBox(title);
  box->setLayout(layout);
  return box;
}

/// A menu's text without its accelerator and dots.
QString heading(QString text) {
  return text.remove(QStringLiteral("(&M)")).remove(u'&').remove(QStringLiteral("..."));
}

}  // namespace

Overview::Overview()
    : title_(create_title()),
      file_(create_label()),
      settings_(new QFormLayout),
      materials_(create_material_table()) {
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(title_);
  layout->addWidget(file_);
  layout->addWidget(boxed(ui_text(translatable("Design settings")), settings_));
  auto* table = new QVBoxLayout;
  table->addWidget(materials_);
  layout->addWidget(
      boxed(heading(ui_text(translatable("&Materials..."))) + QStringLiteral(" (N/mm\u00B2)"),
            table),
      1);
}

void Overview::show_model(const model::Model& model, const QString& file) {
  title_->setText(text_of(model.title));
  file_->setText(ui_text(translatable("File")) + QStringLiteral(": ") + file);
  show_settings(model);
  show_materials(model);
}

void Overview::add_row(QFormLayout& form, const QString& name, const QString& value) {
  QLabel* label = create_label();
  label->setText(value);
  form.addRow(name, label);
}

void Overview::show_settings(const model::Model& model) {
  while (settings_->rowCount() > 0) settings_->removeRow(0);
  if (!model.design) {
    settings_->addRow(new QLabel(ui_text(translatable("The model has no design settings."))));
    return;
  }
  const model::DesignSettings& design = *model.design;
  const auto add = [this](const char* name, const QString& value) {
    add_row(*settings_, ui_text(name), value);
  };
  const auto yes_or_no = [](bool on) {
    return ui_text(on ? translatable("yes") : translatable("no"));
  };
  add(translatable("Design code"),
      QString::fromLatin1(io::shown_code_name.data(), io::shown_code_name.size()));
  add(translatable("Safety class"), QString::number(design.safety_class));
  add(translatable("Strength adjustment ratio"), text_of(design.strength_ratio));
  add(translatable("Rib stiffeners"), yes_or_no(design.rib));
  add(translatable("Rib stiffener ratio"), text_of(design.rib_ratio));
  add(translatable("Seismic design"), yes_or_no(design.seismic));
  add(translatable("γRE, strength"), text_of(design.gamma_re_strength));
  add(translatable("γRE, stability"), text_of(design.gamma_re_stability));
}

void Overview::show_materials(const model::Model& model) {
  materials_->setRowCount(static_cast<int>(model.materials.size()));
  int row = 0;
  for (const model::Material& material : model.materials) {
    const QStringList cells = cells_of(material);
    for (int column = 0; column < cells.size(); ++column) {
      auto* item = new QTableWidgetItem(cells[column]);
      materials_->setItem(row, column, item);
    }
    ++row;
  }
  materials_->resizeColumnsToContents();
}

}  // namespace aluframe::desktop

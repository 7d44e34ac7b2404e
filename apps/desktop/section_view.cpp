#include "apps/desktop/section_view.h"

#include <fmt/format.h>

#include <QFormLayout>
#include <QLabel>
#include <QResizeEvent>
#include <QScrollArea>
#include <QVBoxLayout>
#include <string_view>

#include "aluframe/explain/number_text.h"
#include "aluframe/section/section_properties.h"
#include "aluframe/texts/text.h"
#include "apps/desktop/result_words.h"
#include "apps/desktop/section_sketch.h"
#include "apps/desktop/ui_texts.h"

namespace aluframe::desktop {

namespace {

using texts::translatable;

/// "4528 mm²", "4.43·10⁷ mm⁴".
QString value_text(double value, const char* unit) {
  QString text = shown(explain::number_text(value, 5));
  const qsizetype exponent = text.indexOf(u'e');
  if (exponent >= 0) {
    static constexpr std::u16string_view raised = u"⁰¹²³⁴⁵⁶⁷⁸⁹";
    QString power;
    for (const QChar digit : text.mid(exponent + 1)) {
      power += digit.isDigit() ? QChar(raised[static_cast<std::size_t>(digit.digitValue())])
                               : QChar(u'⁻');
    }
    text = text.left(exponent) + QStringLiteral("·10") + power;
  }
  return text.replace(u'-', u'−') + u' ' + QString::fromUtf8(unit);
}

/// "H 240, B1 130, ...", two in a line, without radii of 0; empty for a section given by its
/// properties.
QString dimensions_text(const model::Section& section) {
  const auto names = model::dimension_names(section.shape);
  QString text;
  int count = 0;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const double value = section.dimensions.at(i);
    if (value == 0.0 && names[i].starts_with('r')) continue;
    if (count > 0) text += count % 2 == 0 ? QStringLiteral(",\n") : QStringLiteral(", ");
    text += shown(fmt::format("{} {:g}", names[i], value));
    ++count;
  }
  return text;
}

}  // namespace

SectionView::SectionView(Workspace& workspace)
    : workspace_(workspace),
      parts_(new QBoxLayout(QBoxLayout::TopToBottom)),
      name_(new QLabel),
      sketch_(new SectionSketch),
      values_(new QFormLayout) {
  name_->setTextFormat(Qt::PlainText);
  name_->setWordWrap(true);
  parts_->addWidget(sketch_, 1);
  parts_->addLayout(values_);
  auto* page = new QWidget;
  auto* whole = new QVBoxLayout(page);
  whole->addWidget(name_);
  whole->addLayout(parts_, 1);
  auto* area = new QScrollArea;
  area->setWidget(page);
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  // On the ground of the tab.
  area->viewport()->setAutoFillBackground(false);
  page->setAutoFillBackground(false);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(area);
}

void SectionView::refresh() {
  while (values_->rowCount() > 0) values_->removeRow(0);
  sketch_->show_nothing();
  name_->clear();
  const auto current = workspace_.current();
  if (!current) return;
  const model::Element& element = *workspace_.model().elements.find(*current);
  const model::Section& section = *workspace_.model().sections.find(element.section);
  const QString name = with_name(section.number, section.name);
  name_->setText(section.shape == model::Shape::other
                     ? shown(texts::translated("{}: given by its properties, without dimensions",
                                               name.toStdString()))
                     : name);
  sketch_->show_section(section);
  show_values(section);
}

void SectionView::add_value(const QString& name, const QString& value) {
  auto* label = new QLabel(value);
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setObjectName(name);
  values_->addRow(name, label);
}

void SectionView::show_values(const model::Section& section) {
  const QString dimensions = dimensions_text(section);
  if (!dimensions.isEmpty()) {
    add_value(ui_text(translatable("Dimensions")), dimensions + QStringLiteral(" mm"));
  }
  const model::SectionProperties p = section::properties_of(section);
  add_value(QStringLiteral("A"), value_text(p.area, "mm²"));
  add_value(QStringLiteral("Iyy"), value_text(p.iyy, "mm⁴"));
  add_value(QStringLiteral("Izz"), value_text(p.izz, "mm⁴"));
  add_value(QStringLiteral("It"), value_text(p.it, "mm⁴"));
  add_value(QStringLiteral("Iw"), value_text(p.iw, "mm⁶"));
  add_value(QStringLiteral("Qy/b"), value_text(p.qyb, "mm²"));
  add_value(QStringLiteral("Qz/b"), value_text(p.qzb, "mm²"));
  add_value(ui_text(translatable("Shear centre ys, zs")), value_text(p.shear_centre_y, "mm") +
                                                              QStringLiteral(", ") +
                                                              value_text(p.shear_centre_z, "mm"));
  add_value(ui_text(translatable("Welded")),
            ui_text(section.welded ? translatable("yes") : translatable("no")));
}

void SectionView::resizeEvent(QResizeEvent* event) {
  DetailPart::resizeEvent(event);
  const bool is_wide = event->size().width() > 34 * fontMetrics().height();
  parts_->setDirection(is_wide ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

}  // namespace aluframe::desktop

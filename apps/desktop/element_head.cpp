#include "apps/desktop/element_head.h"

#include <fmt/format.h>

#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

#include "aluframe/io/named_values.h"
#include "aluframe/model/members.h"
#include "aluframe/texts/text.h"
#include "apps/desktop/result_words.h"
#include "apps/desktop/ui_texts.h"

namespace aluframe::desktop {

namespace {

using texts::translatable;

QLabel* create_label() {
  auto* label = new QLabel;
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

const model::Member* member_of(const model::Model& model, model::Number element) {
  const auto found = std::ranges::find_if(model.members, [element](const model::Member& member) {
    return std::ranges::find(member.elements, element) != member.elements.end();
  });
  return found == model.members.end() ? nullptr : &*found;
}

QString material_text(const model::Material& material) {
  return with_name(material.number, material.name.empty() ? material.grade : material.name);
}

/// By the rules that checks choose by it.
QString kind_text(model::MemberType type) {
  using Named = io::NamedValue<model::MemberType>;
  return ui_text(std::ranges::find(io::member_types, type, &Named::value)->name);
}

QString length_text(const model::Model& model, const model::Element& element) {
  const double unit = model::millimetres_per(model.units.length);
  return shown(fmt::format("{:.5g} {}", model::element_length(model, element) / unit,
                           model::name_of(model.units.length)));
}

}  // namespace

ElementHead::ElementHead(Workspace& workspace)
    : workspace_(workspace),
      title_(create_label()),
      facts_(new QFormLayout),
      notices_(create_label()) {
  QFont font = title_->font();
  font.setBold(true);
  font.setPointSizeF(font.pointSizeF() * 1.2);
  title_->setFont(font);
  title_->setObjectName(QStringLiteral("title"));
  notices_->setObjectName(QStringLiteral("notices"));
  facts_->setVerticalSpacing(fontMetrics().height() / 8);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(title_);
  layout->addLayout(facts_);
  layout->addWidget(notices_);
}

void ElementHead::refresh() {
  while (facts_->rowCount() > 0) facts_->removeRow(0);
  notices_->clear();
  const auto current = workspace_.document() != nullptr ? workspace_.current() : std::nullopt;
  if (!current) {
    title_->setText(ui_text(translatable("Nothing is selected.")));
  } else {
    show_element(*workspace_.model().elements.find(*current));
  }
  notices_->setVisible(!notices_->text().isEmpty());
}

void ElementHead::show_element(const model::Element& element) {
  const model::Model& model = workspace_.model();
  show_title(element);
  const model::Section& section = *model.sections.find(element.section);
  const model::Member* member = member_of(model, element.number);
  add_fact(translatable("Member"),
           member == nullptr ? QStringLiteral("–") : with_name(member->number, member->name));
  add_fact(translatable("Section"), with_name(section.number, section.name));
  add_fact(translatable("Material"), material_text(*model.materials.find(element.material)));
  add_fact(translatable("Length"), length_text(model, element));
  add_fact(translatable("Kind"), kind_text(model::member_type(model, element)));
  const QStringList lines = notices(element);
  notices_->setText(lines.join(u'\n'));
}

void ElementHead::show_title(const model::Element& element) {
  std::string text = texts::translated("Element {}", element.number);
  if (!element.name.empty()) text += "  " + element.name;
  const std::size_t selected = workspace_.selection().size();
  if (selected > 1) text = texts::translated("{}  (of {} selected)", text, selected);
  title_->setText(shown(text));
}

QStringList ElementHead::notices(const model::Element& element) const {
  QStringList lines;
  const auto add = [&lines](const QString& text) { lines.push_back(QStringLiteral("⚠ ") + text); };
  if (workspace_.is_hidden(element.number)) add(ui_text(translatable("The element is hidden.")));
  const run::ShownResults* results = workspace_.results();
  if (results == nullptr) return lines;
  for (const std::string& caution : results->cautions) add(shown(caution));
  if (workspace_.document()->is_modified()) {
    add(
        ui_text(translatable("The results are of the model without the changes that are not "
                             "saved.")));
  }
  return lines;
}

void ElementHead::add_fact(const char* name, const QString& value) {
  QLabel* label = create_label();
  label->setText(value);
  label->setObjectName(QString::fromLatin1(name));
  facts_->addRow(ui_text(name), label);
}

}  // namespace aluframe::desktop

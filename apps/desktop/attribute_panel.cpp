#include "apps/desktop/attribute_panel.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>
#include <utility>

#include "aluframe/texts/text.h"
#include "apps/desktop/attributes.h"
#include "apps/desktop/model_edit_command.h"
#include "apps/desktop/steady_choice.h"
#include "apps/desktop/ui_texts.h"

namespace aluframe::desktop {

namespace {

using model::Element;
using texts::translatable;
using Elements = std::vector<const Element*>;
/// Changes an element.
using Change = std::function<void(Element&)>;

/// What several elements have in common; nothing: they differ.
template <class Of>
auto common(const Elements& elements, const Of& of)
    -> std::optional<std::decay_t<decltype(of(*elements.front()))>> {
  const auto first = of(*elements.front());
  const bool is_common =
      std::ranges::all_of(elements, [&](const Element* element) { return of(*element) == first; });
  return is_common ? std::optional(first) : std::nullopt;
}

QString text_of(double value) {
  return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

QString varies() {
  return ui_text(translatable("varies"));
}

/// A number whose keys for undo are the window's as soon as what was typed has been taken.
class AttributeNumber : public QLineEdit {
 public:
  bool event(QEvent* event) override {
    if (event->type() == QEvent::ShortcutOverride && !isModified()) {
      const auto* key = static_cast<QKeyEvent*>(event);
      if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo)) {
        event->ignore();
        return false;
      }
    }
    return QLineEdit::event(event);
  }
};

}  // namespace

/// One attribute: whether it is given, its values, and where they come from when it is not.
class AttributeGroup : public QGroupBox {
 public:
  AttributeGroup(const Attribute& attribute,
                 std::function<void(const QString&, const Change&)> edit,
                 std::function<void()> type)
      : QGroupBox(ui_text(attribute.name)),
        attribute_(attribute),
        edit_(std::move(edit)),
        type_(std::move(type)),
        given_(new QCheckBox(ui_text(translatable("given")))),
        origin_(new QLabel) {
    origin_->setWordWrap(true);
    origin_->setTextFormat(Qt::PlainText);
    given_->setAccessibleName(title() + u' ' + given_->text());
    auto* layout = new QGridLayout(this);
    layout->addWidget(given_, 0, 0);
    layout->addWidget(origin_, 0, 1, 1, 3);
    layout->setColumnStretch(3, 1);
    int row = 1;
    for (const AttributeField& field : attribute_.fields) add_field(field, *layout, row++);
    connect(given_, &QCheckBox::clicked, this, [this](bool gives) {
      given_->setTristate(false);
      edit_(title(), [this, gives](Element& element) { attribute_.give(element, gives); });
    });
  }

  void show_elements(const model::Model& model, const Elements& elements) {
    const auto given = common(elements, attribute_.is_given);
    given_->setTristate(!given);
    given_->setCheckState(!given ? Qt::PartiallyChecked : *given ? Qt::Checked : Qt::Unchecked);
    if (given == false) {
      const auto origin = common(
          elements, [&](const Element& element) { return attribute_.origin(model, element); });
      origin_->setText(origin ? QString::fromStdString(*origin) : varies());
    } else {
      origin_->setText(given ? QString() : varies());
    }
    for (const Editor& editor : editors_) {
      editor.label->setVisible(given == true);
      editor.widget->setVisible(given == true);
      if (given == true) editor.show(common(elements, editor.field->get));
    }
  }

 private:
  struct Editor {
    const AttributeField* field;
    QLabel* label;
    QWidget* widget;
    std::function<void(std::optional<double>)> show;
  };

  void add_field(const AttributeField& field, QGridLayout& layout, int row) {
    auto* label = new QLabel(ui_text(field.name));
    layout.addWidget(label, row, 0, Qt::AlignRight);
    Editor editor = field.choices.empty() ? number_editor(field) : choice_editor(field);
    editor.label = label;
    editor.widget->setAccessibleName(accessible_name(label->text()));
    label->setBuddy(editor.widget);
    layout.addWidget(editor.widget, row, 1);
    editors_.push_back(std::move(editor));
  }

  /// For a reader of the screen: a field without a name belongs to the one before it.
  QString accessible_name(const QString& name) const {
    if (!name.isEmpty()) return title() + u' ' + name;
    return editors_.empty() ? title() : editors_.back().widget->accessibleName();
  }

  Editor choice_editor(const AttributeField& field) {
    auto* box = new SteadyChoice;
    for (const char* choice : field.choices) box->addItem(ui_text(choice));
    box->setPlaceholderText(varies());
    connect(box, &QComboBox::activated, this, [this, &field](int row) {
      edit_(title(), [&field, row](Element& element) { field.set(element, row); });
    });
    return {&field, nullptr, box, [box](std::optional<double> value) {
              box->setCurrentIndex(value ? static_cast<int>(*value) : -1);
            }};
  }

  /// What is no number, or not allowed, goes back to what the elements have.
  Editor number_editor(const AttributeField& field) {
    auto* line = new AttributeNumber;
    line->setMaximumWidth(14 * line->fontMetrics().averageCharWidth());
    line->setPlaceholderText(varies());
    connect(line, &QLineEdit::textEdited, this, [this] { type_(); });
    connect(line, &QLineEdit::editingFinished, this, [this, &field, line] {
      if (!line->isModified()) return;
      line->setModified(false);
      bool is_number = false;
      const double value = line->text().trimmed().toDouble(&is_number);
      const bool is_allowed = is_number && std::isfinite(value) &&
                              (value > field.least || (field.may_be_least && value == field.least));
      edit_(title(), [&field, value, is_allowed](Element& element) {
        if (is_allowed) field.set(element, value);
      });
      type_();
    });
    return {&field, nullptr, line, [line](std::optional<double> value) {
              line->setText(value ? text_of(*value) : QString());
              line->setModified(false);
            }};
  }

  const Attribute& attribute_;
  std::function<void(const QString&, const Change&)> edit_;
  std::function<void()> type_;
  QCheckBox* given_;
  QLabel* origin_;
  std::vector<Editor> editors_;
};

QLineEdit* typed_number(QWidget* focus) {
  auto* line = dynamic_cast<AttributeNumber*>(focus);
  return line != nullptr && line->isModified() ? line : nullptr;
}

AttributePanel::AttributePanel(Workspace& workspace, QUndoStack& undo)
    : workspace_(workspace), undo_(undo), heading_(new QLabel) {
  auto* layout = new QVBoxLayout(this);
  heading_->setWordWrap(true);
  layout->addWidget(heading_);
  for (const Attribute& attribute : attributes()) {
    groups_.push_back(new AttributeGroup(
        attribute, [this](const QString& text, const Change& change) { edit(text, change); },
        [this] { Q_EMIT workspace_.typing(); }));
    layout->addWidget(groups_.back());
  }
  layout->addStretch(1);
  connect(&workspace_, &Workspace::selection_changed, this, [this] { refresh(); });
  connect(&workspace_, &Workspace::edited, this, [this] { refresh(); });
  connect(&workspace_, &Workspace::document_changed, this, [this] { refresh(); });
  connect(&workspace_, &Workspace::busy_changed, this,
          [this] { setEnabled(!workspace_.is_busy()); });
  refresh();
}

AttributePanel::~AttributePanel() = default;

void AttributePanel::edit(const QString& text, const std::function<void(Element&)>& change) {
  EditedParts before, after;
  for (const model::Number number : workspace_.selection()) {
    const Element& element = *workspace_.model().elements.find(number);
    Element changed = element;
    change(changed);
    if (changed == element) continue;
    before.elements.push_back(element);
    after.elements.push_back(std::move(changed));
  }
  if (after.empty()) {
    refresh();
    return;
  }
  undo_.push(new ModelEditCommand(workspace_, text, std::move(before), std::move(after)));
}

void AttributePanel::refresh() {
  const bool is_any = workspace_.document() != nullptr && !workspace_.selection().empty();
  for (AttributeGroup* group : groups_) group->setVisible(is_any);
  if (!is_any) {
    heading_->setText(
        ui_text(translatable("Select elements to see and change how they are "
                             "designed.")));
    return;
  }
  Elements elements;
  for (const model::Number number : workspace_.selection()) {
    elements.push_back(workspace_.model().elements.find(number));
  }
  heading_->setText(QString::fromStdString(
      elements.size() == 1 ? texts::translated("Element {}", elements.front()->number)
                           : texts::translated("{} elements together", elements.size())));
  for (AttributeGroup* group : groups_) group->show_elements(workspace_.model(), elements);
}

}  // namespace aluframe::desktop

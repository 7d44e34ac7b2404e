#include "aluframe/toolkit/qt/template_control.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

#include "aluframe/toolkit/qt/captions.h"
#include "aluframe/toolkit/qt/qt_text.h"
#include "aluframe/toolkit/qt/radio_group.h"
#include "aluframe/toolkit/qt/report_list.h"

namespace aluframe::toolkit {

namespace {

bool has(const CONTROL_TEMPLATE& control, CONTROL_FLAG flag) {
  return (control.flags & flag) != 0;
}

// Enter is the dialog's matter, so a push button never becomes the default one by itself.
QWidget* create_push_button(QWidget* parent) {
  auto* button = new QPushButton(parent);
  button->setAutoDefault(false);
  return button;
}

QWidget* create_edit(const CONTROL_TEMPLATE& control, QWidget* parent) {
  auto* edit = new QLineEdit(to_qt(control.text), parent);
  edit->setFrame(has(control, CONTROL_BORDER));
  return edit;
}

QWidget* create_list(const CONTROL_TEMPLATE& control, QWidget* parent) {
  auto* list = new ReportList(parent);
  if (has(control, CONTROL_SINGLE_SELECTION)) list->setSelectionMode(ReportList::SingleSelection);
  return list;
}

QWidget* create_of_kind(const CONTROL_TEMPLATE& control, QWidget* parent) {
  switch (control.kind) {
    case CONTROL_KIND::Label:
      return new CaptionLabel(parent);
    case CONTROL_KIND::GroupBox:
      return new GroupFrame(parent);
    case CONTROL_KIND::PushButton:
      return create_push_button(parent);
    case CONTROL_KIND::CheckBox:
      return new QCheckBox(parent);
    case CONTROL_KIND::RadioButton:
      return new RadioButton(has(control, CONTROL_TAB_STOP), parent);
    case CONTROL_KIND::Edit:
      return create_edit(control, parent);
    case CONTROL_KIND::DropDownList:
      return new QComboBox(parent);
    case CONTROL_KIND::List:
      return create_list(control, parent);
  }
  return new QWidget(parent);
}

Qt::FocusPolicy focus_policy(const TemplateControl& control) {
  if (control.is_text()) return Qt::NoFocus;
  return control.has(CONTROL_TAB_STOP) ? Qt::StrongFocus : Qt::ClickFocus;
}

}  // namespace

QWidget* create_widget(const CONTROL_TEMPLATE& control, QWidget* parent) {
  QWidget* widget = create_of_kind(control, parent);
  const TemplateControl created{&control, widget};
  widget->setObjectName(QString::number(control.nId));
  widget->setFocusPolicy(focus_policy(created));
  set_caption(created, to_qt(control.text));
  if (has(control, CONTROL_DISABLED)) widget->setEnabled(false);
  if (has(control, CONTROL_HIDDEN)) widget->hide();
  return widget;
}

void set_caption(const TemplateControl& control, const QString& text) {
  if (auto* label = qobject_cast<QLabel*>(control.widget)) {
    label->setText(text);
  } else if (auto* box = qobject_cast<QGroupBox*>(control.widget)) {
    box->setTitle(text);
  } else if (auto* button = qobject_cast<QAbstractButton*>(control.widget)) {
    button->setText(text);
  }
}

QString shown_text(const TemplateControl& control) {
  if (const auto* label = qobject_cast<QLabel*>(control.widget)) return label->text();
  if (const auto* box = qobject_cast<QGroupBox*>(control.widget)) return box->title();
  if (const auto* button = qobject_cast<QAbstractButton*>(control.widget)) return button->text();
  if (const auto* edit = qobject_cast<QLineEdit*>(control.widget)) return edit->text();
  if (const auto* choices = qobject_cast<QComboBox*>(control.widget)) return choices->currentText();
  return {};
}

}  // namespace aluframe::toolkit

#pragma once

#include <QWidget>

#include "host/framework/resources.h"

namespace aluframe::toolkit {

/// A control of an open dialog and the widget that it is.
struct TemplateControl {
  const CONTROL_TEMPLATE* origin;
  QWidget* widget;

  CONTROL_KIND kind() const { return origin->kind; }
  bool has(CONTROL_FLAG flag) const { return (origin->flags & flag) != 0; }
  /// A label or a group box: it takes no input and names the controls behind it.
  bool is_text() const { return kind() == CONTROL_KIND::Label || kind() == CONTROL_KIND::GroupBox; }
  /// The program shows it; whether the dialog is shown does not matter.
  bool is_shown() const { return !widget->isHidden(); }
  bool is_enabled() const { return widget->isEnabledTo(widget->parentWidget()); }
};

/// The widget of a control, with the state that the template gives it, as a child of `parent`. Its
/// object name is the control's identifier. It is neither placed nor connected.
QWidget* create_widget(const CONTROL_TEMPLATE& control, QWidget* parent);

/// Shows a text on a label, group box or button; "&" stands before its accelerator.
void set_caption(const TemplateControl& control, const QString& text);
/// The text of a label, group box, button or edit, or of a drop-down list's selected entry.
QString shown_text(const TemplateControl& control);

}  // namespace aluframe::toolkit

#include "aluframe/toolkit/qt/qt_dialog.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

#include "aluframe/toolkit/qt/qt_text.h"
#include "aluframe/toolkit/qt/report_list.h"

namespace aluframe::toolkit {

namespace {

constexpr int cancelled = 2;

bool can_be_checked(CONTROL_KIND kind) {
  return kind == CONTROL_KIND::CheckBox || kind == CONTROL_KIND::RadioButton;
}

std::vector<TemplateControl> create_controls(const DIALOG_TEMPLATE& dialog, QWidget& window) {
  std::vector<TemplateControl> controls;
  for (const CONTROL_TEMPLATE& origin : dialog.controls) {
    controls.push_back({&origin, create_widget(origin, &window)});
  }
  return controls;
}

}  // namespace

QtDialog::QtDialog(const DIALOG_TEMPLATE& dialog, host::DialogEvents& events, QWidget* parent)
    : events_(events),
      window_(dialog, parent),
      controls_(create_controls(dialog, window_)),
      layout_(dialog, window_, controls_),
      keyboard_(controls_),
      names_(controls_) {
  for (const TemplateControl& control : controls_) {
    const int id = control.origin->nId;
    if (id != kNoControlId && by_id_.emplace(id, &control).second) connect(control);
  }
  layout_.place();
  window_.enter_pressed = [this] { raise([this] { events_.EnterPressed(); }); };
  window_.escape_pressed = [this] { raise([this] { events_.EscapePressed(); }); };
}

void QtDialog::connect(const TemplateControl& control) {
  const int id = control.origin->nId;
  if (auto* button = qobject_cast<QAbstractButton*>(control.widget)) {
    QObject::connect(button, &QAbstractButton::clicked, &window_,
                     [this, id] { raise([this, id] { events_.ButtonClicked(id); }); });
    if (control.has(CONTROL_DEFAULT) && control.kind() == CONTROL_KIND::PushButton) {
      window_.set_default_button(static_cast<QPushButton&>(*button));
    }
  } else if (auto* choices = qobject_cast<QComboBox*>(control.widget)) {
    QObject::connect(choices, &QComboBox::activated, &window_,
                     [this, id] { raise([this, id] { events_.ChoiceChanged(id); }); });
  } else if (control.kind() == CONTROL_KIND::List) {
    connect_list(id, static_cast<ReportList&>(*control.widget));
  }
}

void QtDialog::connect_list(int id, ReportList& list) {
  list.row_selected = [this, id](int row) {
    raise([this, id, row] { events_.RowSelected(id, row); });
  };
  list.row_clicked = [this, id](int row) {
    raise([this, id, row] { events_.RowClicked(id, row); });
  };
}

template <class Event>
void QtDialog::raise(const Event& event) noexcept {
  if (result_) return;
  try {
    event();
  } catch (...) {
    failure_ = std::current_exception();
    End(cancelled);
  }
}

int QtDialog::Run() {
  // A dialog may close itself while it is initialised.
  if (!result_) window_.exec();
  if (failure_) std::rethrow_exception(failure_);
  return result_.value_or(cancelled);
}

void QtDialog::End(int result) {
  result_ = result;
  window_.done(result);
}

void QtDialog::SetCaption(const CString& caption) {
  window_.setWindowTitle(to_qt(caption));
}

const TemplateControl* QtDialog::find(int id) const {
  const auto found = by_id_.find(id);
  return found != by_id_.end() ? found->second : nullptr;
}

QAbstractButton* QtDialog::find_check(int id) const {
  const TemplateControl* control = find(id);
  if (control == nullptr || !can_be_checked(control->kind())) return nullptr;
  return static_cast<QAbstractButton*>(control->widget);
}

// --- any control ---

void QtDialog::SetText(int id, const CString& text) {
  const TemplateControl* control = find(id);
  if (control == nullptr) return;
  if (auto* edit = qobject_cast<QLineEdit*>(control->widget)) {
    edit->setText(to_qt(text));
    return;
  }
  set_caption(*control, to_qt(text));
  names_.update();
  layout_.place();
}

CString QtDialog::Text(int id) const {
  const TemplateControl* control = find(id);
  return control != nullptr ? from_qt(shown_text(*control)) : CString();
}

void QtDialog::Enable(int id, bool enable) {
  const TemplateControl* control = find(id);
  if (control == nullptr) return;
  control->widget->setEnabled(enable);
  keyboard_.update();
}

bool QtDialog::IsEnabled(int id) const {
  const TemplateControl* control = find(id);
  return control != nullptr && control->is_enabled();
}

void QtDialog::Show(int id, bool show) {
  const TemplateControl* control = find(id);
  if (control == nullptr) return;
  control->widget->setVisible(show);
  keyboard_.update();
  names_.update();
}

bool QtDialog::IsShown(int id) const {
  const TemplateControl* control = find(id);
  return control != nullptr && control->is_shown();
}

void QtDialog::SetCheck(int id, bool check) {
  QAbstractButton* button = find_check(id);
  if (button == nullptr) return;
  button->setChecked(check);
  keyboard_.update();
}

bool QtDialog::IsChecked(int id) const {
  const QAbstractButton* button = find_check(id);
  return button != nullptr && button->isChecked();
}

}  // namespace aluframe::toolkit

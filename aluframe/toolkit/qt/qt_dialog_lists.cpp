// The drop-down lists and the lists in columns of a dialog.

#include <QComboBox>

#include "aluframe/toolkit/qt/qt_dialog.h"
#include "aluframe/toolkit/qt/qt_text.h"
#include "aluframe/toolkit/qt/report_list.h"

namespace aluframe::toolkit {

QComboBox* QtDialog::find_choices(int id) const {
  const TemplateControl* control = find(id);
  return control != nullptr ? qobject_cast<QComboBox*>(control->widget) : nullptr;
}

ReportList* QtDialog::find_list(int id) const {
  const TemplateControl* control = find(id);
  if (control == nullptr || control->kind() != CONTROL_KIND::List) return nullptr;
  return static_cast<ReportList*>(control->widget);
}

// --- drop-down lists ---

void QtDialog::ClearChoices(int id) {
  if (QComboBox* choices = find_choices(id)) choices->clear();
}

int QtDialog::AddChoice(int id, const CString& text) {
  QComboBox* choices = find_choices(id);
  if (choices == nullptr) return -1;
  const int selected = choices->currentIndex();
  choices->addItem(to_qt(text));
  // The first entry of an empty list would select itself.
  choices->setCurrentIndex(selected);
  layout_.place();
  return choices->count() - 1;
}

int QtDialog::ChoiceCount(int id) const {
  const QComboBox* choices = find_choices(id);
  return choices != nullptr ? choices->count() : 0;
}

CString QtDialog::ChoiceText(int id, int index) const {
  const QComboBox* choices = find_choices(id);
  return choices != nullptr ? from_qt(choices->itemText(index)) : CString();
}

void QtDialog::SelectChoice(int id, int index) {
  QComboBox* choices = find_choices(id);
  if (choices == nullptr) return;
  choices->setCurrentIndex(index >= 0 && index < choices->count() ? index : -1);
}

int QtDialog::SelectedChoice(int id) const {
  const QComboBox* choices = find_choices(id);
  return choices != nullptr ? choices->currentIndex() : -1;
}

// --- lists in columns ---

void QtDialog::AddColumn(int id, const CString& header, int width, bool centred) {
  ReportList* list = find_list(id);
  if (list == nullptr) return;
  list->add_column(to_qt(header), width, centred);
  layout_.place();
}

int QtDialog::ColumnCount(int id) const {
  const ReportList* list = find_list(id);
  return list != nullptr ? list->columnCount() : 0;
}

CString QtDialog::ColumnHeader(int id, int column) const {
  const ReportList* list = find_list(id);
  return list != nullptr ? from_qt(list->header_text(column)) : CString();
}

int QtDialog::ColumnWidth(int id, int column) const {
  const ReportList* list = find_list(id);
  return list != nullptr ? list->columnWidth(column) : 0;
}

int QtDialog::InsertRow(int id, int row) {
  ReportList* list = find_list(id);
  return list != nullptr ? list->insert_row(row) : -1;
}

int QtDialog::RowCount(int id) const {
  const ReportList* list = find_list(id);
  return list != nullptr ? list->topLevelItemCount() : 0;
}

void QtDialog::SetCell(int id, int row, int column, const CString& text) {
  if (ReportList* list = find_list(id)) list->set_cell(row, column, to_qt(text));
}

CString QtDialog::Cell(int id, int row, int column) const {
  const ReportList* list = find_list(id);
  return list != nullptr ? from_qt(list->cell(row, column)) : CString();
}

void QtDialog::SelectRow(int id, int row) {
  if (ReportList* list = find_list(id)) list->select_row(row);
}

int QtDialog::SelectedRow(int id) const {
  const ReportList* list = find_list(id);
  return list != nullptr ? list->selected_row() : -1;
}

void QtDialog::SetFullRowSelect(int id, bool on) {
  if (ReportList* list = find_list(id)) list->set_full_row(on);
}

bool QtDialog::IsFullRowSelect(int id) const {
  const ReportList* list = find_list(id);
  return list != nullptr && list->is_full_row();
}

}  // namespace aluframe::toolkit

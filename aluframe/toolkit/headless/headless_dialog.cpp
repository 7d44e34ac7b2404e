#include "aluframe/toolkit/headless/headless_dialog.h"

#include <algorithm>
#include <stdexcept>

namespace aluframe::toolkit {

namespace {

bool is_index(int index, std::size_t size) {
  return index >= 0 && static_cast<std::size_t>(index) < size;
}

bool has(const CONTROL_TEMPLATE& control, CONTROL_FLAG flag) {
  return (control.flags & flag) != 0;
}

[[noreturn]] void refuse(int id, const char* why) {
  throw std::logic_error("control " + std::to_string(id) + " " + why);
}

}  // namespace

HeadlessDialog::HeadlessDialog(const DIALOG_TEMPLATE& dialog, host::DialogEvents& events)
    : template_(dialog), events_(events), caption_(dialog.caption) {
  int group = 0;
  for (const CONTROL_TEMPLATE& origin : dialog.controls) {
    if (has(origin, CONTROL_GROUP)) ++group;
    if (origin.nId == kNoControlId) continue;
    Control control;
    control.origin = &origin;
    control.group = group;
    control.text = origin.text;
    control.enabled = !has(origin, CONTROL_DISABLED);
    control.shown = !has(origin, CONTROL_HIDDEN);
    controls_.emplace(origin.nId, std::move(control));
  }
}

const HeadlessDialog::Control* HeadlessDialog::find(int id) const {
  const auto found = controls_.find(id);
  return found != controls_.end() ? &found->second : nullptr;
}

HeadlessDialog::Control* HeadlessDialog::find(int id) {
  const auto found = controls_.find(id);
  return found != controls_.end() ? &found->second : nullptr;
}

const HeadlessDialog::Control* HeadlessDialog::find(int id, CONTROL_KIND kind) const {
  const Control* control = find(id);
  return control != nullptr && control->origin->kind == kind ? control : nullptr;
}

HeadlessDialog::Control* HeadlessDialog::find(int id, CONTROL_KIND kind) {
  Control* control = find(id);
  return control != nullptr && control->origin->kind == kind ? control : nullptr;
}

HeadlessDialog::Control& HeadlessDialog::usable(int id) {
  Control* control = find(id);
  if (!is_open()) refuse(id, "belongs to a dialog that has closed");
  if (control == nullptr) refuse(id, "is not in the dialog");
  if (!control->shown) refuse(id, "is hidden");
  if (!control->enabled) refuse(id, "is disabled");
  return *control;
}

// --- what the user does ---

void HeadlessDialog::check_alone(Control& radio_button) {
  for (auto& [id, control] : controls_) {
    const bool same_group =
        control.origin->kind == CONTROL_KIND::RadioButton && control.group == radio_button.group;
    if (same_group) control.checked = false;
  }
  radio_button.checked = true;
}

void HeadlessDialog::click(int id) {
  Control& control = usable(id);
  switch (control.origin->kind) {
    case CONTROL_KIND::CheckBox:
      control.checked = !control.checked;
      break;
    case CONTROL_KIND::RadioButton:
      check_alone(control);
      break;
    case CONTROL_KIND::PushButton:
      break;
    default:
      refuse(id, "is no button");
  }
  events_.ButtonClicked(id);
}

void HeadlessDialog::type(int id, const std::wstring& text) {
  Control& control = usable(id);
  if (control.origin->kind != CONTROL_KIND::Edit) refuse(id, "is no edit");
  control.text = text;
}

void HeadlessDialog::choose(int id, int index) {
  Control& control = usable(id);
  if (control.origin->kind != CONTROL_KIND::DropDownList) refuse(id, "is no drop-down list");
  if (!is_index(index, control.choices.size())) refuse(id, "does not offer this entry");
  control.selected = index;
  events_.ChoiceChanged(id);
}

void HeadlessDialog::choose(int id, const std::wstring& text) {
  const Control& control = usable(id);
  const auto found = std::ranges::find_if(
      control.choices, [&](const CString& choice) { return choice == text.c_str(); });
  if (found == control.choices.end()) refuse(id, "does not offer this entry");
  choose(id, static_cast<int>(found - control.choices.begin()));
}

void HeadlessDialog::click_row(int id, int row) {
  const Control& control = usable(id);
  if (control.origin->kind != CONTROL_KIND::List) refuse(id, "is no list");
  if (row != -1 && !is_index(row, control.rows.size())) refuse(id, "does not have this row");
  SelectRow(id, row);
  events_.RowClicked(id, row);
}

std::vector<std::wstring> HeadlessDialog::choices(int id) const {
  std::vector<std::wstring> texts;
  if (const Control* control = find(id, CONTROL_KIND::DropDownList)) {
    for (const CString& choice : control->choices) texts.emplace_back(choice.GetString());
  }
  return texts;
}

// --- any control ---

void HeadlessDialog::SetText(int id, const CString& text) {
  Control* control = find(id);
  if (control != nullptr && control->origin->kind != CONTROL_KIND::DropDownList) {
    control->text = text;
  }
}

CString HeadlessDialog::Text(int id) const {
  const Control* control = find(id);
  if (control == nullptr) return {};
  if (control->origin->kind != CONTROL_KIND::DropDownList) return control->text;
  return ChoiceText(id, control->selected);
}

void HeadlessDialog::Enable(int id, bool enable) {
  if (Control* control = find(id)) control->enabled = enable;
}

bool HeadlessDialog::IsEnabled(int id) const {
  const Control* control = find(id);
  return control != nullptr && control->enabled;
}

void HeadlessDialog::Show(int id, bool show) {
  if (Control* control = find(id)) control->shown = show;
}

bool HeadlessDialog::IsShown(int id) const {
  const Control* control = find(id);
  return control != nullptr && control->shown;
}

void HeadlessDialog::SetCheck(int id, bool check) {
  Control* control = find(id);
  if (control == nullptr) return;
  const CONTROL_KIND kind = control->origin->kind;
  if (kind == CONTROL_KIND::CheckBox || kind == CONTROL_KIND::RadioButton) control->checked = check;
}

bool HeadlessDialog::IsChecked(int id) const {
  const Control* control = find(id);
  return control != nullptr && control->checked;
}

// --- drop-down lists ---

void HeadlessDialog::ClearChoices(int id) {
  if (Control* control = find(id, CONTROL_KIND::DropDownList)) {
    control->choices.clear();
    control->selected = -1;
  }
}

int HeadlessDialog::AddChoice(int id, const CString& text) {
  Control* control = find(id, CONTROL_KIND::DropDownList);
  if (control == nullptr) return -1;
  control->choices.push_back(text);
  return static_cast<int>(control->choices.size()) - 1;
}

int HeadlessDialog::ChoiceCount(int id) const {
  const Control* control = find(id, CONTROL_KIND::DropDownList);
  return control != nullptr ? static_cast<int>(control->choices.size()) : 0;
}

CString HeadlessDialog::ChoiceText(int id, int index) const {
  const Control* control = find(id, CONTROL_KIND::DropDownList);
  if (control == nullptr || !is_index(index, control->choices.size())) return {};
  return control->choices[static_cast<std::size_t>(index)];
}

void HeadlessDialog::SelectChoice(int id, int index) {
  Control* control = find(id, CONTROL_KIND::DropDownList);
  if (control == nullptr) return;
  control->selected = is_index(index, control->choices.size()) ? index : -1;
}

int HeadlessDialog::SelectedChoice(int id) const {
  const Control* control = find(id, CONTROL_KIND::DropDownList);
  return control != nullptr ? control->selected : -1;
}

// --- lists in columns ---

void HeadlessDialog::AddColumn(int id, const CString& header, int width, bool centred) {
  Control* control = find(id, CONTROL_KIND::List);
  if (control == nullptr) return;
  control->columns.push_back({header, width, centred});
  for (auto& row : control->rows) row.emplace_back();
}

int HeadlessDialog::ColumnCount(int id) const {
  const Control* control = find(id, CONTROL_KIND::List);
  return control != nullptr ? static_cast<int>(control->columns.size()) : 0;
}

CString HeadlessDialog::ColumnHeader(int id, int column) const {
  const Control* control = find(id, CONTROL_KIND::List);
  if (control == nullptr || !is_index(column, control->columns.size())) return {};
  return control->columns[static_cast<std::size_t>(column)].header;
}

int HeadlessDialog::ColumnWidth(int id, int column) const {
  const Control* control = find(id, CONTROL_KIND::List);
  if (control == nullptr || !is_index(column, control->columns.size())) return 0;
  return control->columns[static_cast<std::size_t>(column)].width;
}

bool HeadlessDialog::is_centred(int id, int column) const {
  const Control* control = find(id, CONTROL_KIND::List);
  if (control == nullptr || !is_index(column, control->columns.size())) return false;
  return control->columns[static_cast<std::size_t>(column)].centred;
}

int HeadlessDialog::InsertRow(int id, int row) {
  Control* control = find(id, CONTROL_KIND::List);
  if (control == nullptr) return -1;
  const int place = std::clamp(row, 0, static_cast<int>(control->rows.size()));
  control->rows.insert(control->rows.begin() + place,
                       std::vector<CString>(control->columns.size()));
  if (control->selected >= place) ++control->selected;
  return place;
}

int HeadlessDialog::RowCount(int id) const {
  const Control* control = find(id, CONTROL_KIND::List);
  return control != nullptr ? static_cast<int>(control->rows.size()) : 0;
}

void HeadlessDialog::SetCell(int id, int row, int column, const CString& text) {
  Control* control = find(id, CONTROL_KIND::List);
  if (control == nullptr || !is_index(row, control->rows.size())) return;
  auto& cells = control->rows[static_cast<std::size_t>(row)];
  if (is_index(column, cells.size())) cells[static_cast<std::size_t>(column)] = text;
}

CString HeadlessDialog::Cell(int id, int row, int column) const {
  const Control* control = find(id, CONTROL_KIND::List);
  if (control == nullptr || !is_index(row, control->rows.size())) return {};
  const auto& cells = control->rows[static_cast<std::size_t>(row)];
  return is_index(column, cells.size()) ? cells[static_cast<std::size_t>(column)] : CString();
}

void HeadlessDialog::SelectRow(int id, int row) {
  Control* control = find(id, CONTROL_KIND::List);
  if (control == nullptr) return;
  const int selected = is_index(row, control->rows.size()) ? row : -1;
  if (control->selected == selected) return;
  control->selected = selected;
  if (selected != -1) events_.RowSelected(id, selected);
}

int HeadlessDialog::SelectedRow(int id) const {
  const Control* control = find(id, CONTROL_KIND::List);
  return control != nullptr ? control->selected : -1;
}

void HeadlessDialog::SetFullRowSelect(int id, bool on) {
  if (Control* control = find(id, CONTROL_KIND::List)) control->full_row = on;
}

bool HeadlessDialog::IsFullRowSelect(int id) const {
  const Control* control = find(id, CONTROL_KIND::List);
  return control != nullptr && control->full_row;
}

}  // namespace aluframe::toolkit

#include "aluframe/toolkit/qt/dialog_layout.h"

#include <QComboBox>
#include <QDialog>
#include <algorithm>

#include "aluframe/toolkit/qt/dialog_units.h"
#include "aluframe/toolkit/qt/report_list.h"

namespace aluframe::toolkit {

namespace {

// A drop-down list's template height is that of the open list; closed it is as high as an edit.
constexpr int closed_list_height = 14;

/// How much of the room between rows a text may use above and below its control, which is as high
/// as the letters of the dialog's font: letters of another font may be higher. Labels stand farther
/// apart than check boxes.
int room_of_text(CONTROL_KIND kind) {
  constexpr int of_label = 2, of_check = 1;
  if (kind == CONTROL_KIND::Label) return of_label;
  return kind == CONTROL_KIND::CheckBox || kind == CONTROL_KIND::RadioButton ? of_check : 0;
}

QRect pixels_of(const CONTROL_TEMPLATE& control, const DialogUnits& units) {
  const bool drops_down = control.kind == CONTROL_KIND::DropDownList;
  const int height = drops_down ? std::min(control.height, closed_list_height) : control.height;
  return units.rect(control.x, control.y, control.width, height);
}

/// The same with the room that the control may use besides.
QRect room_of(const CONTROL_TEMPLATE& control, const DialogUnits& units) {
  const int room = room_of_text(control.kind);
  if (room == 0) return pixels_of(control, units);
  return units.rect(control.x, control.y - room, control.width, control.height + 2 * room);
}

/// A text that needs more height than the template gives it stays in the middle.
QRect place_of(const TemplateControl& control, const DialogUnits& units) {
  QRect place = pixels_of(*control.origin, units);
  const int missing = control.widget->sizeHint().height() - place.height();
  if (missing > 0 && room_of_text(control.kind()) > 0) {
    place.adjust(0, -missing / 2, 0, missing - missing / 2);
  }
  return place;
}

// The open list is as long as the template says, and long enough to choose from.
void limit_open_list(const TemplateControl& control, const DialogUnits& units) {
  auto* list = qobject_cast<QComboBox*>(control.widget);
  if (list == nullptr) return;
  constexpr int shortest = 5;
  const int height = units.height(control.origin->height - closed_list_height);
  const int line = std::max(list->fontMetrics().lineSpacing(), 1);
  list->setMaxVisibleItems(std::max(height / line, shortest));
}

double stretch_for(int needed, int given) {
  return given > 0 ? std::max(1.0, static_cast<double>(needed) / given) : 1.0;
}

}  // namespace

QSize needed_size(const TemplateControl& control) {
  switch (control.kind()) {
    case CONTROL_KIND::Label:
    case CONTROL_KIND::PushButton:
    case CONTROL_KIND::CheckBox:
    case CONTROL_KIND::RadioButton:
      return control.widget->sizeHint();
    case CONTROL_KIND::DropDownList:
    case CONTROL_KIND::Edit:
      return {0, control.widget->sizeHint().height()};
    case CONTROL_KIND::GroupBox:
      return {control.widget->minimumSizeHint().width(), 0};
    case CONTROL_KIND::List:
      return {static_cast<const ReportList*>(control.widget)->full_width(), 0};
  }
  return {0, 0};
}

void DialogLayout::place() {
  const DialogUnits unstretched(window_.fontMetrics());
  for (const TemplateControl& control : controls_) {
    const QSize given = room_of(*control.origin, unstretched).size();
    const QSize needed = needed_size(control);
    horizontal_ = std::max(horizontal_, stretch_for(needed.width(), given.width()));
    vertical_ = std::max(vertical_, stretch_for(needed.height(), given.height()));
  }
  DialogUnits units = unstretched;
  units.stretch(horizontal_, vertical_);
  for (const TemplateControl& control : controls_) {
    control.widget->setGeometry(place_of(control, units));
    limit_open_list(control, units);
  }
  window_.setFixedSize(units.width(template_.width), units.height(template_.height));
}

}  // namespace aluframe::toolkit

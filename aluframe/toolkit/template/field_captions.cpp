#include "aluframe/toolkit/template/field_captions.h"

#include <algorithm>
#include <cwctype>
#include <string_view>

namespace aluframe::toolkit {

namespace {

using Controls = std::span<const CONTROL_TEMPLATE>;
using Place = std::optional<std::size_t>;

// A drop-down list's template height is that of the open list; closed it is as high as an edit.
constexpr int closed_list_height = 14;

bool is_field(const CONTROL_TEMPLATE& control) {
  return control.kind == CONTROL_KIND::Edit || control.kind == CONTROL_KIND::DropDownList ||
         control.kind == CONTROL_KIND::List;
}

bool tells_something(const CONTROL_TEMPLATE& control) {
  const std::wstring_view text = control.text;
  return std::ranges::any_of(text,
                             [](wchar_t c) { return std::iswalnum(static_cast<wint_t>(c)) != 0; });
}

int bottom_of(const CONTROL_TEMPLATE& control) {
  const bool drops_down = control.kind == CONTROL_KIND::DropDownList;
  return control.y + (drops_down ? std::min(control.height, closed_list_height) : control.height);
}

/// Whether another control's middle is at a field's height.
bool is_in_row(const CONTROL_TEMPLATE& field, const CONTROL_TEMPLATE& other) {
  const int middle = (other.y + bottom_of(other)) / 2;
  return other.kind != CONTROL_KIND::GroupBox && middle >= field.y && middle <= bottom_of(field);
}

bool is_left_of(const CONTROL_TEMPLATE& one, const CONTROL_TEMPLATE& other) {
  return one.x + one.width <= other.x;
}

/// The nearest control of a field's row on one side that says something or is a field itself.
/// @param gap of another control to the field; negative: it is not on this side
template <class Gap>
Place nearest(Controls controls, std::size_t field, Gap gap) {
  Place found;
  for (std::size_t i = 0; i < controls.size(); ++i) {
    const CONTROL_TEMPLATE& other = controls[i];
    if (i == field || !is_in_row(controls[field], other) || gap(other) < 0) continue;
    if (!is_field(other) && !tells_something(other)) continue;
    if (!found || gap(other) < gap(controls[*found])) found = i;
  }
  return found;
}

Place name_in_row(Controls controls, std::size_t field) {
  const Place left = nearest(controls, field, [&](const CONTROL_TEMPLATE& other) {
    return is_left_of(other, controls[field]) ? controls[field].x - other.x - other.width : -1;
  });
  if (!left) return std::nullopt;
  const CONTROL_KIND kind = controls[*left].kind;
  return kind == CONTROL_KIND::Label || kind == CONTROL_KIND::CheckBox ? left : std::nullopt;
}

Place unit_in_row(Controls controls, std::size_t field) {
  const Place right = nearest(controls, field, [&](const CONTROL_TEMPLATE& other) {
    return is_left_of(controls[field], other) ? other.x - controls[field].x - controls[field].width
                                              : -1;
  });
  return right && controls[*right].kind == CONTROL_KIND::Label ? right : std::nullopt;
}

bool is_around(const CONTROL_TEMPLATE& box, const CONTROL_TEMPLATE& control) {
  return box.kind == CONTROL_KIND::GroupBox && box.x <= control.x && box.y <= control.y &&
         box.x + box.width >= control.x + control.width && box.y + box.height >= bottom_of(control);
}

Place box_around(Controls controls, const CONTROL_TEMPLATE& control) {
  const auto area = [](const CONTROL_TEMPLATE& box) { return box.width * box.height; };
  Place found;
  for (std::size_t i = 0; i < controls.size(); ++i) {
    if (!is_around(controls[i], control) || !tells_something(controls[i])) continue;
    if (!found || area(controls[i]) < area(controls[*found])) found = i;
  }
  return found;
}

}  // namespace

std::vector<FieldCaptions> captions_of(Controls controls) {
  std::vector<FieldCaptions> captions(controls.size());
  std::vector<bool> names_a_field(controls.size());
  for (std::size_t i = 0; i < controls.size(); ++i) {
    const bool is_radio = controls[i].kind == CONTROL_KIND::RadioButton;
    if (is_radio) captions[i].group = box_around(controls, controls[i]);
    if (!is_field(controls[i])) continue;
    captions[i].name = name_in_row(controls, i);
    if (!captions[i].name) captions[i].name = box_around(controls, controls[i]);
    if (captions[i].name) names_a_field[*captions[i].name] = true;
  }
  for (std::size_t i = 0; i < controls.size(); ++i) {
    if (!is_field(controls[i]) || controls[i].kind == CONTROL_KIND::List) continue;
    const Place unit = unit_in_row(controls, i);
    if (unit && !names_a_field[*unit]) captions[i].unit = unit;
  }
  return captions;
}

}  // namespace aluframe::toolkit

#include <optional>

#include "tools/resources/styles.h"

namespace resources {

namespace {

/// What a type of buttons is.
struct ButtonType {
  Style type;
  CONTROL_KIND kind;
  UINT flags;
};

constexpr ButtonType button_types[] = {
    {bs_pushbutton, CONTROL_KIND::PushButton, 0},
    {bs_defpushbutton, CONTROL_KIND::PushButton, CONTROL_DEFAULT},
    {bs_autocheckbox, CONTROL_KIND::CheckBox, 0},
    {bs_groupbox, CONTROL_KIND::GroupBox, 0},
    {bs_autoradiobutton, CONTROL_KIND::RadioButton, 0},
};

/// What a bit of a style says to the library.
struct CarriedStyle {
  Style bit;
  CONTROL_FLAG flag;
};

constexpr CarriedStyle carried_of_all[] = {
    {ws_tabstop, CONTROL_TAB_STOP},
    {ws_group, CONTROL_GROUP},
    {ws_disabled, CONTROL_DISABLED},
    {ws_border, CONTROL_BORDER},
};

UINT flag_if(Style style, Style bit, CONTROL_FLAG flag) {
  return (style & bit) != 0 ? UINT{flag} : 0U;
}

UINT common_flags(Style style) {
  UINT flags = (style & ws_visible) == 0 ? UINT{CONTROL_HIDDEN} : 0U;
  for (const CarriedStyle& carried : carried_of_all) {
    flags |= flag_if(style, carried.bit, carried.flag);
  }
  return flags;
}

std::optional<Appearance> button(Style style) {
  for (const ButtonType& type : button_types) {
    if ((style & button_type) == type.type) return Appearance{type.kind, type.flags};
  }
  return std::nullopt;
}

std::optional<Appearance> combo_box(Style style) {
  if ((style & combo_type) != cbs_dropdownlist) return std::nullopt;
  return Appearance{CONTROL_KIND::DropDownList,
                    flag_if(style, ws_vscroll, CONTROL_VERTICAL_SCROLL)};
}

std::optional<Appearance> list(Style style) {
  if ((style & list_view) != lvs_report) return std::nullopt;
  return Appearance{CONTROL_KIND::List,
                    CONTROL_REPORT_VIEW | flag_if(style, lvs_singlesel, CONTROL_SINGLE_SELECTION)};
}

std::optional<Appearance> of_class(const ControlClass& control_class, Style style) {
  if (&control_class == &button_class) return button(style);
  if (&control_class == &combo_box_class) return combo_box(style);
  if (&control_class == &list_class) return list(style);
  if (&control_class == &edit_class) {
    return Appearance{CONTROL_KIND::Edit, flag_if(style, es_autohscroll, CONTROL_AUTO_SCROLL)};
  }
  return Appearance{CONTROL_KIND::Label, 0};
}

}  // namespace

Appearance appearance_of(const ControlClass& control_class, Style style, const TokenStream& stream,
                         const Token& first) {
  std::optional<Appearance> appearance = of_class(control_class, style);
  if (!appearance) stream.fail_at(first, std::string(control_class.carried));
  appearance->flags |= common_flags(style);
  return *appearance;
}

}  // namespace resources

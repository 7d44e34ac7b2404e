#include "tools/resources/styles.h"

#include <string>

namespace resources {

namespace {

constexpr NamedStyle of_dialogs[] = {
    {"DS_3DLOOK", 0x0004},    {"DS_FIXEDSYS", 0x0008},          {"DS_SETFONT", 0x0040},
    {"DS_SHELLFONT", 0x0048}, {"DS_MODALFRAME", ds_modalframe}, {"WS_CAPTION", ws_caption},
    {"WS_POPUP", ws_popup},   {"WS_SYSMENU", ws_sysmenu},       {"WS_VISIBLE", ws_visible},
};

constexpr NamedStyle of_controls[] = {
    {"WS_BORDER", ws_border}, {"WS_CHILD", ws_child},     {"WS_DISABLED", ws_disabled},
    {"WS_GROUP", ws_group},   {"WS_TABSTOP", ws_tabstop}, {"WS_VISIBLE", ws_visible},
};

constexpr NamedStyle of_statics[] = {
    {"SS_LEFT", ss_left}, {"SS_CENTER", ss_center}, {"SS_RIGHT", ss_right}};

constexpr NamedStyle of_buttons[] = {
    {"BS_PUSHBUTTON", bs_pushbutton},     {"BS_DEFPUSHBUTTON", bs_defpushbutton},
    {"BS_AUTOCHECKBOX", bs_autocheckbox}, {"BS_AUTORADIOBUTTON", bs_autoradiobutton},
    {"BS_GROUPBOX", bs_groupbox},
};

constexpr NamedStyle of_edits[] = {{"ES_LEFT", 0}, {"ES_AUTOHSCROLL", es_autohscroll}};

constexpr NamedStyle of_combo_boxes[] = {{"CBS_DROPDOWNLIST", cbs_dropdownlist},
                                         {"WS_VSCROLL", ws_vscroll}};

constexpr NamedStyle of_lists[] = {{"LVS_REPORT", lvs_report},
                                   {"LVS_SINGLESEL", lvs_singlesel},
                                   {"LVS_SHOWSELALWAYS", lvs_showselalways}};

}  // namespace

const ControlClass static_class = {"Static", of_statics, "any label"};
const ControlClass button_class = {"Button", of_buttons,
                                   "a push button, a group box, or a check box or radio button "
                                   "that changes by itself"};
const ControlClass edit_class = {"Edit", of_edits, "any edit"};
const ControlClass combo_box_class = {"ComboBox", of_combo_boxes,
                                      "a combo box of style CBS_DROPDOWNLIST"};
const ControlClass list_class = {"SysListView32", of_lists, "a list of style LVS_REPORT"};

std::span<const ControlClass* const> control_classes() {
  static constexpr const ControlClass* all[] = {&static_class, &button_class, &edit_class,
                                                &combo_box_class, &list_class};
  return all;
}

std::span<const NamedStyle> dialog_styles() {
  return of_dialogs;
}

std::span<const NamedStyle> common_styles() {
  return of_controls;
}

namespace {

using StyleTables = std::initializer_list<std::span<const NamedStyle>>;

/// Takes a style's name. @return its bits
Style take_style(TokenStream& stream, StyleTables tables, const std::string& also) {
  std::string allowed = also;
  for (const std::span<const NamedStyle> table : tables) {
    for (const NamedStyle& style : table) {
      if (stream.peek().is_word(style.name)) {
        stream.take();
        return style.bits;
      }
      if (!allowed.empty()) allowed += ", ";
      allowed += style.name;
    }
  }
  stream.fail(allowed);
}

}  // namespace

Style read_style(TokenStream& stream, Style initial, StyleTables tables) {
  Style style = initial;
  do {
    if (stream.peek().is_word("NOT")) {
      stream.take();
      style &= ~take_style(stream, tables, "");
    } else {
      style |= take_style(stream, tables, "NOT");
    }
  } while (stream.accept_mark('|'));
  return style;
}

}  // namespace resources

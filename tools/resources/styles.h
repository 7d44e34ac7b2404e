#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>

#include "host/framework/resources.h"
#include "tools/resources/token_stream.h"

namespace resources {

/// Properties of a dialog or control as a script or-s them together. The low half means another
/// thing for every class of control.
using Style = std::uint32_t;

inline constexpr Style ws_tabstop = 0x00010000;
inline constexpr Style ws_group = 0x00020000;
inline constexpr Style ws_sysmenu = 0x00080000;
inline constexpr Style ws_vscroll = 0x00200000;
inline constexpr Style ws_border = 0x00800000;
inline constexpr Style ws_caption = 0x00C00000;
inline constexpr Style ws_disabled = 0x08000000;
inline constexpr Style ws_visible = 0x10000000;
inline constexpr Style ws_child = 0x40000000;
inline constexpr Style ws_popup = 0x80000000;
inline constexpr Style ds_modalframe = 0x0080;
inline constexpr Style ss_left = 0;
inline constexpr Style ss_center = 1;
inline constexpr Style ss_right = 2;
/// The type of a button is one of sixteen numbers.
inline constexpr Style button_type = 0x000F;
inline constexpr Style bs_pushbutton = 0;
inline constexpr Style bs_defpushbutton = 1;
inline constexpr Style bs_checkbox = 2;
inline constexpr Style bs_autocheckbox = 3;
inline constexpr Style bs_groupbox = 7;
inline constexpr Style bs_autoradiobutton = 9;
inline constexpr Style es_autohscroll = 0x0080;
/// The type of a combo box is one of four numbers.
inline constexpr Style combo_type = 0x0003;
inline constexpr Style cbs_simple = 1;
inline constexpr Style cbs_dropdownlist = 3;
/// The view of a list is one of four numbers.
inline constexpr Style list_view = 0x0003;
inline constexpr Style lvs_report = 1;
inline constexpr Style lvs_singlesel = 4;
inline constexpr Style lvs_showselalways = 8;

/// A style as a script names it.
struct NamedStyle {
  std::string_view name;
  Style bits;
};

/// Styles of dialogs.
std::span<const NamedStyle> dialog_styles();
/// Styles that every control may have.
std::span<const NamedStyle> common_styles();

/// A class of controls.
struct ControlClass {
  std::string_view name;  ///< in a CONTROL statement
  std::span<const NamedStyle> styles;
  /// Which of its controls the library can carry, for messages.
  std::string_view carried;
};

extern const ControlClass static_class;
extern const ControlClass button_class;
extern const ControlClass edit_class;
extern const ControlClass combo_box_class;
extern const ControlClass list_class;

/// All of them.
std::span<const ControlClass* const> control_classes();

/// Reads names joined by `|`: each adds its bits to `initial`, or takes them away behind NOT.
/// @throws SourceError for a name that no table has
Style read_style(TokenStream& stream, Style initial,
                 std::initializer_list<std::span<const NamedStyle>> tables);

/// What a control of this class and style is, and what the library carries of the style.
struct Appearance {
  CONTROL_KIND kind;
  UINT flags;
};

/// @param stream stands behind the control; `first` is its first token, for the message
/// @throws SourceError for a control that the library cannot carry
Appearance appearance_of(const ControlClass& control_class, Style style, const TokenStream& stream,
                         const Token& first);

}  // namespace resources

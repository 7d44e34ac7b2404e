#pragma once

#include <span>

#include "host/framework/types.h"

// The resources that a module carries: templates of its dialogs, and binary data. A build step
// makes them from the module's resource script.

/// What a control is.
enum class CONTROL_KIND {
  Label,
  GroupBox,
  PushButton,
  CheckBox,     ///< changes its check by itself when clicked
  RadioButton,  ///< checks itself and unchecks the others of its group when clicked
  Edit,         ///< one line of text
  DropDownList,
  List,  ///< rows in columns with headers
};

/// Properties of a control, or-ed together.
enum CONTROL_FLAG : UINT {
  CONTROL_TAB_STOP = 1U << 0U,  ///< the Tab key stops here
  CONTROL_GROUP = 1U << 1U,     ///< first of a group; radio buttons of a group exclude each other
  CONTROL_HIDDEN = 1U << 2U,    ///< not shown when the dialog opens
  CONTROL_DISABLED = 1U << 3U,  ///< disabled when the dialog opens
  CONTROL_BORDER = 1U << 4U,    ///< has a border
  CONTROL_AUTO_SCROLL = 1U << 5U,       ///< an edit that scrolls sideways with what is typed
  CONTROL_VERTICAL_SCROLL = 1U << 6U,   ///< a drop-down list that scrolls
  CONTROL_REPORT_VIEW = 1U << 7U,       ///< a list in columns
  CONTROL_SINGLE_SELECTION = 1U << 8U,  ///< a list of which one row at most is selected
  CONTROL_DEFAULT = 1U << 9U,           ///< the push button that Enter presses
};

/// Identifier of a control that nobody asks for.
inline constexpr int kNoControlId = -1;

/// A control of a dialog template.
struct CONTROL_TEMPLATE {
  CONTROL_KIND kind;
  int nId;              ///< identifier; `kNoControlId` when it has none
  const wchar_t* text;  ///< an "&" stands before the character that is its accelerator
  int x;                ///< place and size inside the dialog, in dialog units
  int y;
  int width;
  int height;  ///< of a drop-down list: with the list open
  UINT flags;  ///< `CONTROL_FLAG`s
};

/// A dialog: its size in dialog units, a quarter of the font's average width by an eighth of its
/// height. Controls stand in the order of the Tab key.
struct DIALOG_TEMPLATE {
  UINT nId;
  const wchar_t* caption;
  int width;
  int height;
  bool bModalFrame;
  bool bSystemMenu;
  std::span<const CONTROL_TEMPLATE> controls;
};

/// Binary data of a module.
struct BINARY_RESOURCE {
  UINT nId;
  const wchar_t* type;  ///< found whatever its case
  std::span<const unsigned char> bytes;
};

/// All that a module carries.
struct MODULE_RESOURCES {
  std::span<const DIALOG_TEMPLATE> dialogs;
  std::span<const BINARY_RESOURCE> binaries;
};

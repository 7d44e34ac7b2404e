#pragma once

#include "tools/resources/script.h"
#include "tools/resources/token_stream.h"

namespace resources {

/// Reads one control of a dialog:
///
///     LTEXT "text", id, x, y, width, height, style    also RTEXT, CTEXT, GROUPBOX, PUSHBUTTON,
///                                                     DEFPUSHBUTTON, CHECKBOX, AUTOCHECKBOX,
///                                                     AUTORADIOBUTTON
///     EDITTEXT id, x, y, width, height, style         also COMBOBOX
///     CONTROL "text", id, "class", style, x, y, width, height
///
/// The style at the end may be left out; it adds to what the statement means by itself, or takes
/// away from it: `NOT WS_BORDER`. The identifier is a number, a symbol, or -1 for none. Alignment
/// of a text is not carried.
/// @throws SourceError for anything else, and for controls that the library cannot carry: combo
///   boxes that are no drop-down list, lists without columns, buttons of other types (CHECKBOX
///   alone is one whose check the program would have to change)
Control read_control(TokenStream& stream, const SymbolTable& symbols);

}  // namespace resources

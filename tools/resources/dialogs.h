#pragma once

#include "tools/resources/script.h"
#include "tools/resources/token_stream.h"

namespace resources {

/// Reads a dialog from behind its DIALOGEX, and leaves its identifier to the caller:
///
///     x, y, width, height
///     STYLE DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU
///     CAPTION "text"
///     FONT size, "face", weight, italic, character set
///     BEGIN controls END
///
/// The three statements may be left out, and stand in any order. Place and font are not carried:
/// the toolkit centres a dialog and takes the user's font.
/// @throws SourceError for anything else, and for an identifier that two controls have
Dialog read_dialog(TokenStream& stream, const SymbolTable& symbols);

}  // namespace resources

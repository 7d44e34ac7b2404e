#pragma once

#include <string_view>

namespace aluframe::document {

/// How the document looks on the screen and on A4: letters of the system, page numbers where a
/// print can have them.
extern const std::string_view style_sheet;

}  // namespace aluframe::document

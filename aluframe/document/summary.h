#pragma once

#include "aluframe/document/chapters.h"
#include "aluframe/run/document.h"

namespace aluframe::document {

/// Ratios by element, section and combination, and everything that must be known beside them.
/// @param html and @param content outlive the chapter
Chapter summary_chapter(HtmlWriter& html, const run::DocumentContent& content);

}  // namespace aluframe::document

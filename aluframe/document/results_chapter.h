#pragma once

#include "aluframe/document/chapters.h"
#include "aluframe/run/document.h"

namespace aluframe::document {

/// What came out: ratios in the frame and along members, displacements, reactions.
/// @param html and @param content outlive the chapter
Chapter results_chapter(HtmlWriter& html, const run::DocumentContent& content);

}  // namespace aluframe::document

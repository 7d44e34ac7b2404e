#pragma once

#include "aluframe/document/chapters.h"
#include "aluframe/run/document.h"

namespace aluframe::document {

/// What was calculated: the frame in pictures and numbers, its loads and combinations.
/// @param html and @param content outlive the chapter
Chapter input_chapter(HtmlWriter& html, const run::DocumentContent& content);

}  // namespace aluframe::document

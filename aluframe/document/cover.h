#pragma once

#include "aluframe/document/html_writer.h"
#include "aluframe/run/document.h"

namespace aluframe::document {

/// The title of the document: of the project, else of the model.
std::string title_of(const run::DocumentContent& content);

/// The first page: the project, what was calculated by what, and in one sentence how it came out;
/// before anything what the results do not cover.
void write_cover(HtmlWriter& html, const run::DocumentContent& content);

}  // namespace aluframe::document

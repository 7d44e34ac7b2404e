#pragma once

#include "aluframe/document/html_writer.h"
#include "aluframe/run/document.h"

namespace aluframe::document {

/// Every load case with its loads as a table and a picture.
void write_load_cases(HtmlWriter& html, const run::DocumentContent& content);
/// The combinations with their numbers and factors, and the states by which envelopes are checked.
void write_combinations(HtmlWriter& html, const run::DocumentContent& content);

}  // namespace aluframe::document

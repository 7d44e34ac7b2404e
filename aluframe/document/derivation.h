#pragma once

#include <string_view>

#include "aluframe/document/html_writer.h"
#include "aluframe/explain/explain.h"

// How a ratio comes about, as it stands in a calculation document.

namespace aluframe::document {

/// Rules of CSS for what `write_derivation` writes.
std::string_view derivation_style();

/// The steps of a check as a table: each with its formula, the numbers put in and the result, what
/// it is, why this rule was taken, and the chapter of GB 50429-2007; indented under the step that
/// it leads to, each once where it is first needed. At the end the verdict. Texts are in the
/// language in use.
///
/// A program reads a step by the row's data-symbol, data-result and data-unit, and its numbers by
/// the formula's alttext, which is as `explain::numbers` writes it.
void write_derivation(HtmlWriter& html, const explain::Explanation& explanation);

}  // namespace aluframe::document

#pragma once

#include "aluframe/document/html_writer.h"
#include "aluframe/run/document.h"

namespace aluframe::document {

/// A line an element, the worst ratio first: the ratio of every check and which one governs where,
/// with the safe ratio of a second opinion.
void write_by_element(HtmlWriter& html, const run::DocumentContent& content);
/// A line a section, in the order of the model.
void write_by_section(HtmlWriter& html, const run::DocumentContent& content);
/// A line a combination or state, with the worst of all checks that were made in it.
void write_by_combination(HtmlWriter& html, const run::DocumentContent& content);

/// What the line of an element is linked to by.
std::string id_of_element(model::Number element);

}  // namespace aluframe::document

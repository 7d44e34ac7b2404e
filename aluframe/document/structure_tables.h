#pragma once

#include "aluframe/document/html_writer.h"
#include "aluframe/run/document.h"

// The structure of the model in numbers, in the user's units.

namespace aluframe::document {

void write_materials(HtmlWriter& html, const run::DocumentContent& content);
/// With a sketch of each, dimensions in mm.
void write_sections(HtmlWriter& html, const run::DocumentContent& content);
void write_nodes(HtmlWriter& html, const run::DocumentContent& content);
void write_supports(HtmlWriter& html, const run::DocumentContent& content);
void write_elements(HtmlWriter& html, const run::DocumentContent& content);
/// What elements have of their own in place of settings and members; nothing where none has.
void write_design_attributes(HtmlWriter& html, const run::DocumentContent& content);
/// With their lengths and effective length factors.
void write_members(HtmlWriter& html, const run::DocumentContent& content);

}  // namespace aluframe::document

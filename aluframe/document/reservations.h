#pragma once

#include "aluframe/document/html_writer.h"
#include "aluframe/run/document.h"

// What must be known beside the ratios of the checks.

namespace aluframe::document {

void write_remarks(HtmlWriter& html, const run::DocumentContent& content);
void write_not_checked(HtmlWriter& html, const run::DocumentContent& content);
void write_buckling(HtmlWriter& html, const run::DocumentContent& content);
void write_serviceability(HtmlWriter& html, const run::DocumentContent& content);
/// The settings that the check went by, and where each comes from.
void write_settings(HtmlWriter& html, const run::DocumentContent& content);

}  // namespace aluframe::document

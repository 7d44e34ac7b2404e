#pragma once

#include "aluframe/document/html_writer.h"
#include "aluframe/run/document.h"

namespace aluframe::document {

/// A line a load case or combination: largest displacement, what the reactions add up to, and how
/// well the solution balances the loads.
void write_equilibrium(HtmlWriter& html, const run::DocumentContent& content);
/// A line a node: its largest displacement, and in which load case or combination.
void write_displacements(HtmlWriter& html, const run::DocumentContent& content);
/// A line a support and load case or combination.
void write_reactions(HtmlWriter& html, const run::DocumentContent& content);

}  // namespace aluframe::document

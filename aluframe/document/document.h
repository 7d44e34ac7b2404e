#pragma once

#include <functional>
#include <ostream>
#include <string_view>

#include "aluframe/document/derivations_chapter.h"
#include "aluframe/run/document.h"

namespace aluframe::document {

/// Names the program in the head of its documents, before anything of the model: earlier documents
/// are recognised by it.
inline constexpr std::string_view generator = "AluFrame calculation document";

/// Writes the calculation document: one page of HTML that needs nothing beside it, to be read on
/// the screen and printed on A4, in the language in use. The same content gives the same bytes.
/// @param out whether all arrived it tells
/// @param derivations of checks, the last chapter; null: without it
/// @param before_section called before each section of a chapter; what it throws ends the document
/// @throws what `derivations` and `before_section` throw
void write_document(std::ostream& out, const run::DocumentContent& content,
                    const Derivations& derivations, const std::function<void()>& before_section);

}  // namespace aluframe::document

#pragma once

#include <functional>

#include "aluframe/document/chapters.h"
#include "aluframe/run/check_explainer.h"

namespace aluframe::document {

/// Hands over explained checks one after the other. @throws what ends it
using Derivations = std::function<void(const std::function<void(const run::ExplainedCheck&)>&)>;

/// How the ratios come about, step by step, each check on a new page of a print.
/// @param html and @param derivations outlive the chapter
Chapter derivations_chapter(HtmlWriter& html, const Derivations& derivations);

}  // namespace aluframe::document

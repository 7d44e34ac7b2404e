#include "aluframe/document/derivations_chapter.h"

#include "aluframe/document/derivation.h"
#include "aluframe/document/explained_place.h"
#include "aluframe/texts/text.h"

namespace aluframe::document {

namespace {

void write_check(HtmlWriter& html, const run::ExplainedCheck& check) {
  html.element("section", {{"class", "derived"}}, [&] {
    html.leaf("h4", place_of(check));
    write_derivation(html, check.explanation);
  });
}

void write_checks(HtmlWriter& html, const Derivations& derivations) {
  html.leaf("p",
            texts::translated("Every line can be worked out as it stands: its own numbers give its "
                              "result to all digits shown. Forces N, N·mm, lengths mm. Names in "
                              "brackets, such as (F1), are rules of the checks that may surprise. "
                              "Elements whose checks differ in nothing stand together."));
  derivations([&html](const run::ExplainedCheck& check) { write_check(html, check); });
}

}  // namespace

Chapter derivations_chapter(HtmlWriter& html, const Derivations& derivations) {
  return {"derivations",
          texts::translated("Derivations"),
          {{"derivations-checks", texts::translated("Checks step by step"),
            [&html, &derivations] { write_checks(html, derivations); }}}};
}

}  // namespace aluframe::document

#include "aluframe/document/derivation.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>

#include "aluframe/document/mathml.h"
#include "aluframe/explain/number_text.h"
#include "aluframe/explain/step_words.h"
#include "aluframe/texts/sentence.h"
#include "aluframe/texts/text.h"

namespace aluframe::document {

namespace {

using explain::Step;

constexpr std::string_view style =
    R"(.check { content-visibility: auto; contain-intrinsic-size: auto 60em; }
@media print { .check { content-visibility: visible; } }
.derivation { border-collapse: collapse; table-layout: fixed; width: 100%; }
.derivation caption { text-align: left; font-weight: bold; padding: 0 0 .3em; }
.derivation thead th { text-align: left; font-weight: normal; font-size: .8em; color: #444; border-bottom: 1px solid #666; padding: .2em .4em; }
.derivation thead th + th { width: 8em; }
.derivation tbody th, .derivation td { font-weight: normal; text-align: left; vertical-align: top; padding: .3em .4em; border-bottom: 1px solid #e2e2e2; }
.derivation tbody th { padding-left: calc(2em + var(--depth, 0) * .9em); text-indent: -1.6em; }
.derivation tr { break-inside: avoid; }
.derivation math { font-family: "STIX Two Math", "Latin Modern Math", "Cambria Math", "DejaVu Math TeX Gyre", math; font-size: .95em; margin-right: .35em; padding: .12em 0; text-indent: 0; }
.derivation math, .derivation mfrac > * { math-style: normal; }
.derivation mfrac > * { padding: .1em .15em; }
.derivation msqrt > mrow { padding-top: .2em; }
.derivation mtd { text-align: left; padding: .15em 0; }
.derivation .what, .derivation .clause { font-size: .85em; color: #444; }
.derivation .what { text-indent: 0; padding-top: .3em; }
.derivation .given div { display: inline; }
.derivation .given .what { padding-left: .6em; }
.derivation .unit { white-space: nowrap; }
.verdict { font-weight: bold; margin: .5em 0 1.2em; }
.verdict.fails { color: #a11; }
)";

std::string equals() {
  return "<mo>=</mo>";
}

/// How many letters fit in a row on A4 behind the indent of a step.
std::size_t room_at(int depth) {
  constexpr int whole = 56, least = 30;
  return static_cast<std::size_t>(std::max(whole - 3 * depth / 2, least));
}

std::string formula_side(const Step& step, const explain::Term& formula, std::size_t room) {
  return symbol_markup(step.info.symbol) + equals() + formula_markup(formula, room);
}

void write_math(HtmlWriter& html, const Attributes& attributes, const std::string& markup) {
  html.element("math", attributes, [&] { html.markup(markup); });
}

void write_result(HtmlWriter& html, const std::string& before, const Step& step,
                  const std::string& result) {
  html.element("span", {{"class", "unit"}}, [&] {
    write_math(html, {}, before + equals() + number_markup(result));
    if (!step.info.unit.empty()) html.text(" " + step.info.unit);
  });
}

/// "σ = |N| / A = |-50000| / 2500 = 20 N/mm²", a side each a formula, so that a line may break
/// between them.
void write_calculation(HtmlWriter& html, const Step& step, const explain::NumberLine& line,
                       std::size_t room) {
  if (!step.formula) return write_result(html, symbol_markup(step.info.symbol), step, line.result);
  const std::string symbols = explain::formula(*step.formula);
  write_math(html, {}, formula_side(step, *step.formula, room));
  const bool is_alone = step.formula->operation() == explain::Operation::symbol;
  if (!is_alone && line.numbers != symbols) {
    write_math(html, {{"class", "numbers"}, {"alttext", line.numbers}},
               equals() + numbers_markup(*step.formula, line.digits, room));
  }
  write_result(html, "", step, line.result);
}

std::string what_it_is(const explain::StepWords& words) {
  return words.why.empty() ? words.quantity : words.quantity + texts::translated("; ") + words.why;
}

/// A step and those that it follows from.
class Rows {
 public:
  explicit Rows(HtmlWriter& html) : html_(html) {}

  void write(const Step& step, int depth) {
    if (!seen_.insert(&step).second) return;
    write_row(step, depth);
    for (const explain::StepPointer& source : step.from) write(*source, depth + 1);
  }

 private:
  void write_row(const Step& step, int depth) {
    const explain::NumberLine line = explain::line_of(step);
    const explain::StepWords words = explain::words_of(step.info);
    html_.element("tr",
                  {{"class", step.formula ? "derived" : "given"},
                   {"data-symbol", step.info.symbol},
                   {"data-result", line.result},
                   {"data-unit", step.info.unit}},
                  [&] {
                    const std::string indent = fmt::format("--depth: {}", depth);
                    html_.element("th", {{"scope", "row"}, {"style", indent}}, [&] {
                      html_.element("div", {{"class", "calculation"}},
                                    [&] { write_calculation(html_, step, line, room_at(depth)); });
                      html_.leaf("div", {{"class", "what"}}, what_it_is(words));
                    });
                    html_.leaf("td", {{"class", "clause"}}, words.clause);
                  });
  }

  HtmlWriter& html_;
  std::set<const Step*> seen_;
};

void write_headings(HtmlWriter& html) {
  html.element("thead", [&] {
    html.element("tr", [&] {
      html.leaf("th", {{"scope", "col"}}, texts::translated("Quantity, formula and result"));
      html.leaf("th", {{"scope", "col"}}, "GB 50429-2007");
    });
  });
}

/// Enough digits to see on which side of 1 it is.
std::string ratio_text(double ratio) {
  const std::string text = explain::number_text(ratio, explain::result_digits);
  const bool is_seen = (explain::number_of(text) > 1.0) == (ratio > 1.0);
  return is_seen ? text : explain::exact_text(ratio);
}

struct Verdict {
  std::string_view css_class;
  std::string text;
};

Verdict verdict_of(const explain::Explanation& explanation) {
  const T_RALU_RLT& result = explanation.result;
  const double ratio = explanation.ratio->value;
  if (result.dCapacity == 0.0 && std::isfinite(result.dDemand)) {
    return {"not-judged", texts::translated("Without a limit nothing is judged.")};
  }
  if (RaluSeverity(result.dDemand, result.dCapacity) <= 1.0) {
    return {"passes", texts::translated("Ratio {} ≤ 1: passes.", ratio_text(ratio))};
  }
  if (std::isfinite(ratio)) {
    return {"fails", texts::translated("Ratio {} > 1: fails.", ratio_text(ratio))};
  }
  return {"fails", texts::translated("The ratio is no finite number: fails.")};
}

void write_steps(HtmlWriter& html, const explain::Explanation& explanation) {
  html.element("table", {{"class", "derivation"}}, [&] {
    html.leaf("caption", texts::sentence_in_words(explanation.check));
    write_headings(html);
    html.element("tbody", [&] { Rows(html).write(*explanation.ratio, 0); });
  });
}

}  // namespace

std::string_view derivation_style() {
  return style;
}

void write_derivation(HtmlWriter& html, const explain::Explanation& explanation) {
  // A browser lays out the checks that are seen, so a document of thousands opens at once.
  html.element("div", {{"class", "check"}}, [&] {
    write_steps(html, explanation);
    const Verdict verdict = verdict_of(explanation);
    html.leaf("p", {{"class", fmt::format("verdict {}", verdict.css_class)}}, verdict.text);
  });
}

}  // namespace aluframe::document

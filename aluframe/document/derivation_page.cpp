#include "aluframe/document/derivation_page.h"

#include "aluframe/document/derivation.h"
#include "aluframe/document/html_writer.h"
#include "aluframe/texts/language.h"

namespace aluframe::document {

namespace {

constexpr std::string_view style =
    R"(body { font-family: "Liberation Serif", "Times New Roman", "Noto Serif CJK SC", "Songti SC", SimSun, serif; font-size: 11pt; max-width: 180mm; margin: 10mm auto; color: #000; }
h1 { font-size: 1.25em; margin: 0 0 .6em; }
.footing { font-size: .8em; color: #444; border-top: 1px solid #666; padding-top: .4em; }
@page { size: A4; margin: 15mm; }
@media print { body { margin: 0; max-width: none; } }
)";

const char* language_tag() {
  return texts::language_in_use() == texts::Language::chinese ? "zh-CN" : "en";
}

void write_head(HtmlWriter& html, const std::string& title) {
  html.element("head", [&] {
    html.empty("meta", {{"charset", "utf-8"}});
    html.leaf("title", title);
    html.element("style", [&] {
      html.markup(style);
      html.markup(derivation_style());
    });
  });
}

}  // namespace

void write_derivation_page(std::ostream& out, const DerivationPage& page,
                           const explain::Explanation& explanation) {
  out << "<!DOCTYPE html>\n";
  HtmlWriter html(out);
  html.element("html", {{"lang", language_tag()}}, [&] {
    write_head(html, page.heading);
    html.element("body", [&] {
      html.leaf("h1", page.heading);
      write_derivation(html, explanation);
      html.leaf("p", {{"class", "footing"}}, page.footing);
    });
  });
}

}  // namespace aluframe::document

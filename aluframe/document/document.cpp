#include "aluframe/document/document.h"

#include <vector>

#include "aluframe/document/chapters.h"
#include "aluframe/document/cover.h"
#include "aluframe/document/derivation.h"
#include "aluframe/document/html_writer.h"
#include "aluframe/document/input_chapter.h"
#include "aluframe/document/results_chapter.h"
#include "aluframe/document/style.h"
#include "aluframe/document/summary.h"
#include "aluframe/texts/language.h"

namespace aluframe::document {

namespace {

void write_head(HtmlWriter& html, const run::DocumentContent& content) {
  html.element("head", [&] {
    html.empty("meta", {{"charset", "utf-8"}});
    html.empty("meta", {{"name", "viewport"}, {"content", "width=device-width, initial-scale=1"}});
    html.empty("meta", {{"name", "generator"}, {"content", std::string(generator)}});
    html.leaf("title", title_of(content));
    html.element("style", [&] {
      html.markup(style_sheet);
      html.markup(derivation_style());
    });
  });
}

}  // namespace

void write_document(std::ostream& out, const run::DocumentContent& content,
                    const Derivations& derivations, const std::function<void()>& before_section) {
  HtmlWriter html(out);
  const bool is_chinese = texts::language_in_use() == texts::Language::chinese;
  html.markup("<!DOCTYPE html>\n");
  html.element("html", {{"lang", is_chinese ? "zh-CN" : "en"}}, [&] {
    write_head(html, content);
    html.element("body", [&] {
      std::vector<Chapter> chapters{summary_chapter(html, content), input_chapter(html, content),
                                    results_chapter(html, content)};
      if (derivations) chapters.push_back(derivations_chapter(html, derivations));
      write_cover(html, content);
      write_contents(html, chapters);
      html.element("main", [&] { write_chapters(html, chapters, before_section); });
    });
  });
}

}  // namespace aluframe::document

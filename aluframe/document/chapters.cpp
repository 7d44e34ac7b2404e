#include "aluframe/document/chapters.h"

#include <fmt/format.h>

#include "aluframe/texts/text.h"

namespace aluframe::document {

namespace {

std::string numbered(std::size_t chapter, const std::string& title) {
  return fmt::format("{} {}", chapter + 1, title);
}

std::string numbered(std::size_t chapter, std::size_t section, const std::string& title) {
  return fmt::format("{}.{} {}", chapter + 1, section + 1, title);
}

void write_link(HtmlWriter& html, const std::string& id, const std::string& text) {
  html.leaf("a", {{"href", "#" + id}}, text);
}

}  // namespace

void write_contents(HtmlWriter& html, const std::vector<Chapter>& chapters) {
  html.element("nav", {{"aria-labelledby", "contents"}}, [&] {
    html.leaf("h2", {{"id", "contents"}}, texts::translated("Contents"));
    html.element("ul", [&] {
      for (std::size_t c = 0; c < chapters.size(); ++c) {
        html.element("li", [&] {
          write_link(html, chapters[c].id, numbered(c, chapters[c].title));
          html.element("ul", [&] {
            for (std::size_t s = 0; s < chapters[c].sections.size(); ++s) {
              const Section& section = chapters[c].sections[s];
              html.element("li",
                           [&] { write_link(html, section.id, numbered(c, s, section.title)); });
            }
          });
        });
      }
    });
  });
}

void write_chapters(HtmlWriter& html, const std::vector<Chapter>& chapters,
                    const std::function<void()>& before_section) {
  for (std::size_t c = 0; c < chapters.size(); ++c) {
    const Chapter& chapter = chapters[c];
    html.element("section", {{"class", "chapter"}, {"aria-labelledby", chapter.id}}, [&] {
      html.leaf("h2", {{"id", chapter.id}}, numbered(c, chapter.title));
      for (std::size_t s = 0; s < chapter.sections.size(); ++s) {
        const Section& section = chapter.sections[s];
        before_section();
        html.element("section", {{"aria-labelledby", section.id}}, [&] {
          html.leaf("h3", {{"id", section.id}}, numbered(c, s, section.title));
          section.write();
        });
      }
    });
  }
}

}  // namespace aluframe::document

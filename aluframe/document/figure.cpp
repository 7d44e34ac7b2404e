#include "aluframe/document/figure.h"

#include "aluframe/picture/svg.h"

namespace aluframe::document {

void write_figure(HtmlWriter& html, std::string_view kind, std::string_view svg,
                  std::string_view caption) {
  html.element("figure", {{"class", std::string(kind)}}, [&] {
    html.markup(svg);
    html.leaf("figcaption", caption);
  });
}

void write_picture(HtmlWriter& html, const model::Model& model, const picture::Content& content,
                   const std::string& id) {
  const picture::Scene scene = picture::draw(model, content);
  write_figure(html, "picture", picture::svg_of(scene, {.is_file = false, .prefix = id}),
               scene.subtitle);
}

}  // namespace aluframe::document

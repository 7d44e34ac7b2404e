#include "aluframe/document/input_chapter.h"

#include <fmt/format.h>

#include "aluframe/document/figure.h"
#include "aluframe/document/load_tables.h"
#include "aluframe/document/structure_tables.h"
#include "aluframe/document/views.h"
#include "aluframe/texts/text.h"

namespace aluframe::document {

namespace {

/// All views with the numbers of nodes and elements, and one with the local axes.
void write_frame(HtmlWriter& html, const run::DocumentContent& content) {
  const model::Model& model = content.input.model;
  for (const picture::View view : views_of(model)) {
    picture::Content shown;
    shown.view = view;
    shown.node_numbers.are_shown = true;
    shown.element_numbers.are_shown = true;
    write_picture(html, model, shown, fmt::format("frame-{}", picture::name_of(view)));
  }
  picture::Content axes;
  axes.local_axes = true;
  axes.colour = picture::ColourBy::section;
  write_picture(html, model, axes, "axes");
}

}  // namespace

Chapter input_chapter(HtmlWriter& html, const run::DocumentContent& content) {
  const auto section = [&](const char* id, std::string title, auto write) {
    return Section{id, std::move(title), [&html, &content, write] { write(html, content); }};
  };
  return {"input",
          texts::translated("Input"),
          {section("frame", texts::translated("Frame"), write_frame),
           section("materials", texts::translated("Materials"), write_materials),
           section("sections", texts::translated("Sections"), write_sections),
           section("nodes", texts::translated("Nodes"), write_nodes),
           section("supports", texts::translated("Supports"), write_supports),
           section("elements", texts::translated("Elements"), write_elements),
           section("design-attributes", texts::translated("Design attributes"),
                   write_design_attributes),
           section("members", texts::translated("Members"), write_members),
           section("load-cases", texts::translated("Load cases"), write_load_cases),
           section("combinations", texts::translated("Combinations"), write_combinations)}};
}

}  // namespace aluframe::document

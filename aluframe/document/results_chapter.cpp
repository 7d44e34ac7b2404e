#include "aluframe/document/results_chapter.h"

#include <fmt/format.h>

#include "aluframe/document/analysis_tables.h"
#include "aluframe/document/figure.h"
#include "aluframe/document/member_diagram.h"
#include "aluframe/document/names.h"
#include "aluframe/document/views.h"
#include "aluframe/texts/text.h"

namespace aluframe::document {

namespace {

void write_ratios(HtmlWriter& html, const run::DocumentContent& content) {
  const model::Model& model = content.input.model;
  picture::Content shown;
  shown.colour = picture::ColourBy::ratio;
  for (const run::ElementResult& element : content.elements) {
    shown.ratios[element.element] = element.worst().governing.Ratio();
  }
  shown.element_numbers.are_shown = true;
  for (const picture::View view : views_of(model)) {
    shown.view = view;
    write_picture(html, model, shown, fmt::format("ratios-{}", picture::name_of(view)));
  }
}

std::string caption_of(const run::DocumentContent& content, const run::GoverningMember& member) {
  const std::string combination = combination_label(content.info, member.worst.governing.nLComb,
                                                    member.worst.governing.nMinSide);
  return texts::translated(
      "{}: forces in combination {}, in which element {} has the ratio {} ({}); moments are drawn "
      "downwards where they are positive, ratios are the largest of all combinations.",
      member.member ? texts::translated("Member {}", *member.member)
                    : texts::translated("Element {}", member.worst.element),
      combination, member.worst.element, ratio_text(member.worst), item_label(member.worst.item));
}

void write_governing_members(HtmlWriter& html, const run::DocumentContent& content) {
  html.leaf("p",
            texts::translated("Of each section the member with the largest ratio, forces in the "
                              "local axes of its elements."));
  for (const run::GoverningMember& member : content.governing_members) {
    const model::Section& section = *content.input.model.sections.find(member.section);
    const std::string title =
        texts::translated("Section {}", with_name(section.number, section.name));
    html.leaf("h4", title);
    write_figure(html, "diagram",
                 member_diagram(content.input.model, member,
                                fmt::format("member-{}", member.section), title),
                 caption_of(content, member));
  }
}

}  // namespace

Chapter results_chapter(HtmlWriter& html, const run::DocumentContent& content) {
  const auto section = [&](const char* id, std::string title, auto write) {
    return Section{id, std::move(title), [&html, &content, write] { write(html, content); }};
  };
  return {"results",
          texts::translated("Results"),
          {section("ratios", texts::translated("Ratios in the frame"), write_ratios),
           section("governing-members", texts::translated("Governing members"),
                   write_governing_members),
           section("equilibrium", texts::translated("Analysis and equilibrium"), write_equilibrium),
           section("displacements", texts::translated("Displacements"), write_displacements),
           section("reactions", texts::translated("Reactions"), write_reactions)}};
}

}  // namespace aluframe::document

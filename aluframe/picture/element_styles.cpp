// What elements are coloured by, and the legend.

#include <fmt/format.h>

#include <map>

#include "aluframe/picture/colours.h"
#include "aluframe/picture/drawing.h"
#include "aluframe/texts/text.h"

namespace aluframe::picture {

namespace {

constexpr Style plain_line{.stroke = ink, .width = 0.5};
constexpr Style line_behind{.stroke = grey, .width = 0.35};
constexpr Style line_without_result{.stroke = grey, .width = 0.6, .dash = "1.6 1.1"};

Style line_of(const RatioClass& one) {
  return {.stroke = one.colour, .width = one.width};
}

void add_to_legend(Drawing& drawing, const Style& style, std::string_view text, std::size_t count) {
  drawing.scene.legend.push_back({style, count == 1
                                             ? texts::translated("{}: 1 element", text)
                                             : texts::translated("{}: {} elements", text, count)});
}

/// The ratio beside an element that exceeds 1.
void add_ratio(Drawing& drawing, const SeenElement& one, double ratio) {
  drawing.scene.labels.push_back({.layer = Layer::values,
                                  .subject = element_subject(one.element->number),
                                  .text = fmt::format("{:.2f}", ratio),
                                  .at = {one.at(0.5), {}},
                                  .towards = -1.0 * left_of(one.along),
                                  .colour = orange,
                                  .is_always_shown = false,
                                  .rank = 10.0 + ratio});
}

std::vector<Style> styles_by_ratio(Drawing& drawing) {
  std::vector<Style> styles;
  std::map<const RatioClass*, std::size_t> counts;
  std::size_t without = 0;
  for (const SeenElement& one : drawing.elements) {
    const auto found = drawing.content.ratios.find(one.element->number);
    if (found == drawing.content.ratios.end()) {
      styles.push_back(line_without_result);
      ++without;
      continue;
    }
    const RatioClass& its_class = class_of(found->second);
    styles.push_back(line_of(its_class));
    ++counts[&its_class];
    if (&its_class == &over_one) add_ratio(drawing, one, found->second);
  }
  for (const RatioClass& one : ratio_classes) {
    add_to_legend(drawing, line_of(one),
                  texts::translated("ratio {}", texts::translation_of(one.text)), counts[&one]);
  }
  add_to_legend(drawing, line_of(over_one),
                texts::translated("ratio {}", texts::translation_of(over_one.text)),
                counts[&over_one]);
  if (without > 0)
    add_to_legend(drawing, line_without_result, texts::translated("without a result"), without);
  return styles;
}

/// @param kind of an element the number of its kind
/// @param text of such a number the legend's text
template <class Kind, class Text>
std::vector<Style> styles_by_kind(Drawing& drawing, const Kind& kind, const Text& text) {
  std::map<model::Number, std::size_t> counts;
  for (const SeenElement& one : drawing.elements) ++counts[kind(*one.element)];
  std::map<model::Number, Style> styles;
  for (const auto& [number, count] : counts) {
    const KindStyle its = kind_style(styles.size());
    const Style style{.stroke = its.colour, .width = 0.9, .dash = its.dash};
    styles.emplace(number, style);
    add_to_legend(drawing, style, text(number), count);
  }
  std::vector<Style> out;
  out.reserve(drawing.elements.size());
  for (const SeenElement& one : drawing.elements) out.push_back(styles.at(kind(*one.element)));
  return out;
}

std::string kind_text(std::string_view what, model::Number number, const std::string& name) {
  return name.empty() ? fmt::format("{} {}", what, number)
                      : fmt::format("{} {} {}", what, number, name);
}

std::string material_text(const model::Material& material) {
  return kind_text("material", material.number,
                   material.name.empty() ? material.grade : material.name);
}

}  // namespace

std::vector<Style> element_styles(Drawing& drawing) {
  const model::Model& model = drawing.model;
  switch (drawing.content.colour) {
    case ColourBy::ratio:
      return styles_by_ratio(drawing);
    case ColourBy::section:
      return styles_by_kind(
          drawing, [](const model::Element& element) { return element.section; },
          [&](model::Number number) {
            return kind_text("section", number, model.sections.find(number)->name);
          });
    case ColourBy::material:
      return styles_by_kind(
          drawing, [](const model::Element& element) { return element.material; },
          [&](model::Number number) { return material_text(*model.materials.find(number)); });
    case ColourBy::nothing:
      break;
  }
  return std::vector(drawing.elements.size(), drawing.content.deformed ? line_behind : plain_line);
}

}  // namespace aluframe::picture

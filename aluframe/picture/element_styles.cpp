// What elements are coloured by, and the legend.

#include <fmt/format.h>

#include <map>

#include "aluframe/picture/colours.h"
#include "aluframe/picture/content.h"
#include "aluframe/texts/text.h"

namespace aluframe::picture {

namespace {

constexpr Style plain_line{.stroke = ink, .width = 0.5};
constexpr Style line_behind{.stroke = grey, .width = 0.35};
constexpr Style line_without_result{.stroke = grey, .width = 0.6, .dash = "1.6 1.1"};

Style line_of(const RatioClass& one) {
  return {.stroke = one.colour, .width = one.width};
}

void add_to_legend(ElementStyles& out, const Style& style, std::string_view text,
                   std::size_t count) {
  out.legend.push_back({style, count == 1 ? texts::translated("{}: 1 element", text)
                                          : texts::translated("{}: {} elements", text, count)});
}

/// @param without_one what an element without a ratio is
ElementStyles styles_by_ratio(const model::Model& model, const Ratios& ratios,
                              const std::string& without_one) {
  ElementStyles out;
  std::map<const RatioClass*, std::size_t> counts;
  std::size_t without = 0;
  for (const model::Element& element : model.elements) {
    const auto found = ratios.find(element.number);
    if (found == ratios.end()) {
      out.styles.push_back(line_without_result);
      ++without;
      continue;
    }
    const RatioClass& its_class = class_of(found->second);
    out.styles.push_back(line_of(its_class));
    ++counts[&its_class];
  }
  for (const RatioClass& one : ratio_classes) {
    add_to_legend(out, line_of(one), texts::translated("ratio {}", texts::translation_of(one.text)),
                  counts[&one]);
  }
  add_to_legend(out, line_of(over_one),
                texts::translated("ratio {}", texts::translation_of(over_one.text)),
                counts[&over_one]);
  if (without > 0) add_to_legend(out, line_without_result, without_one, without);
  return out;
}

/// @param kind of an element the number of its kind
/// @param text of such a number the legend's text
template <class Kind, class Text>
ElementStyles styles_by_kind(const model::Model& model, const Kind& kind, const Text& text) {
  ElementStyles out;
  std::map<model::Number, std::size_t> counts;
  for (const model::Element& element : model.elements) ++counts[kind(element)];
  std::map<model::Number, Style> styles;
  for (const auto& [number, count] : counts) {
    const KindStyle its = kind_style(styles.size());
    const Style style{.stroke = its.colour, .width = 0.9, .dash = its.dash};
    styles.emplace(number, style);
    add_to_legend(out, style, text(number), count);
  }
  out.styles.reserve(model.elements.size());
  for (const model::Element& element : model.elements) {
    out.styles.push_back(styles.at(kind(element)));
  }
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

ElementStyles element_styles(const model::Model& model, const Content& content) {
  switch (content.colour) {
    case ColourBy::ratio:
      return styles_by_ratio(model, content.ratios, texts::translated("without a result"));
    case ColourBy::deflection:
      return styles_by_ratio(model, content.ratios, texts::translated("not limited"));
    case ColourBy::section:
      return styles_by_kind(
          model, [](const model::Element& element) { return element.section; },
          [&](model::Number number) {
            return kind_text("section", number, model.sections.find(number)->name);
          });
    case ColourBy::material:
      return styles_by_kind(
          model, [](const model::Element& element) { return element.material; },
          [&](model::Number number) { return material_text(*model.materials.find(number)); });
    case ColourBy::nothing:
      break;
  }
  return {std::vector(model.elements.size(), content.deformed ? line_behind : plain_line), {}};
}

}  // namespace aluframe::picture

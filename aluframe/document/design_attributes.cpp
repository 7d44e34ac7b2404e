#include <fmt/format.h>

#include <algorithm>
#include <optional>

#include "aluframe/document/names.h"
#include "aluframe/document/structure_tables.h"
#include "aluframe/document/table.h"
#include "aluframe/texts/text.h"

namespace aluframe::document {

namespace {

Cell pair_cell(const std::optional<model::ElementDesign::AxisPair>& pair) {
  if (!pair) return {};
  return {fmt::format("{}; {}", short_value(pair->y), short_value(pair->z))};
}

std::string factor_text(const model::MomentFactor& factor) {
  return factor.value ? short_value(*factor.value)
                      : texts::translated("by loading {}", factor.loading);
}

Cell moment_cell(const std::optional<model::ElementDesign::MomentFactors>& factors) {
  if (!factors) return {};
  return {fmt::format("{}; {}", factor_text(factors->y), factor_text(factors->z))};
}

Cell rib_cell(const std::optional<model::ElementDesign::Rib>& rib) {
  if (!rib) return {};
  return {rib->stiffened ? texts::translated("on, ratio {}", rib->ratio)
                         : texts::translated("off")};
}

Cell number_cell(const std::optional<double>& value) {
  if (!value) return {};
  return {short_value(*value)};
}

Cell slenderness_cell(const std::optional<model::ElementDesign::Slenderness>& limits) {
  if (!limits) return {};
  if (!limits->checked) return {texts::translated("not checked")};
  return {fmt::format("{}; {}", short_value(limits->compression), short_value(limits->tension))};
}

std::vector<Cell> cells_of(const model::Element& element) {
  const model::ElementDesign& design = element.design;
  return {{fmt::format("{}", element.number)},         pair_cell(design.length_factors),
          pair_cell(design.stability_coefficients),    moment_cell(design.moment_factors),
          slenderness_cell(design.slenderness_limits), rib_cell(design.rib),
          number_cell(design.weld_coefficient),        number_cell(design.haz_width)};
}

}  // namespace

void write_design_attributes(HtmlWriter& html, const run::DocumentContent& content) {
  const auto& elements = content.input.model.elements;
  const bool has_any = std::ranges::any_of(elements, [](const model::Element& element) {
    return element.design != model::ElementDesign();
  });
  if (!has_any) {
    html.leaf("p", texts::translated("No element has design attributes of its own."));
    return;
  }
  write_table(html,
              texts::translated("Design attributes that elements have of their own; of two values "
                                "the first is about y, in compression, the second about z, in "
                                "tension"),
              {{texts::translated("Element")},
               {texts::translated("Ky; Kz"), Align::left},
               {texts::translated("φb; φbz"), Align::left},
               {texts::translated("moment factors"), Align::left},
               {texts::translated("limits of slenderness"), Align::left},
               {texts::translated("ribs"), Align::left},
               {texts::translated("weld coefficient")},
               {in_unit(texts::translated("heat-affected width"), "mm")}},
              [&](TableRows& rows) {
                for (const model::Element& element : elements) {
                  if (element.design != model::ElementDesign()) rows.add(cells_of(element));
                }
              });
}

}  // namespace aluframe::document

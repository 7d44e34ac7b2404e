#include "aluframe/document/structure_tables.h"

#include <fmt/format.h>

#include <algorithm>

#include "aluframe/document/names.h"
#include "aluframe/document/table.h"
#include "aluframe/model/members.h"
#include "aluframe/tables/names.h"
#include "aluframe/tables/structure_texts.h"
#include "aluframe/texts/sentence.h"
#include "aluframe/texts/text.h"

namespace aluframe::document {

namespace {

/// Type by which its rules are chosen.
std::string type_text(const model::Model& model, const model::Element& element) {
  return std::string(
      texts::translation_of(tables::member_type_name(model::member_type(model, element))));
}

std::string source_text(const members::LengthFactor& factor) {
  switch (factor.source) {
    case members::FactorSource::given_element:
      return texts::translated("given for the element");
    case members::FactorSource::given_member:
      return texts::translated("given for the member");
    case members::FactorSource::one:
      return texts::translated("1 as the model asks");
    case members::FactorSource::no_supports:
      return texts::translated("1 for want of supports");
    case members::FactorSource::truss:
      return texts::translated("1 of a truss element");
    case members::FactorSource::non_sway:
      return texts::translated("chart, non-sway");
    case members::FactorSource::sway:
      return texts::translated("chart, sway");
    case members::FactorSource::cantilever:
      return texts::translated("chart, cantilever");
    case members::FactorSource::mode:
      break;
  }
  return texts::translated("buckling mode");
}

std::vector<Cell> member_cells(const model::Model& model, const members::SegmentFactors& of,
                               const Scale& scale) {
  std::vector<model::Number> rising = of.elements;
  std::ranges::sort(rising);
  const std::string name = of.member ? model.members.find(*of.member)->name : "";
  return {{of.member ? with_name(*of.member, name) : texts::translated("none")},
          {model::join_as_ranges(rising)},
          {fixed(of.length / scale.length, 3)},
          {fixed(of.y.k, 3)},
          {source_text(of.y)},
          {fixed(of.z.k, 3)},
          {source_text(of.z)}};
}

}  // namespace

void write_materials(HtmlWriter& html, const run::DocumentContent& content) {
  const std::string stress = "N/mm²";
  write_table(html, texts::translated("Materials"),
              {{texts::translated("Number")},
               {texts::translated("Name"), Align::left},
               {texts::translated("Alloy"), Align::left},
               {texts::translated("Standard"), Align::left},
               {in_unit("E", stress)},
               {"ν"},
               {in_unit("f0.2, t ≤ 10 mm", stress)},
               {in_unit("f0.2, t > 10 mm", stress)},
               {in_unit("fu", stress)},
               {in_unit("ρ", "kg/m³")},
               {in_unit("α", "1/K")}},
              [&](TableRows& rows) {
                constexpr double cubic_millimetres = 1e9;  // in a m³
                for (const model::Material& material : content.input.model.materials) {
                  rows.add({{fmt::format("{}", material.number)},
                            {material.name},
                            {material.grade},
                            {material.standard},
                            {short_value(material.e)},
                            {short_value(material.poisson)},
                            {short_value(material.f02_thin)},
                            {short_value(material.f02_thick)},
                            {short_value(material.fu)},
                            {short_value(material.density * cubic_millimetres)},
                            {short_value(material.thermal_expansion)}});
                }
              });
}

void write_nodes(HtmlWriter& html, const run::DocumentContent& content) {
  const Scale scale(content.input.model.units);
  write_table(html, texts::translated("Nodes"),
              {{texts::translated("Node")},
               {texts::translated("Name"), Align::left},
               {in_unit("X", scale.length_unit)},
               {in_unit("Y", scale.length_unit)},
               {in_unit("Z", scale.length_unit)}},
              [&](TableRows& rows) {
                for (const model::Node& node : content.input.model.nodes) {
                  rows.add({{fmt::format("{}", node.number)},
                            {node.name},
                            {short_value(node.x / scale.length)},
                            {short_value(node.y / scale.length)},
                            {short_value(node.z / scale.length)}});
                }
              });
}

void write_supports(HtmlWriter& html, const run::DocumentContent& content) {
  if (content.input.model.supports.empty()) {
    html.leaf("p", texts::translated("The model has no supports: its forces are given."));
    return;
  }
  write_table(html, texts::translated("Supports"),
              {{texts::translated("Node")},
               {texts::translated("Restrained"), Align::left},
               {texts::translated("Springs"), Align::left}},
              [&](TableRows& rows) {
                for (const model::Support& support : content.input.model.supports) {
                  rows.add({{fmt::format("{}", support.node)},
                            {tables::restraints_text(support)},
                            {tables::springs_text(support, content.input.model.units)}});
                }
              });
}

void write_elements(HtmlWriter& html, const run::DocumentContent& content) {
  const model::Model& model = content.input.model;
  const Scale scale(model.units);
  write_table(html, texts::translated("Elements"),
              {{texts::translated("Element")},
               {texts::translated("Name"), Align::left},
               {texts::translated("Start")},
               {texts::translated("End")},
               {texts::translated("Section")},
               {texts::translated("Material")},
               {texts::translated("Type"), Align::left},
               {in_unit(texts::translated("Length"), scale.length_unit)},
               {texts::translated("Orientation"), Align::left},
               {texts::translated("Releases"), Align::left}},
              [&](TableRows& rows) {
                for (const model::Element& element : model.elements) {
                  rows.add({{fmt::format("{}", element.number)},
                            {element.name},
                            {fmt::format("{}", element.nodes[0])},
                            {fmt::format("{}", element.nodes[1])},
                            {fmt::format("{}", element.section)},
                            {fmt::format("{}", element.material)},
                            {type_text(model, element)},
                            {fixed(model::element_length(model, element) / scale.length, 3)},
                            {texts::sentence_in_words(tables::orientation_text(element))},
                            {texts::sentence_in_words(tables::releases_text(element))}});
                }
              });
}

void write_members(HtmlWriter& html, const run::DocumentContent& content) {
  const model::Model& model = content.input.model;
  const Scale scale(model.units);
  html.leaf("p", model.finds_members
                     ? texts::translated("Members were found from the frame: collinear elements "
                                         "that belong together are one member.")
                     : texts::translated("Members are those of the model."));
  write_table(html, texts::translated("Members, their lengths and effective length factors"),
              {{texts::translated("Member"), Align::left},
               {texts::translated("Elements"), Align::left},
               {in_unit(texts::translated("Length"), scale.length_unit)},
               {"Ky"},
               {texts::translated("Ky from"), Align::left},
               {"Kz"},
               {texts::translated("Kz from"), Align::left}},
              [&](TableRows& rows) {
                for (const members::SegmentFactors& of : content.input.length_factors) {
                  rows.add(member_cells(model, of, scale));
                }
              });
}

}  // namespace aluframe::document

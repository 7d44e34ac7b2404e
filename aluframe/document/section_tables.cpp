#include <fmt/format.h>

#include "aluframe/document/figure.h"
#include "aluframe/document/names.h"
#include "aluframe/document/structure_tables.h"
#include "aluframe/document/table.h"
#include "aluframe/section/section_properties.h"
#include "aluframe/section/sketch.h"
#include "aluframe/tables/structure_texts.h"
#include "aluframe/texts/text.h"

namespace aluframe::document {

namespace {

/// "area, iyy": what the model gives in place of what follows from the dimensions.
std::string given_text(const model::GivenProperties& given) {
  std::string text;
  const auto add = [&text](const char* name, bool is_given) {
    if (is_given) text += (text.empty() ? "" : ", ") + std::string(name);
  };
  add("A", given.area.has_value());
  add("It", given.it.has_value());
  add("Iyy", given.iyy.has_value());
  add("Izz", given.izz.has_value());
  add("Qyb", given.qyb.has_value());
  add("Qzb", given.qzb.has_value());
  add("Iw", given.iw.has_value());
  return text;
}

std::string large_value(double value) {
  return fmt::format("{:.5g}", value);
}

void write_list(HtmlWriter& html, const model::Model& model) {
  write_table(html, texts::translated("Sections, dimensions in mm"),
              {{texts::translated("Section")},
               {texts::translated("Name"), Align::left},
               {texts::translated("Shape"), Align::left},
               {texts::translated("Dimensions"), Align::left},
               {texts::translated("Welded"), Align::left},
               {texts::translated("Given properties"), Align::left}},
              [&](TableRows& rows) {
                for (const model::Section& section : model.sections) {
                  rows.add({{fmt::format("{}", section.number)},
                            {section.name},
                            {shape_label(section.shape)},
                            {tables::dimensions_text(section, model::LengthUnit::millimetre)},
                            {yes_or_no(section.welded)},
                            {given_text(section.given)}});
                }
              });
}

void write_properties(HtmlWriter& html, const model::Model& model) {
  write_table(html, texts::translated("Properties of the sections"),
              {{texts::translated("Section")},
               {in_unit("A", "mm²")},
               {in_unit("Iyy", "mm⁴")},
               {in_unit("Izz", "mm⁴")},
               {in_unit("It", "mm⁴")},
               {in_unit("Iw", "mm⁶")},
               {in_unit("Qy/b", "mm²")},
               {in_unit("Qz/b", "mm²")},
               {in_unit("zs", "mm")}},
              [&](TableRows& rows) {
                for (const model::Section& section : model.sections) {
                  const model::SectionProperties p = section::properties_of(section);
                  rows.add({{fmt::format("{}", section.number)},
                            {large_value(p.area)},
                            {large_value(p.iyy)},
                            {large_value(p.izz)},
                            {large_value(p.it)},
                            {large_value(p.iw)},
                            {large_value(p.qyb)},
                            {large_value(p.qzb)},
                            {fixed(p.shear_centre_z, 2)}});
                }
              });
}

}  // namespace

void write_sections(HtmlWriter& html, const run::DocumentContent& content) {
  const model::Model& model = content.input.model;
  write_list(html, model);
  write_properties(html, model);
  html.element("div", {{"class", "sketches"}}, [&] {
    for (const model::Section& section : model.sections) {
      if (section.shape == model::Shape::other) continue;
      model::Section labelled = section;
      labelled.name = texts::translated("Section {}", with_name(section.number, section.name));
      write_figure(html, "sketch", section::sketch_of(labelled), labelled.name);
    }
  });
}

}  // namespace aluframe::document

#include "aluframe/catalogue/alloys.h"
#include "aluframe/io/format_names.h"
#include "aluframe/io/json_writer.h"
#include "aluframe/io/model_lines.h"
#include "aluframe/io/named_values.h"

namespace aluframe::io {

namespace {

/// Whether naming the alloy says all there is to say about the material.
bool is_alloy_of_table(const model::Material& material) {
  const catalogue::Alloy* alloy = catalogue::find_alloy(material.grade);
  if (alloy == nullptr) return false;
  model::Material expected = catalogue::material_of(*alloy);
  expected.number = material.number;
  expected.name = material.name;
  return material == expected;
}

std::string dimensions_of(const model::Section& section, double scale) {
  JsonLine line;
  const auto names = model::dimension_names(section.shape);
  for (std::size_t i = 0; i < names.size(); ++i) {
    const bool required = i < model::required_dimensions(section.shape);
    const double value = section.dimensions[i];
    if (required || value != model::default_dimension(section.shape, i, section.dimensions)) {
      line.number(names[i], value, scale);
    }
  }
  return line.str();
}

std::string points_text(const std::array<double, 4>& points, double scale) {
  std::array<std::string, 4> texts;
  for (std::size_t i = 0; i < points.size(); ++i) texts[i] = number_text(points[i], scale);
  return json_list(texts);
}

JsonLine properties_of(const model::GivenProperties& given, const Scales& scales) {
  JsonLine line;
  const auto write = [&](std::string_view field, const std::optional<double>& value, double scale) {
    if (value) line.number(field, *value, scale);
  };
  write("area", given.area, scales.section_2);
  write("it", given.it, scales.section_4);
  write("iyy", given.iyy, scales.section_4);
  write("izz", given.izz, scales.section_4);
  write("qyb", given.qyb, scales.section_2);
  write("qzb", given.qzb, scales.section_2);
  write("iw", given.iw, scales.section_6);
  write("shear_centre_z", given.shear_centre_z, scales.section);
  if (given.point_y) line.json("point_y", points_text(*given.point_y, scales.section));
  if (given.point_z) line.json("point_z", points_text(*given.point_z, scales.section));
  return line;
}

}  // namespace

std::string project_line(const model::Project& project) {
  JsonLine line;
  for (const auto& [name, text] : model::project_fields) line.text_unless(name, project.*text, "");
  return line.str();
}

std::string units_line(const model::Units& units) {
  return JsonLine()
      .text("force", model::name_of(units.force))
      .text("length", model::name_of(units.length))
      .text("section", model::name_of(units.section))
      .str();
}

std::string settings_line(const model::DesignSettings& settings) {
  const model::DesignSettings standard;
  return JsonLine()
      .text("code", shown_code_name)
      .flag_unless("rib", settings.rib, standard.rib)
      .number_unless("rib_ratio", settings.rib_ratio, standard.rib_ratio)
      .number_unless("safety_class", settings.safety_class, standard.safety_class)
      .number_unless("strength_ratio", settings.strength_ratio, standard.strength_ratio)
      .flag_unless("seismic", settings.seismic, standard.seismic)
      .number_unless("gamma_re_strength", settings.gamma_re_strength, standard.gamma_re_strength)
      .number_unless("gamma_re_stability", settings.gamma_re_stability, standard.gamma_re_stability)
      .str();
}

std::string whole_settings_line(const model::DesignSettings& settings) {
  return JsonLine()
      .text("code", shown_code_name)
      .flag("rib", settings.rib)
      .number("rib_ratio", settings.rib_ratio)
      .number("safety_class", settings.safety_class)
      .number("strength_ratio", settings.strength_ratio)
      .flag("seismic", settings.seismic)
      .number("gamma_re_strength", settings.gamma_re_strength)
      .number("gamma_re_stability", settings.gamma_re_stability)
      .str();
}

std::string frame_line(const model::FrameSettings& frame) {
  const model::FrameSettings standard;
  JsonLine line;
  line.flag("braced_a", frame.braced_a)
      .flag("braced_b", frame.braced_b)
      .text_unless("length_factors", name_in(length_factor_sources, frame.length_factors),
                   name_in(length_factor_sources, standard.length_factors));
  if (frame.buckling_limit) line.number("buckling_limit", *frame.buckling_limit);
  return line.str();
}

std::string analysis_line(const model::AnalysisSettings& analysis, const Scales& scales) {
  const model::Imperfections& given = analysis.imperfections;
  JsonLine sway, bow, imperfections;
  sway.number_unless("x", given.sway_x, 0.0).number_unless("y", given.sway_y, 0.0);
  bow.number_unless("y", given.bow_y, 0.0).number_unless("z", given.bow_z, 0.0);
  if (!sway.empty()) imperfections.json("sway", sway.str());
  if (!bow.empty()) imperfections.json("bow", bow.str());
  if (given.mode != 0.0) {
    imperfections.json("mode", JsonLine().number("amplitude", given.mode, scales.length).str());
  }
  JsonLine line;
  if (analysis.large_displacements) {
    line.text("second_order", "large");
  } else {
    line.flag("second_order", analysis.second_order);
  }
  if (!imperfections.empty()) line.json("imperfections", imperfections.str());
  return line.str();
}

std::string material_line(const model::Material& material) {
  JsonLine line = begin_entity(material.number, material.name);
  if (is_alloy_of_table(material)) return line.text("alloy", material.grade).str();
  const model::Material standard;
  return line.text("grade", material.grade)
      .text_unless("standard", material.standard, user_standard)
      .number("f02_thin", material.f02_thin)
      .number_unless("f02_thick", material.f02_thick, material.f02_thin)
      .number("fu", material.fu)
      .number_unless("e", material.e, standard.e)
      .number_unless("poisson", material.poisson, standard.poisson)
      .number_unless("density", material.density, standard.density)
      .number_unless("thermal_expansion", material.thermal_expansion, standard.thermal_expansion)
      .str();
}

std::string section_line(const model::Section& section, const Scales& scales) {
  JsonLine line = begin_entity(section.number, section.name);
  line.text("shape", model::name_of(section.shape));
  if (section.shape != model::Shape::other) {
    line.json("dimensions", dimensions_of(section, scales.section));
  }
  line.flag_unless("welded", section.welded, false);
  const JsonLine properties = properties_of(section.given, scales);
  if (!properties.empty()) line.json("properties", properties.str());
  return line.str();
}

}  // namespace aluframe::io

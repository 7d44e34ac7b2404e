#include "section_cases.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "aluframe/catalogue/designation.h"
#include "aluframe/model/units.h"
#include "aluframe/section/mesh_properties.h"
#include "aluframe/section/section_properties.h"

namespace aluframe::section::verification {

namespace {

using Json = nlohmann::json;

model::Section read_profile(const std::string& name) {
  const auto named = catalogue::section_named(name);
  if (const auto* text = std::get_if<std::string>(&named)) throw std::runtime_error(*text);
  return std::get<model::Section>(named);
}

model::Section read_section(const Json& json) {
  if (json.contains("profile")) return read_profile(json.at("profile"));
  const auto shape = model::parse_shape(json.at("shape").get<std::string>());
  if (!shape) throw std::runtime_error("unknown shape");
  model::Section section;
  section.shape = *shape;
  const Json& dimensions = json.at("dimensions");
  const auto names = model::dimension_names(*shape);
  for (std::size_t i = 0; i < names.size(); ++i) {
    const std::string name(names[i]);
    section.dimensions[i] = dimensions.contains(name) || i < model::required_dimensions(*shape)
                                ? dimensions.at(name).get<double>()
                                : model::default_dimension(*shape, i, section.dimensions);
  }
  if (const auto problem = find_dimension_problem(section)) throw std::runtime_error(problem->text);
  return section;
}

Expected read_expected(const Json& json) {
  Expected expected{json.at("what"),          json.at("by"),
                    json.at("value"),         json.at("tolerance"),
                    json.value("datum", 0.0), json.value("cells_across", 4)};
  if (expected.by != "formula" && expected.by != "mesh") {
    throw std::runtime_error("unknown way " + expected.by);
  }
  return expected;
}

/// The constants that both ways give, the shear centre from the centroid.
struct Constants {
  double area, iyy, izz, it, iw, shear_centre_y, shear_centre_z;
};

Constants constants_of(const model::Section& section, const Expected& expected) {
  if (expected.by == "mesh") {
    const MeshProperties m = properties_of(mesh_of(section, expected.cells_across));
    return {m.area, m.iyy, m.izz, m.it, m.iw, m.shear_centre_y, m.shear_centre_z};
  }
  const model::SectionProperties p = properties_of(section);
  return {p.area, p.iyy, p.izz, p.it, p.iw, p.shear_centre_y, p.shear_centre_z};
}

}  // namespace

Case read_case(const std::filesystem::path& file) {
  std::ifstream stream(file);
  const Json json = Json::parse(stream);
  Case result;
  result.name = file.stem().string();
  result.title = json.at("title");
  result.source = json.at("source");
  result.units = json.at("units");
  result.reason = json.at("tolerance").at("reason");
  result.millimetres = model::millimetres_per(model::parse_length_unit(result.units).value());
  result.section = read_section(json.at("section"));
  for (const Json& expected : json.at("expected")) {
    result.expected.push_back(read_expected(expected));
  }
  return result;
}

std::vector<Case> read_cases(const std::filesystem::path& folder) {
  std::vector<Case> cases;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() == ".json") cases.push_back(read_case(entry.path()));
  }
  std::ranges::sort(cases, {}, &Case::name);
  return cases;
}

double found_value(const Case& one, const Expected& expected) {
  const Constants c = constants_of(one.section, expected);
  const model::SectionProperties edges = properties_of(one.section);
  const double unit = one.millimetres;
  const std::string& what = expected.what;
  if (what == "area") return c.area / std::pow(unit, 2);
  if (what == "iyy") return c.iyy / std::pow(unit, 4);
  if (what == "izz") return c.izz / std::pow(unit, 4);
  if (what == "it") return c.it / std::pow(unit, 4);
  if (what == "iw") return c.iw / std::pow(unit, 6);
  if (what == "edge_left") return -edges.point_y[0] / unit;
  // Distances from a line inside the section: to the left of it, and below it.
  if (what == "shear_centre_beyond_left") {
    return (edges.point_y[0] - c.shear_centre_y) / unit + expected.datum;
  }
  if (what == "shear_centre_below_top") {
    return (edges.point_z[0] - c.shear_centre_z) / unit - expected.datum;
  }
  throw std::runtime_error("unknown constant " + what);
}

}  // namespace aluframe::section::verification

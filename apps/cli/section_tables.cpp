#include "apps/cli/section_tables.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <optional>
#include <span>

#include "aluframe/elementary/functions.h"
#include "aluframe/section/second_computation.h"
#include "aluframe/section/section_properties.h"
#include "aluframe/section/text_sketch.h"
#include "aluframe/texts/text.h"

namespace aluframe::cli {

namespace {

using catalogue::Profile;
using model::Section;
using model::SectionProperties;

/// A constant with what the mesh gives for it.
struct Value {
  const char* key;
  const char* symbol;
  const char* what;
  const char* unit;
  double value;
  std::optional<double> mesh;
  std::optional<double> difference = std::nullopt;  ///< of the formula from the mesh, per cent
};

double extent(const std::array<double, 4>& points, bool largest) {
  const auto [low, high] = std::ranges::minmax(points);
  return largest ? high : low;
}

double share(double formula, double mesh, double of) {
  return (formula - mesh) / of * 100.0;
}

std::vector<Value> values_of(const SectionProperties& p) {
  return {
      {"area", "A", texts::translatable("area"), "mm2", p.area, {}},
      {"mass", "m", texts::translatable("mass per metre"), "kg/m", p.area * mass_per_area, {}},
      {"iyy", "Iyy", texts::translatable("second moment about y"), "mm4", p.iyy, {}},
      {"izz", "Izz", texts::translatable("second moment about z"), "mm4", p.izz, {}},
      {"radius_y",
       "iy",
       texts::translatable("radius of gyration"),
       "mm",
       std::sqrt(p.iyy / p.area),
       {}},
      {"radius_z",
       "iz",
       texts::translatable("radius of gyration"),
       "mm",
       std::sqrt(p.izz / p.area),
       {}},
      {"edge_top",
       "",
       texts::translatable("centroid to top edge"),
       "mm",
       extent(p.point_z, true),
       {}},
      {"edge_bottom",
       "",
       texts::translatable("centroid to bottom edge"),
       "mm",
       -extent(p.point_z, false),
       {}},
      {"edge_left",
       "",
       texts::translatable("centroid to left edge"),
       "mm",
       -extent(p.point_y, false),
       {}},
      {"edge_right",
       "",
       texts::translatable("centroid to right edge"),
       "mm",
       extent(p.point_y, true),
       {}},
      {"qyb", "Qyb", texts::translatable("Q/b for shear along z"), "mm2", p.qyb, {}},
      {"qzb", "Qzb", texts::translatable("Q/b for shear along y"), "mm2", p.qzb, {}},
  };
}

std::vector<Value> twist_of(const ShownSection& shown, const SectionProperties& p) {
  const double iw = section::warps(shown.section.shape) ? p.iw : 0.0;
  std::vector<Value> out{{"it", "It", texts::translatable("torsion constant"), "mm4", p.it, {}},
                         {"iw", "Iw", texts::translatable("warping constant"), "mm6", iw, {}},
                         {"shear_centre_y",
                          "ey",
                          texts::translatable("shear centre, to the right"),
                          "mm",
                          p.shear_centre_y,
                          {}},
                         {"shear_centre_z",
                          "ez",
                          texts::translatable("shear centre, upwards"),
                          "mm",
                          p.shear_centre_z,
                          {}}};
  const auto mesh = section::compute_on_mesh(shown.section, shown.across);
  if (!mesh) return out;
  const std::array on_mesh{mesh->it, mesh->iw, mesh->shear_centre_y, mesh->shear_centre_z};
  // A shear centre at the centroid has no per cent of its own.
  const double size = std::max(extent(p.point_z, true) - extent(p.point_z, false),
                               extent(p.point_y, true) - extent(p.point_y, false));
  const std::array of{mesh->it, iw != 0.0 ? mesh->iw : 0.0, size, size};
  for (std::size_t i = 0; i < out.size(); ++i) {
    out[i].mesh = on_mesh[i];
    if (of[i] != 0.0) out[i].difference = share(out[i].value, on_mesh[i], of[i]);
  }
  return out;
}

/// Five digits, the exponent a multiple of 3: "89.493e6". What rounding leaves of 0 is 0.
std::string engineering(double value) {
  if (std::abs(value) < 1e-6) return "0";
  if (std::abs(value) < 1e5) return fmt::format("{:.5g}", value);
  if (std::abs(value) < 1e6) return fmt::format("{:.0f}", value);
  const int exponent = elementary::exponent_of_ten(std::abs(value)) / 3 * 3;
  return fmt::format("{:.5g}e{}", value / elementary::power_of_ten(exponent), exponent);
}

std::string per_cent(double value) {
  return fmt::format("{:.2f}", std::abs(value) < 0.005 ? 0.0 : value);
}

const Profile* profile_of(const ShownSection& shown) {
  const auto mine = std::ranges::find(shown.own, shown.section.name, &Profile::name);
  return mine != shown.own.end() ? &*mine : catalogue::find_profile(shown.section.name);
}

constexpr const char* source_is_name = texts::translatable("dimensions in mm, from the name");

/// For programs: in English.
std::string source_of(const ShownSection& shown) {
  const Profile* profile = profile_of(shown);
  return profile != nullptr ? profile->source : source_is_name;
}

/// A catalogue's own words stay as they are.
std::string shown_source_of(const ShownSection& shown) {
  const Profile* profile = profile_of(shown);
  return profile != nullptr ? profile->source : std::string(texts::translation_of(source_is_name));
}

std::string indented(const std::string& lines) {
  std::string out = "    ";
  for (std::size_t i = 0; i < lines.size(); ++i) {
    out += lines[i];
    if (lines[i] == '\n' && i + 1 < lines.size()) out += "    ";
  }
  return out;
}

std::string values_text(std::span<const Value> values) {
  tables::OutputTable table;
  table.columns = {{"what", texts::translatable("constant")},
                   {"symbol", texts::translatable("symbol")},
                   {"value", texts::translatable("value")},
                   {"unit", texts::translatable("unit")}};
  for (const Value& v : values) {
    table.rows.push_back(
        {tables::Phrase{v.what}, std::string(v.symbol), engineering(v.value), v.unit});
  }
  return tables::to_text(table, false);
}

std::string twist_text(std::span<const Value> values) {
  tables::OutputTable table;
  table.columns = {{"what", texts::translatable("torsion and warping")},
                   {"symbol", texts::translatable("symbol")},
                   {"value", texts::translatable("formula")},
                   {"mesh", texts::translatable("mesh")},
                   {"unit", texts::translatable("unit")},
                   {"difference", texts::translatable("differ by %")}};
  for (const Value& v : values) {
    table.rows.push_back({tables::Phrase{v.what}, std::string(v.symbol), engineering(v.value),
                          v.mesh ? tables::Cell(engineering(*v.mesh)) : tables::Cell(), v.unit,
                          v.difference ? tables::Cell(per_cent(*v.difference)) : tables::Cell()});
  }
  return tables::to_text(table, false);
}

bool has_radii(const Section& section) {
  const bool may_have =
      section.shape == model::Shape::channel || section.shape == model::Shape::h_section;
  return may_have && (section.dimensions[6] > 0.0 || section.dimensions[7] > 0.0);
}

std::string notes_on(const Section& section, bool on_mesh) {
  std::string notes = texts::translated(
      "  mass with a density of {:g} kg/m3; y to the right, z up; Q/b: the largest first moment "
      "over\n"
      "  its width, V*(Q/b)/I is the shear stress\n"
      "  shear centre from the centroid, its difference in per cent of the larger side\n"
      "  formula: thin walls on their middle lines; mesh: finite elements, sharp corners\n",
      aluminium_density);
  if (has_radii(section))
    notes +=
        texts::translated("  corner radii r1, r2 count in A, Iyy, Izz and Qyb, not in the rest\n");
  if (!on_mesh) notes += texts::translated("  the walls are too thin for the mesh\n");
  if (!section::warps(section.shape)) {
    notes += texts::translated("  Iw is 0 by theory; the checks take 1e-9*Izz*H^2\n");
  }
  if (section.shape == model::Shape::double_channel) {
    notes +=
        texts::translated("  the two channels twist each for itself about their common axis\n");
  }
  return notes;
}

std::string as_text(const ShownSection& shown, std::span<const Value> values,
                    std::span<const Value> twist) {
  const Section& section = shown.section;
  return texts::translated(
      "{}\n  {} mm\n  {}\n\n{}    # material  + centroid  o shear centre  * both\n\n"
      "{}\n{}\n{}",
      section.name, dimensions_text(section), shown_source_of(shown),
      indented(section::text_sketch_of(section)), values_text(values), twist_text(twist),
      notes_on(section, twist.front().mesh.has_value()));
}

std::string as_json(const ShownSection& shown, std::span<const Value> values,
                    std::span<const Value> twist) {
  const Section& section = shown.section;
  nlohmann::ordered_json out = {{"name", section.name},
                                {"shape", model::name_of(section.shape)},
                                {"source", source_of(shown)},
                                {"density", aluminium_density}};
  const auto names = model::dimension_names(section.shape);
  for (std::size_t i = 0; i < names.size(); ++i) {
    out["dimensions"][std::string(names[i])] = section.dimensions[i];
  }
  for (const Value& v : values) out["formula"][v.key] = v.value;
  for (const Value& v : twist) out["formula"][v.key] = v.value;
  out["mesh"]["cells_across"] = shown.across;
  for (const Value& v : twist) {
    out["mesh"][v.key] = v.mesh ? nlohmann::ordered_json(*v.mesh) : nullptr;
  }
  return out.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

std::string as_csv(std::span<const Value> values, std::span<const Value> twist) {
  tables::OutputTable table;
  table.columns = {{"constant", ""}, {"unit", ""}, {"formula", ""}, {"mesh", ""}};
  for (const auto part : {values, twist}) {
    for (const Value& v : part) {
      table.rows.push_back({std::string(v.key), std::string(v.unit), v.value,
                            v.mesh ? tables::Cell(*v.mesh) : tables::Cell()});
    }
  }
  return tables::to_csv(table);
}

}  // namespace

std::string dimensions_text(const Section& section) {
  std::string text;
  const auto names = model::dimension_names(section.shape);
  for (std::size_t i = 0; i < names.size(); ++i) {
    text += fmt::format("{}{} {:.6g}", i == 0 ? "" : "  ", names[i], section.dimensions[i]);
  }
  return text;
}

std::string section_text(const ShownSection& shown, tables::Format format) {
  const SectionProperties properties = section::properties_of(shown.section);
  const std::vector<Value> values = values_of(properties);
  const std::vector<Value> twist = twist_of(shown, properties);
  if (format == tables::Format::json) return as_json(shown, values, twist);
  if (format == tables::Format::csv) return as_csv(values, twist);
  return as_text(shown, values, twist);
}

}  // namespace aluframe::cli

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <utility>

#include "aluframe/io/model_reader.h"
#include "aluframe/io/named_section.h"
#include "aluframe/section/section_properties.h"
#include "aluframe/texts/text.h"

namespace aluframe::io {

namespace {

using model::Shape;

constexpr auto section_fields = std::to_array<std::string_view>(
    {"number", "name", "profile", "shape", "dimensions", "welded", "properties"});
constexpr auto property_fields = std::to_array<std::string_view>(
    {"area", "it", "iyy", "izz", "qyb", "qzb", "iw", "shear_centre_z", "point_y", "point_z"});
/// Without these a section that is given by its properties alone has no stresses.
constexpr auto needed_properties =
    std::to_array<std::string_view>({"area", "iyy", "izz", "point_y", "point_z"});

Shape read_shape(const JsonValue& value) {
  const std::optional<Shape> shape = model::parse_shape(value.string());
  if (!shape) value.fail_with(texts::translated("must be one of {}", model::shape_names()));
  return *shape;
}

/// Radii and the gap between two channels may be 0; all that make up the shape are positive.
bool may_be_zero(std::string_view dimension, Shape shape) {
  return dimension.starts_with('r') || (dimension == "C" && shape == Shape::double_channel);
}

std::array<double, 8> read_dimensions(const JsonObject& object, Shape shape, double scale) {
  const std::span<const std::string_view> names = model::dimension_names(shape);
  std::array<double, 8> dimensions{};
  for (std::size_t i = 0; i < names.size(); ++i) {
    object.part([&] {
      const bool required = i < model::required_dimensions(shape);
      const std::optional<JsonValue> value =
          required ? object.required(names[i]) : object.optional(names[i]);
      if (!value) {
        dimensions[i] = model::default_dimension(shape, i, dimensions);
      } else {
        dimensions[i] =
            scale * (may_be_zero(names[i], shape) ? value->not_negative() : value->positive());
      }
    });
  }
  return dimensions;
}

/// What sections of allowed dimensions have is a property of so many lengths.
enum class Power { area = 2, second_moment = 4, warping = 6 };

double power_of(double length, int exponent) {
  double power = 1.0;
  for (int i = 0; i < exponent; ++i) power *= length;
  return power;
}

/// Checks the size of a property, in the file's units: `scale` mm in a unit of it.
void require_size(const JsonValue& value, double least, double most, double scale) {
  const double number = value.number();
  if (number >= least / scale && number <= most / scale) return;
  value.fail_with(texts::translated("must be between {:g} and {:g}", least / scale, most / scale));
}

double positive_property(const JsonValue& value, Power power, double scale) {
  const int lengths = static_cast<int>(power);
  static_cast<void>(value.positive());
  require_size(value, power_of(section::smallest_dimension, lengths),
               power_of(section::largest_dimension, lengths), scale);
  return scale * value.number();
}

double property_or_zero(const JsonValue& value, Power power, double scale) {
  static_cast<void>(value.not_negative());
  require_size(value, 0.0, power_of(section::largest_dimension, static_cast<int>(power)), scale);
  return scale * value.number();
}

/// A place along y or z.
double read_place(const JsonValue& value, double scale) {
  require_size(value, -section::largest_dimension, section::largest_dimension, scale);
  return value.number();
}

std::array<double, 4> read_points(const JsonValue& value, double scale) {
  if (const std::size_t count = value.list().size(); count != 4) {
    value.fail(texts::translated("found {} numbers, must be 4, one for each stress point", count));
  }
  std::array<double, 4> points{};
  std::size_t i = 0;
  for (const JsonValue point : value.list()) points[i++] = scale * read_place(point, scale);
  return points;
}

/// Points that all lie on the z axis would leave the weak axis without a modulus.
std::array<double, 4> read_point_y(const JsonValue& value, double scale) {
  const std::array<double, 4> y = read_points(value, scale);
  const auto is_zero = [](double at) { return at == 0.0; };
  if (std::ranges::all_of(y, is_zero))
    value.fail(texts::translated("found 0 four times, one must differ from 0"));
  const auto is_near = [](double at) { return std::abs(at) < section::smallest_dimension; };
  if (std::ranges::all_of(y, is_near)) {
    value.fail(texts::translated("found four numbers near 0, one must be at least {:g} from it",
                                 section::smallest_dimension / scale));
  }
  return y;
}

/// Top and bottom fibre lie on either side of the centroid.
std::array<double, 4> read_point_z(const JsonValue& value, double scale) {
  const std::array<double, 4> z = read_points(value, scale);
  std::size_t i = 0;
  for (const JsonValue point : value.list()) {
    const bool is_top = i < 2;
    if (is_top && !(z[i] > 0.0))
      point.fail_with(texts::translated("must be positive: the top lies above the centroid"));
    if (!is_top && !(z[i] < 0.0)) {
      point.fail_with(texts::translated("must be negative: the bottom lies below the centroid"));
    }
    if (std::abs(z[i]) < section::smallest_dimension) {
      point.fail_with(texts::translated("must be at least {:g} from the centroid",
                                        section::smallest_dimension / scale));
    }
    ++i;
  }
  return z;
}

model::GivenProperties read_properties(const JsonValue& value, const Scales& scales) {
  const JsonObject object(value, property_fields);
  model::GivenProperties given;
  const auto read = [&](std::string_view field, Power power, double scale, auto access) {
    const std::optional<JsonValue> found = object.optional(field);
    std::optional<double> property;
    object.part([&] {
      if (found) property = access(*found, power, scale);
    });
    return property;
  };
  given.area = read("area", Power::area, scales.section_2, positive_property);
  given.iyy = read("iyy", Power::second_moment, scales.section_4, positive_property);
  given.izz = read("izz", Power::second_moment, scales.section_4, positive_property);
  given.it = read("it", Power::second_moment, scales.section_4, property_or_zero);
  given.qyb = read("qyb", Power::area, scales.section_2, property_or_zero);
  given.qzb = read("qzb", Power::area, scales.section_2, property_or_zero);
  given.iw = read("iw", Power::warping, scales.section_6, property_or_zero);
  object.part([&] {
    if (const auto centre = object.optional("shear_centre_z"))
      given.shear_centre_z = scales.section * read_place(*centre, scales.section);
  });
  object.part([&] {
    if (const auto points = object.optional("point_y"))
      given.point_y = read_point_y(*points, scales.section);
  });
  object.part([&] {
    if (const auto points = object.optional("point_z"))
      given.point_z = read_point_z(*points, scales.section);
  });
  return given;
}

void require_needed_properties(const JsonObject& section) {
  const JsonObject properties(section.required("properties"), property_fields);
  for (const std::string_view field : needed_properties) {
    static_cast<void>(properties.required(field));
  }
}

/// Fails at the dimension that keeps the shape from being built, or at `dimensions` when that one
/// has its default value.
void require_buildable(const JsonObject& dimensions, const model::Section& section) {
  const auto problem = section::find_dimension_problem(section);
  if (!problem) return;
  const std::string_view name = model::dimension_names(section.shape)[problem->dimension];
  dimensions.optional(name).value_or(dimensions.value()).fail(problem->text);
}

/// Shape and dimensions of a profile, whose name is also the section's unless it has one.
model::Section read_profile(const JsonObject& object, const JsonValue& profile,
                            const std::vector<catalogue::Profile>& own) {
  for (const char* field : {"shape", "dimensions"}) {
    if (const auto value = object.optional(field))
      value->fail(texts::translated("the profile has its own"));
  }
  auto named = named_section(profile.string(), own);
  if (auto* text = std::get_if<std::string>(&named)) {
    if (any_lost(profile, &own)) throw FollowsFromFault{};  // it may be one of a lost catalogue
    profile.fail(std::move(*text));
  }
  return std::get<model::Section>(std::move(named));
}

/// A section by its shape and dimensions.
model::Section read_shape_and_dimensions(const JsonObject& object, const Scales& scales) {
  model::Section section;
  const auto shape = object.optional("shape");
  if (!shape) object.value().fail(texts::translated("missing field \"shape\" or \"profile\""));
  section.shape = read_shape(*shape);
  if (section.shape == Shape::other) require_needed_properties(object);
  const std::optional<JsonValue> value =
      section.shape == Shape::other ? object.optional("dimensions") : object.required("dimensions");
  if (value) {
    const JsonObject dimensions(*value, model::dimension_names(section.shape));
    section.dimensions = read_dimensions(dimensions, section.shape, scales.section);
    if (section.shape != Shape::other && dimensions.is_sound()) {
      require_buildable(dimensions, section);
    }
  }
  return section;
}

model::Section read_section(const JsonObject& object, const Scales& scales,
                            const std::vector<catalogue::Profile>& own) {
  const auto profile = object.optional("profile");
  model::Section section;
  object.part([&] {
    section =
        profile ? read_profile(object, *profile, own) : read_shape_and_dimensions(object, scales);
  });
  object.part([&] { section.number = object.required("number").entity_number(); });
  object.part([&] { section.name = object.plain_text_or("name", section.name); });
  object.part([&] { section.welded = object.boolean_or("welded", false); });
  object.part([&] {
    if (const auto properties = object.optional("properties"))
      section.given = read_properties(*properties, scales);
  });
  return section;
}

}  // namespace

void read_sections(const JsonObject& root, const Scales& scales,
                   const std::vector<catalogue::Profile>& own, model::Model& model) {
  read_entities(root.required("sections"), &model.sections, [&](const JsonValue& value) {
    const JsonObject object(value, section_fields);
    add_entity(object, model.sections, read_section(object, scales, own), "sections");
  });
}

}  // namespace aluframe::io

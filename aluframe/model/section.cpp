#include "aluframe/model/section.h"

namespace aluframe::model {

namespace {

struct ShapeRow {
  Shape shape;
  std::string_view name;
  std::size_t required;
  std::size_t count;
  std::array<std::string_view, 8> dimensions;
};

constexpr std::array shapes{
    ShapeRow{Shape::channel, "C", 4, 8, {"H", "B1", "tw", "tf1", "B2", "tf2", "r1", "r2"}},
    ShapeRow{Shape::h_section, "H", 4, 8, {"H", "B1", "tw", "tf1", "B2", "tf2", "r1", "r2"}},
    ShapeRow{Shape::tee, "T", 4, 4, {"H", "B", "tw", "tf"}},
    ShapeRow{Shape::box, "B", 4, 6, {"H", "B", "tw", "tf1", "C", "tf2"}},
    ShapeRow{Shape::pipe, "P", 2, 2, {"D", "t"}},
    ShapeRow{Shape::double_channel, "2C", 4, 5, {"H", "B", "tw", "tf", "C"}},
    ShapeRow{Shape::solid_round, "SR", 1, 1, {"D"}},
    ShapeRow{Shape::other, "UP", 0, 0, {}},
};

/// Rows stand in the order of the enumeration.
const ShapeRow& row_of(Shape shape) {
  return shapes[static_cast<std::size_t>(shape)];
}

}  // namespace

std::string_view name_of(Shape shape) {
  return row_of(shape).name;
}

std::optional<Shape> parse_shape(std::string_view name) {
  for (const ShapeRow& row : shapes) {
    if (row.name == name) return row.shape;
  }
  return std::nullopt;
}

std::string_view shape_names() {
  return "C, H, T, B, P, 2C, SR, UP";
}

std::span<const std::string_view> dimension_names(Shape shape) {
  const ShapeRow& row = row_of(shape);
  return std::span(row.dimensions).first(row.count);
}

double default_dimension(Shape shape, std::size_t dimension,
                         const std::array<double, 8>& dimensions) {
  const auto names = dimension_names(shape);
  const auto value_of = [&](std::string_view name) {
    for (std::size_t i = 0; i < names.size(); ++i) {
      if (names[i] == name) return dimensions[i];
    }
    return 0.0;
  };
  const std::string_view name = names[dimension];
  if (name == "B2") return value_of("B1");
  if (name == "tf2") return value_of("tf1");
  if (name == "C" && shape == Shape::box) return value_of("B") - value_of("tw");
  return 0.0;
}

std::size_t required_dimensions(Shape shape) {
  return row_of(shape).required;
}

}  // namespace aluframe::model

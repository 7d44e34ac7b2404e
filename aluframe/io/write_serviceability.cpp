#include "aluframe/io/json_writer.h"
#include "aluframe/io/model_lines.h"
#include "aluframe/io/named_values.h"

namespace aluframe::io {

std::string deflection_limit_line(const model::DeflectionLimit& limit, const Scales& scales) {
  JsonLine line;
  if (limit.span) line.number("span", *limit.span);
  if (limit.absolute) line.number("absolute", *limit.absolute, scales.length);
  return line.str();
}

std::string drift_limit_line(const model::DriftLimit& limit) {
  return JsonLine()
      .text_unless("name", limit.name, "")
      .number("lower", limit.lower)
      .number("upper", limit.upper)
      .number("height", limit.height)
      .str();
}

std::string displacement_limit_line(const model::DisplacementLimit& limit, const Scales& scales) {
  return JsonLine()
      .json("nodes", numbers_text(limit.nodes))
      .text_unless("direction", name_in(displacement_directions, limit.direction), "total")
      .number("absolute", limit.absolute, scales.length)
      .str();
}

}  // namespace aluframe::io

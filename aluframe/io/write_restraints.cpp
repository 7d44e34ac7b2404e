#include <string>
#include <vector>

#include "aluframe/io/json_writer.h"
#include "aluframe/io/model_lines.h"
#include "aluframe/io/named_values.h"

namespace aluframe::io {

std::string restraint_line(const model::Restraint& restraint, const Scales& scales) {
  JsonLine line = JsonLine().text("holds", name_in(held_names, restraint.held));
  if (restraint.spacing) return line.number("spacing", *restraint.spacing, scales.length).str();
  std::vector<std::string> places;
  for (const double place : restraint.at) places.push_back(number_text(place, scales.length));
  return line.json("at", json_list(places)).str();
}

}  // namespace aluframe::io

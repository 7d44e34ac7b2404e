#pragma once

#include <stdexcept>
#include <string>
#include <variant>

#include "aluframe/io/model_file.h"

namespace aluframe::services {

/// An L-shaped frame in kN and m: column 1 (nodes 1, 2), beams 2 and 3 (nodes 2, 3, 4), which form
/// member 7, a brace 4 (1, 3) and an axial-only tie 5 (1, 4).
inline constexpr const char* sample_text = R"json({
  "format": "aluframe-model", "version": 1, "title": "Sample",
  "settings": { "safety_class": 1, "rib": false, "rib_ratio": 1.1, "strength_ratio": 0.9,
                "seismic": true, "gamma_re_strength": 0.7, "gamma_re_stability": 0.82 },
  "frame": { "braced_a": true, "braced_b": false },
  "materials": [ { "number": 1, "alloy": "6063A-T5" } ],
  "sections": [
    { "number": 1, "shape": "H", "welded": true,
      "dimensions": { "H": 310, "B1": 200, "tw": 8, "tf1": 10 } },
    { "number": 2, "shape": "P", "dimensions": { "D": 100, "t": 5 },
      "properties": { "iw": 123, "shear_centre_z": 4 } },
    { "number": 3, "shape": "UP", "properties": { "area": 100, "iyy": 1e4, "izz": 1e4,
      "point_y": [-1, 1, 1, -1], "point_z": [1, 1, -1, -1] } } ],
  "nodes": [ { "number": 1, "x": 0, "y": 0, "z": 0 }, { "number": 2, "x": 0, "y": 0, "z": 3 },
             { "number": 3, "x": 2, "y": 0, "z": 3 }, { "number": 4, "x": 5, "y": 0, "z": 3 } ],
  "supports": [ { "node": 1, "restrained": ["Dx", "Dz", "Ry"] } ],
  "elements": [
    { "number": 1, "nodes": [1, 2], "section": 1, "material": 1,
      "design": { "stability_coefficients": { "y": 0.6, "z": 0.7 },
        "rib": { "stiffened": true, "ratio": 1.4 }, "weld_coefficient": 0.4, "haz_width": 20,
        "moment_factors": { "y": { "value": 0.85 }, "z": { "loading": 2 } },
        "length_factors": { "y": 0.5, "z": 2 },
        "slenderness_limits": { "checked": false, "compression": 120, "tension": 250 } } },
    { "number": 2, "nodes": [2, 3], "section": 1, "material": 1, "beta": 90,
      "releases": { "start": ["My"], "end": ["Mz"] } },
    { "number": 3, "nodes": [3, 4], "section": 2, "material": 1 },
    { "number": 4, "nodes": [1, 3], "section": 3, "material": 1 },
    { "number": 5, "nodes": [1, 4], "section": 2, "material": 1, "kind": "truss" } ],
  "members": [ { "number": 7, "elements": [2, 3], "length_factors": { "y": 0.8, "z": 0.9 } } ],
  "load_cases": [ { "number": 1 }, { "number": 2 }, { "number": 3, "kind": "seismic_static" } ],
  "combinations": [
    { "number": 1, "terms": [ { "case": 1, "factor": 2 } ] },
    { "number": 2, "terms": [ { "case": 1 }, { "case": 2, "factor": 3 } ] },
    { "number": 3, "kind": "envelope", "terms": [ { "combination": 1 }, { "combination": 2 } ] },
    { "number": 4, "terms": [ { "case": 3 } ], "design": false },
    { "number": 5, "terms": [ { "combination": 4 } ] } ],
  "forces": [
    { "element": 1, "case": 1, "values": [ [1, 2, 3, 4, 5, 6], [7, 8, 9, 10, 11, 12] ] },
    { "element": 1, "case": 2, "values": [ [-1, 0, 0, 0, 1, 0], [0, 0, 0, 0, 0, 0] ] } ]
})json";

inline model::Model parsed(const std::string& text) {
  auto read = io::parse_model(text, "sample.json");
  if (const auto* problem = std::get_if<io::Problem>(&read)) {
    throw std::runtime_error(problem->message());
  }
  return std::get<model::Model>(std::move(read));
}

inline model::Model sample_model() {
  return parsed(sample_text);
}

/// The sample with one part of its text replaced.
inline model::Model sample_with(const std::string& part, const std::string& replacement) {
  std::string text = sample_text;
  const std::size_t place = text.find(part);
  if (place == std::string::npos) throw std::logic_error("the sample has no " + part);
  return parsed(text.replace(place, part.size(), replacement));
}

}  // namespace aluframe::services

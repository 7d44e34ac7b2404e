#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <variant>

#include "aluframe/io/model_file.h"

namespace aluframe::io {

/// A small model with an entity of every kind, in N and mm; tests replace one piece of it.
inline constexpr std::string_view small_model = R"({
"format": "aluframe-model",
"version": 1,
"title": "Post",
"units": {"force": "N", "length": "mm", "section": "mm"},
"settings": {"safety_class": 2},
"frame": {"braced_a": true},
"materials": [{"number": 1, "alloy": "6063-T5"}],
"sections": [{"number": 1, "shape": "B", "dimensions": {"H": 150, "B": 60, "tw": 3, "tf1": 3}}],
"nodes": [{"number": 1, "x": 0, "y": 0, "z": 0}, {"number": 2, "x": 0, "y": 0, "z": 3000},
{"number": 3, "x": 0, "y": 0, "z": 6000}, {"number": 4, "x": 0, "y": 0, "z": 9000}],
"supports": [{"node": 1, "restrained": "all"}],
"elements": [{"number": 1, "nodes": [1, 2], "section": 1, "material": 1},
{"number": 2, "nodes": [2, 3], "section": 1, "material": 1},
{"number": 3, "nodes": [3, 4], "section": 1, "material": 1}],
"members": [{"number": 1, "elements": [1, 2]}],
"load_cases": [{"number": 1, "name": "DL"}, {"number": 2, "name": "WIND"}],
"combinations": [{"number": 1, "terms": [{"case": 1}, {"case": 2, "factor": 1.5}]},
{"number": 2, "terms": [{"combination": 1}]}],
"forces": [{"element": 1, "case": 1, "values": [[10, 20, 30, 40, 50, 60], [1, 2, 3, 4, 5, 6]]}]
})";

/// The text with the first `from`, which it must contain, replaced by `to`.
inline std::string replaced(std::string_view text, std::string_view from, std::string_view to) {
  const std::size_t place = text.find(from);
  EXPECT_NE(place, std::string_view::npos) << "the model does not contain " << from;
  std::string result(text);
  if (place != std::string_view::npos) result.replace(place, from.size(), to);
  return result;
}

/// The message of a problem by its paths alone, without the lines and the entities' numbers, which
/// tests of their own look at.
inline std::string message_by_paths(Problem problem) {
  problem.line = 0;
  problem.entity.clear();
  for (Fault& fault : problem.others) {
    fault.line = 0;
    fault.entity.clear();
  }
  return problem.message();
}

/// That about a text; "no problem" when it is a model.
inline std::string message_about(std::string_view text) {
  const Result<model::Model> result = parse_model(text, "post.json");
  const Problem* problem = std::get_if<Problem>(&result);
  return problem != nullptr ? message_by_paths(*problem) : "no problem";
}

/// The model of a text; a failure of the test and an empty model when it has a problem.
inline model::Model model_of(std::string_view text) {
  Result<model::Model> result = parse_model(text, "post.json");
  if (const Problem* problem = std::get_if<Problem>(&result)) {
    ADD_FAILURE() << problem->message();
    return {};
  }
  return std::get<model::Model>(std::move(result));
}

}  // namespace aluframe::io

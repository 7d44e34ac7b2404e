#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "aluframe/services/check_run.h"
#include "tests/unit/aluframe/services/sample_model.h"
#include "tests/unit/aluframe/services/temporary_folder.h"

namespace aluframe::services {

/// Columns of 1 m. 1 and 2: solid rounds of 40 mm; 3: a shape that the checks do not cover; 4: no
/// forces. Case 1 pulls with 48 kN at 1 and pushes with 120 kN at 2; case 2 pushes with 72 kN at 1.
inline constexpr const char* columns = R"json({
  "format": "aluframe-model", "version": 1, "title": "Columns",
  "materials": [ { "number": 1, "alloy": "6063-T5" } ],
  "sections": [
    { "number": 1, "shape": "SR", "dimensions": { "D": 40 } },
    { "number": 2, "shape": "UP", "properties": { "area": 100, "iyy": 1e4, "izz": 1e4,
      "point_y": [-1, 1, 1, -1], "point_z": [1, 1, -1, -1] } } ],
  "nodes": [ { "number": 1, "x": 0, "y": 0, "z": 0 }, { "number": 2, "x": 0, "y": 0, "z": 1 },
             { "number": 3, "x": 5, "y": 0, "z": 0 }, { "number": 4, "x": 5, "y": 0, "z": 1 } ],
  "elements": [ { "number": 1, "nodes": [1, 2], "section": 1, "material": 1 },
                { "number": 2, "nodes": [3, 4], "section": 1, "material": 1 },
                { "number": 3, "nodes": [1, 4], "section": 2, "material": 1 },
                { "number": 4, "nodes": [3, 2], "section": 1, "material": 1 } ],
  "load_cases": [ { "number": 1 }, { "number": 2 } ],
  "combinations": [ { "number": 1, "terms": [ { "case": 1 } ] },
                    { "number": 2, "terms": [ { "case": 1 }, { "case": 2 } ] },
                    { "number": 3, "kind": "envelope",
                      "terms": [ { "combination": 1 }, { "combination": 2 } ] } ],
  "forces": [
    { "element": 1, "case": 1, "values": [ [48, 0, 0, 0, 0, 0], [48, 0, 0, 0, 0, 0] ] },
    { "element": 1, "case": 2, "values": [ [-72, 0, 0, 0, 0, 0], [-72, 0, 0, 0, 0, 0] ] },
    { "element": 2, "case": 1, "values": [ [-120, 0, 0, 0, 0, 0], [-120, 0, 0, 0, 0, 0] ] },
    { "element": 3, "case": 1, "values": [ [1, 0, 0, 0, 0, 0], [1, 0, 0, 0, 0, 0] ] },
    { "element": 3, "case": 2, "values": [ [1, 0, 0, 0, 0, 0], [1, 0, 0, 0, 0, 0] ] } ]
})json";

/// Runs over the columns, with their result file in a folder of its own.
class ColumnsRun : public testing::Test {
 protected:
  SessionOptions options() {
    SessionOptions options;
    options.result_path = folder_.path() / "columns.aluresult";
    options.message = [this](const std::string& text) { messages_ += text + "\n"; };
    return options;
  }
  CheckSummary run(std::vector<model::Number> selected) {
    SessionOptions limited = options();
    limited.selected = std::move(selected);
    return run_check(model_, limited);
  }
  store::RunState state() const {
    return store::ResultReader::open(folder_.path() / "columns.aluresult")->state();
  }

  const model::Model model_ = parsed(columns);
  const TemporaryFolder folder_;
  std::string messages_;
};

}  // namespace aluframe::services

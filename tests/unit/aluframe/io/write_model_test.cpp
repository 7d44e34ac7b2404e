#include <gtest/gtest.h>

#include "tests/unit/aluframe/io/io_texts.h"

namespace aluframe::io {
namespace {

TEST(WriteModel, PutsAnEntityOnALineAndLeavesDefaultsOut) {
  const std::string text = R"({
  "format": "aluframe-model",
  "version": 1,
  "title": "Frame \"A\"",
  "project": {"name": "Hall \"3\"", "client": "City", "engineer": "A. B.", "revision": "C", "date": "May 2026"},
  "units": {"force": "kN", "length": "m", "section": "mm"},
  "settings": {"code": "GB50429-2007", "safety_class": 1},
  "frame": {"braced_a": true, "braced_b": false},
  "envelopes": "extremes",
  "materials": [
    {"number": 1, "alloy": "6063-T5"},
    {"number": 2, "name": "own", "grade": "X", "f02_thin": 120, "fu": 180}
  ],
  "sections": [
    {"number": 1, "shape": "B", "dimensions": {"H": 150, "B": 60, "tw": 3, "tf1": 3}, "welded": true},
    {"number": 2, "shape": "P", "dimensions": {"D": 60.3, "t": 2.9}, "properties": {"area": 500}}
  ],
  "nodes": [
    {"number": 1, "x": 0, "y": 0, "z": 0},
    {"number": 2, "name": "top", "x": 0.1, "y": -2.7, "z": 3.6},
    {"number": 3, "x": 5, "y": 0, "z": 0}
  ],
  "supports": [
    {"node": 1, "restrained": ["Dx", "Dy", "Dz", "Rz"]}
  ],
  "elements": [
    {"number": 1, "nodes": [1, 2], "section": 1, "material": 1, "kind": "truss", "releases": {"end": ["My", "Mz"]}, "design": {"haz_width": 25.4}},
    {"number": 2, "nodes": [1, 2], "section": 1, "material": 1, "orientation": {"vector": [0, 0.1, -2]}, "beta": 90},
    {"number": 3, "nodes": [1, 2], "section": 1, "material": 1, "orientation": {"node": 3}}
  ],
  "members": [
    {"number": 1, "elements": [1], "length_factors": {"y": 0.7, "z": 1}}
  ],
  "load_cases": [
    {"number": 1, "name": "DL"},
    {"number": 2, "kind": "response_spectrum"}
  ],
  "combinations": [
    {"number": 1, "name": "ULS", "terms": [{"case": 1, "factor": 1.3}, {"case": 2}], "seismic": true},
    {"number": 2, "kind": "envelope", "terms": [{"combination": 1}], "design": false}
  ],
  "forces": [
    {"element": 1, "case": 1, "values": [[-1.2, 0, 0.1, 0, 2.1, 0], [1e-06, 0, 12.345678, 0, 0, 0]]}
  ]
}
)";
  EXPECT_EQ(write_model(model_of(text)), text);
}

TEST(WriteModel, WritesListsThatAModelNeedsEvenWhenEmpty) {
  EXPECT_EQ(write_model(model::Model{}), R"({
  "format": "aluframe-model",
  "version": 1,
  "units": {"force": "kN", "length": "m", "section": "mm"},
  "materials": [],
  "sections": [],
  "nodes": [],
  "elements": [],
  "members": []
}
)");
}

TEST(WriteModel, GivesLengthsTheFewestDigitsThatBringThemBack) {
  // 0.3 m is 300 mm only after rounding: 300 / 1000 prints as 0.3, not as 0.29999999999999999.
  const std::string text =
      replaced(replaced(small_model, R"("length": "mm")", R"("length": "m")"),
               R"("x": 0, "y": 0, "z": 3000)", R"("x": 0.3, "y": 0.7, "z": 1.1)");
  EXPECT_NE(write_model(model_of(text)).find(R"({"number": 2, "x": 0.3, "y": 0.7, "z": 1.1})"),
            std::string::npos);
}

TEST(WriteModel, KeepsMaterialOfTheTableWithChangedValuesAsValues) {
  model::Model model = model_of(small_model);
  model::Material material = model.materials[0];
  material.fu = 170.0;
  model.materials = {};
  model.materials.add(material);
  const std::string text = write_model(model);
  EXPECT_NE(text.find(R"json({"number": 1, "grade": "6063-T5", "standard": "GB50429-07(A)", )json"
                      R"("f02_thin": 110, "fu": 170})"),
            std::string::npos)
      << text;
  EXPECT_EQ(model_of(text).materials[0], material);
}

TEST(WriteModel, KeepsSettingsThatAreAllDefault) {
  model::Model model = model_of(small_model);
  model.design = model::DesignSettings{};
  EXPECT_EQ(model_of(write_model(model)).design, model::DesignSettings{});
}

TEST(WriteModel, EscapesTextAndReplacesBytesThatAreNotUtf8) {
  model::Model model = model_of(small_model);
  model.title = "a\"b\\c \xE6\xA2\x81";
  EXPECT_EQ(model_of(write_model(model)).title, model.title);
  model.description = "a\"b\\c\n\x01 \xE6\xA2\x81";
  EXPECT_EQ(model_of(write_model(model)).description, model.description);
  model.title = "M\xFCller";
  EXPECT_EQ(model_of(write_model(model)).title, "M\xEF\xBF\xBDller");
}

TEST(ModelDigest, TellsModelsApartThatAreWrittenDifferently) {
  model::Model model;
  const std::string digest = model_digest(model);
  EXPECT_EQ(digest.size(), 16U);
  EXPECT_EQ(model_digest(model), digest);
  model.design = model::DesignSettings();
  EXPECT_NE(model_digest(model), digest);
}

TEST(ModelDigest, LeavesOutWhatNoResultDependsOn) {
  model::Model model;
  const std::string digest = model_digest(model);
  model.title = "Mullion";
  model.description = "Facade";
  model.project.engineer = "A. B.";
  model.moving_load_code = 4;
  EXPECT_EQ(model_digest(model), digest);
}

}  // namespace
}  // namespace aluframe::io

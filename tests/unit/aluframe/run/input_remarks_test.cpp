// What an engineer is told of a model before any check.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>

#include "aluframe/run/remarks.h"
#include "tests/unit/aluframe/services/temporary_folder.h"

namespace aluframe::run {
namespace {

/// A beam of 1 m on two supports; `section`, `coordinates` of its end, its `loads` and `forces`.
struct Beam {
  std::string section = R"("profile": "P 100x10")";
  std::string end = R"("x": 1, "y": 0, "z": 0)";
  std::string loads = "";
  std::string forces = "[0, 0, 0, 0, 1, 0], [0, 0, 0, 0, 1, 0]";

  std::string text() const {
    return R"({"format": "aluframe-model", "version": 1,
      "materials": [{"number": 1, "alloy": "6061-T6"}],
      "sections": [{"number": 1, )" +
           section + R"(}],
      "nodes": [{"number": 1, "x": 0, "y": 0, "z": 0}, {"number": 2, )" +
           end + R"(}],
      "supports": [{"node": 1, "restrained": ["Dx", "Dy", "Dz", "Rx", "Rz"]},
                   {"node": 2, "restrained": ["Dx", "Dy", "Dz"]}],
      "elements": [{"number": 1, "nodes": [1, 2], "section": 1, "material": 1}],
      "load_cases": [{"number": 3)" +
           loads + R"(}],
      "combinations": [{"number": 4, "terms": [{"case": 3}]}],
      "forces": [{"element": 1, "case": 3, "values": [)" +
           forces + "]}]}";
  }
};

std::vector<store::RemarkRow> remarks_of(const Beam& beam) {
  const services::TemporaryFolder folder;
  const std::filesystem::path file = folder.path() / "frame.json";
  std::ofstream(file) << beam.text();
  const auto prepared = prepare({.model = file});
  const auto* problem = std::get_if<Problem>(&prepared);
  EXPECT_EQ(problem, nullptr) << problem->text;
  return problem == nullptr ? std::get<Input>(prepared).remarks : std::vector<store::RemarkRow>();
}

/// The one row of a kind.
store::RemarkRow only(const std::vector<store::RemarkRow>& rows, const std::string& kind) {
  EXPECT_EQ(std::ranges::count(rows, kind, &store::RemarkRow::kind), 1) << kind;
  const auto found = std::ranges::find(rows, kind, &store::RemarkRow::kind);
  return found == rows.end() ? store::RemarkRow() : *found;
}

TEST(InputRemarks, AnOrdinaryBeamHasNone) {
  EXPECT_TRUE(remarks_of({}).empty());
}

TEST(InputRemarks, StripsWiderThanTheirPlatesAreNamedWithTheirElements) {
  const auto row = only(remarks_of({.section = R"("shape": "B", "welded": true,
                               "dimensions": {"H": 20, "B": 20, "tw": 2, "tf1": 2})"}),
                        "W1");
  EXPECT_EQ(row.elements, "1");
  EXPECT_EQ(row.element, 1U);
}

TEST(InputRemarks, AnElementThatLeansALittleCountsAsVertical) {
  const auto row = only(remarks_of({.end = R"("x": 0.0005, "y": 0, "z": 1)"}), "axes");
  EXPECT_EQ(row.elements, "1");
  EXPECT_FALSE(row.text.empty());
}

TEST(InputRemarks, ForcesAtTheEndsOfALoadedElementHideWhatIsBetween) {
  const auto row =
      only(remarks_of({.loads = R"(, "span": [{"elements": [1], "direction": "Z", "value": -1}])",
                       .forces = "[0, 0, 0.5, 0, 0, 0], [0, 0, -0.5, 0, 0, 0]"}),
           "ends");
  EXPECT_EQ(row.elements, "1");
  EXPECT_NE(row.text.find("load case 3"), std::string::npos) << row.text;
}

TEST(InputRemarks, ATorsionConstantFarAboveTheMeshesIsNamedWithItsSection) {
  // T 40x10x9x20: about 17,000 by formula, between 8341 and 11,240 by the rectangles it lies in and
  // holds.
  const auto row = only(remarks_of({.section = R"("profile": "T 40x10x9x20")"}), "It");
  EXPECT_EQ(row.elements, "1");
  EXPECT_EQ(row.text.find("section 1: "), 0U) << row.text;
}

}  // namespace
}  // namespace aluframe::run

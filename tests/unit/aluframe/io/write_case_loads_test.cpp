// Loads as they are written: in the units of the file, without what reading assumes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/unit/aluframe/io/case_loads.h"

namespace aluframe::io {
namespace {

using testing::HasSubstr;

std::string written(const std::string& loads) {
  return write_model(model_of(with_loads_in_kilonewtons(loads)));
}

class SingleLoad : public testing::TestWithParam<const char*> {};

TEST_P(SingleLoad, IsWrittenOnTheLineOfItsCaseAsItWasRead) {
  EXPECT_THAT(written(GetParam()), HasSubstr("\n    {\"number\": 2, \"name\": \"WIND\", " +
                                             std::string(GetParam()) + "}\n"));
}

INSTANTIATE_TEST_SUITE_P(
    All, SingleLoad,
    testing::Values(
        R"("self_weight": 1)", R"("self_weight": -0.3)", R"("self_weight": {"X": 0.1, "Z": -1})",
        R"("self_weight": {"Y": 0.7})", R"("nodal": [{"nodes": [4, 2], "Fx": 0.3, "Mz": -2.7}])",
        R"("nodal": [{"nodes": "all", "Fy": 1, "Fz": 2, "Mx": 3, "My": 4}])",
        R"("span": [{"elements": [1, 3], "direction": "z", "value": -1.2}])",
        R"("span": [{"elements": "all", "direction": "X", "projected": true, "value": -0.5}])",
        R"("span": [{"elements": [2], "direction": "X", "value": 1, "from": 0.25, "to": 0.5}])",
        R"("span": [{"elements": [2], "direction": "y", "values": [0, 0.7], "to": 0.1}])",
        R"("points": [{"elements": [1], "direction": "Y", "at": 0.5, "force": -10.1}])",
        R"("points": [{"elements": "all", "direction": "x", "at": 0, "moment": 0.3}])",
        R"("temperature": [{"elements": [1], "change": -30.5}])",
        R"("temperature": [{"elements": "all", "difference_y": 5, "difference_z": -7}])",
        R"("settlements": [{"node": 1, "Dz": -0.002, "Rx": 0.001}])"));

TEST(SeveralLoads, StandALoadALine) {
  const std::string text = R"(
    {"number": 2, "name": "WIND", "self_weight": 1.1, "nodal": [
      {"nodes": [4], "Fx": 1},
      {"nodes": [3], "Fx": 2}
    ], "span": [
      {"elements": [1], "direction": "X", "value": 3}
    ]})";
  EXPECT_THAT(written(text.substr(text.find("\"self"), text.size() - text.find("\"self") - 1)),
              HasSubstr(text + '\n'));
}

TEST(WrittenValues, OfATrapezoidAreOneValueWhenTheyAreEqual) {
  EXPECT_THAT(written(R"("span": [{"elements": [1], "direction": "X", "values": [3, 3]}])"),
              HasSubstr(R"("direction": "X", "value": 3})"));
}

TEST(WrittenValues, OfZeroAreLeftOut) {
  EXPECT_THAT(written(R"("nodal": [{"nodes": [1], "Fx": 0, "Fy": 1}])"),
              HasSubstr(R"({"nodes": [1], "Fy": 1})"));
}

}  // namespace
}  // namespace aluframe::io

// Area loads in a model file: what they become, what stays in the file, and what is refused.
#include <gmock/gmock.h>

#include <ostream>

#include "aluframe/io/model_edit.h"
#include "tests/unit/aluframe/io/io_texts.h"

namespace aluframe::io {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;

/// A bay of 4 m by 2 m in kN and m, on the ground, with a load case of these area loads.
std::string bay_with(const std::string& loads) {
  return R"({"format": "aluframe-model", "version": 1,
"materials": [{"number": 1, "alloy": "6063-T5"}],
"sections": [{"number": 1, "shape": "P", "dimensions": {"D": 100, "t": 5}}],
"nodes": [{"number": 1, "x": 0, "y": 0, "z": 0}, {"number": 2, "x": 4, "y": 0, "z": 0},
          {"number": 3, "x": 4, "y": 2, "z": 0}, {"number": 4, "x": 0, "y": 2, "z": 0}],
"elements": [{"number": 1, "nodes": [1, 2], "section": 1, "material": 1},
             {"number": 2, "nodes": [2, 3], "section": 1, "material": 1},
             {"number": 3, "nodes": [3, 4], "section": 1, "material": 1},
             {"number": 4, "nodes": [4, 1], "section": 1, "material": 1}],
"load_cases": [
    {"number": 1, "area": [)" +
         loads + "]}\n  ]}";
}

constexpr const char* one_way = R"({"region": {"nodes": [1, 2, 3, 4]}, "span": [0, 1, 0], )"
                                R"("direction": "Z", "pressure": -0.5})";

TEST(AreaLoadsOfAModel, ComeAsLineLoadsBehindItsOwn) {
  const std::string text = replaced(
      bay_with(one_way), R"({"number": 1, "area")",
      R"({"number": 1, "span": [{"elements": [2], "direction": "Z", "value": 1}], "area")");
  const auto loads = model_of(text).load_cases[0].loads;
  ASSERT_THAT(loads.area, SizeIs(1));
  ASSERT_THAT(loads.span, SizeIs(3));
  EXPECT_EQ(loads.span[0].of_area, std::nullopt);
  EXPECT_EQ(loads.span[1].of_area, 0U);
  EXPECT_EQ(loads.span[1].elements.numbers, std::vector<model::Number>{1});
  // 0.5 kN/m² on half of 2 m: 0.5 kN/m, which is 0.5 N/mm.
  EXPECT_DOUBLE_EQ(loads.span[1].from_value, -0.5);
  EXPECT_EQ(loads.span[2].elements.numbers, std::vector<model::Number>{3});
}

TEST(AreaLoadsOfAModel, OnTheSameRegionTwiceAddUp) {
  const auto loads = model_of(bay_with(std::string(one_way) + ", " + one_way)).load_cases[0].loads;
  ASSERT_THAT(loads.span, SizeIs(4));
  EXPECT_EQ(loads.span[3].of_area, 1U);
}

TEST(AreaLoadsOfAModel, AreReadInTheUnitsOfTheFile) {
  std::string text = bay_with(one_way);
  text = replaced(text, R"("version": 1,)",
                  R"("version": 1, "units": {"force": "kip", "length": "in"},)");
  const auto loads = model_of(text).load_cases[0].loads;
  // 0.5 kip/in² on 1 in is 0.5 kip/in: 4448.2216152605 N on 25.4 mm.
  EXPECT_NEAR(loads.span[0].from_value, -0.5 * 4448.2216152605 / 25.4, 1e-12);
}

class WrittenAreaLoad : public testing::TestWithParam<const char*> {};

TEST_P(WrittenAreaLoad, IsWhatWasReadWithoutItsLineLoads) {
  const std::string written = write_model(model_of(bay_with(GetParam())));
  EXPECT_THAT(written, HasSubstr("{\"number\": 1, \"area\": [" + std::string(GetParam()) + "]}"));
  EXPECT_THAT(written, Not(HasSubstr("\"span\": [{")));
  EXPECT_EQ(write_model(model_of(written)), written);
}

INSTANTIATE_TEST_SUITE_P(
    All, WrittenAreaLoad,
    testing::Values(
        one_way,
        R"({"region": {"points": [[1, 0, 0], [3, 0, 0], [3, 2, 0], [1, 2, 0]]}, )"
        R"("elements": [1, 3], "span": [0, 1.5, 0], "direction": "normal", "pressure": 0.7})",
        R"({"region": {"nodes": [1, 2, 3, 4]}, "span": "two_way", "direction": "Z", )"
        R"("projected": true, "pressure": -1.1})",
        R"({"elements": "all", "span": "two_way", "direction": "X", "pressure": 0.3})",
        R"({"elements": [4, 2], "spacing": 1.2, "direction": "y", "pressure": -0.9})",
        R"({"elements": [1], "spacing": 1.2, "snow": {"s0": 0.45, "mu_r": 0.8}})",
        R"({"elements": [1], "spacing": 1.2, "direction": "Z", "wind": {"w0": 0.3, )"
        R"("roughness": "A", "height": 12.5, "mu_s": -0.5, "beta_z": 1.5}})",
        R"({"elements": [1], "spacing": 1.2, "direction": "Z", "wind": {"w0": 0.55, )"
        R"("roughness": "D", "height": 70, "mu_sl": -1.4, "mu_z": 1.1, "beta_gz": 1.9, )"
        R"("profile": {"mu_10": 1.2, "alpha": 0.2, "mu_min": 0.9, "gradient_height": 500, )"
        R"("lowest_height": 7.5, "i_10": 0.25, "g": 3.5}}})"));

TEST(AnEditOfAModel, KeepsItsAreaLoadsByteForByte) {
  const std::string odd = R"( { "span":"Y" , "pressure" : -5.0e-1,"direction":"Z",)"
                          "\n\t\"region\":{\"nodes\":[1,2,\n3,4]} } ";
  const std::string text = bay_with(odd);
  model::Material material = *model_of(text).materials.find(1);
  material.name = "Mullions";
  const auto edited = edit_model_text(text, "bay.json", {.materials = {material}});
  ASSERT_TRUE(std::holds_alternative<std::string>(edited));
  EXPECT_THAT(std::get<std::string>(edited), HasSubstr(odd));
  EXPECT_THAT(std::get<std::string>(edited), HasSubstr("Mullions"));
}

/// An area load, and the message behind its path.
struct BadAreaLoad {
  const char* name;
  const char* load;
  const char* message;
};

void PrintTo(const BadAreaLoad& bad, std::ostream* out) {
  *out << bad.load;
}

std::string name_of(const testing::TestParamInfo<BadAreaLoad>& info) {
  return info.param.name;
}

class RefusedAreaLoad : public testing::TestWithParam<BadAreaLoad> {};

TEST_P(RefusedAreaLoad, IsNamedByItsPath) {
  EXPECT_EQ(message_about(bay_with(GetParam().load)),
            std::string("post.json: /load_cases/0/area/0") + GetParam().message);
}

#define SPACED R"({"elements": [1], "spacing": 1, "direction": "Z", )"
#define WIND SPACED R"("wind": {"w0": 0.45, "roughness": "B", "height": 20, )"
#define REGION R"({"region": {"nodes": [1, 2, 3, 4]}, )"

INSTANTIATE_TEST_SUITE_P(
    All, RefusedAreaLoad,
    testing::Values(
        BadAreaLoad{"Nothing", R"({"span": "X", "pressure": 1})", ": missing field \"elements\""},
        BadAreaLoad{"NoWay", REGION R"("direction": "Z", "pressure": 1})",
                    ": missing field \"span\""},
        BadAreaLoad{"NoPressure", REGION R"("span": "X", "direction": "Z"})",
                    R"(: missing field "pressure", "wind" or "snow")"},
        BadAreaLoad{"PressureOfZero", SPACED R"("pressure": 0})",
                    "/pressure: found 0, must not be 0"},
        BadAreaLoad{"PressureBesideSnow",
                    R"({"elements": [1], "spacing": 1, "pressure": 1, "snow": {}})",
                    "/snow: not allowed beside \"pressure\""},
        BadAreaLoad{"WindBesideSnow", SPACED R"("wind": {}, "snow": {}})",
                    "/snow: not allowed beside \"wind\""},
        BadAreaLoad{"NoDirection", REGION R"("span": "X", "pressure": 1})",
                    ": missing field \"direction\""},
        BadAreaLoad{"UnknownDirection", REGION R"("span": "X", "direction": "z", "pressure": 1})",
                    R"(/direction: found "z", must be one of normal, X, Y, Z)"},
        BadAreaLoad{"SpacedNormal",
                    R"({"elements": [1], "spacing": 1, "direction": "normal", "pressure": 1})",
                    R"(/direction: found "normal", must be one of x, y, z, X, Y, Z)"},
        BadAreaLoad{"ProjectedNormal",
                    REGION R"("span": "X", "direction": "normal", "projected": true, )"
                           R"("pressure": 1})",
                    "/projected: found true, only a load along X, Y or Z can be projected"},
        BadAreaLoad{"SpanOfNothing",
                    REGION R"("span": [0, 0, 0], "direction": "Z", "pressure": 1})",
                    "/span: at least one of the three must not be 0"},
        BadAreaLoad{"SpanOfTwo", REGION R"("span": [0, 1], "direction": "Z", "pressure": 1})",
                    "/span: found 2 numbers, must be 3: along X, Y and Z"},
        BadAreaLoad{"UnknownSpan", REGION R"("span": "both", "direction": "Z", "pressure": 1})",
                    R"(/span: found "both", must be "two_way", "X", "Y", "Z" or a list of three )"
                    "numbers"},
        BadAreaLoad{"NegativeSpacing",
                    R"({"elements": [1], "spacing": -1.2, "direction": "Z", "pressure": 1})",
                    "/spacing: found -1.2, must be positive"},
        BadAreaLoad{"SpacingOfARegion", REGION R"("elements": [1], "spacing": 1, "pressure": 1})",
                    "/region: not allowed beside \"spacing\""},
        BadAreaLoad{"SpacingWithASpan", SPACED R"("span": "X", "pressure": 1})",
                    "/span: not allowed beside \"spacing\""},
        BadAreaLoad{
            "TwoCorners",
            R"({"region": {"nodes": [1, 2]}, "span": "X", "direction": "Z", "pressure": 1})",
            "/region/nodes: found 2 corners, must be at least 3"},
        BadAreaLoad{"UnknownCorner",
                    R"({"region": {"nodes": [1, 2, 9]}, "span": "X", "pressure": 1})",
                    "/region/nodes/2: node 9 does not exist"},
        BadAreaLoad{"NoCorners", R"({"region": {}, "span": "X", "pressure": 1})",
                    R"(/region: missing field "nodes" or "points")"},
        BadAreaLoad{"CrossedRegion",
                    R"({"region": {"nodes": [1, 2, 4, 3]}, "span": "Y", "direction": "Z", )"
                    R"("pressure": 1})",
                    "/region: crosses or touches itself: its edges from corner to corner 2-3 and "
                    "4-1 meet"},
        BadAreaLoad{"DirectionOfSnow", SPACED R"("snow": {"s0": 0.4, "mu_r": 1}})",
                    "/direction: not allowed beside \"snow\""},
        BadAreaLoad{"SnowOfNothing",
                    R"({"elements": [1], "spacing": 1, "snow": {"s0": 0, "mu_r": 1}})",
                    "/snow/s0: found 0, must be positive"},
        BadAreaLoad{"ShapeOfSnow",
                    R"({"elements": [1], "spacing": 1, "snow": {"s0": 1, "mu_r": -1}})",
                    "/snow/mu_r: found -1, must be greater than 0 and at most 10"},
        BadAreaLoad{"SmallWind",
                    SPACED R"("wind": {"w0": 0.29, "roughness": "B", "height": 1, "mu_sl": 1}})",
                    "/wind/w0: found 0.29, must be at least 0.3 "
                    "(GB 50009-2012, 8.1.2)"},
        BadAreaLoad{"UnknownRoughness",
                    SPACED R"("wind": {"w0": 0.4, "roughness": "E", "height": 1, "mu_sl": 1}})",
                    R"(/wind/roughness: found "E", must be one of A, B, C, D)"},
        BadAreaLoad{"HeightOfNothing",
                    SPACED R"("wind": {"w0": 0.4, "roughness": "B", "height": 0, "mu_sl": 1}})",
                    "/wind/height: found 0, must be positive"},
        BadAreaLoad{"HeightBeyondTowers",
                    SPACED R"("wind": {"w0": 0.4, "roughness": "B", "height": 1001, "mu_sl": 1}})",
                    "/wind/height: found 1001, must be at most 1000"},
        BadAreaLoad{"NoShape", WIND R"("mu_z": 1}})", R"(/wind: missing field "mu_sl" or "mu_s")"},
        BadAreaLoad{"TwoShapes", WIND R"("mu_sl": 1, "mu_s": 1}})",
                    "/wind/mu_s: not allowed beside \"mu_sl\""},
        BadAreaLoad{"ShapeOfZero", WIND R"("mu_sl": 0}})",
                    "/wind/mu_sl: found 0, must be between -10 and 10, and not 0"},
        BadAreaLoad{"StructureWithoutVibration", WIND R"("mu_s": 1}})",
                    "/wind: missing field \"beta_z\""},
        BadAreaLoad{"CladdingWithVibration", WIND R"("mu_sl": 1, "beta_z": 1.5}})",
                    "/wind/beta_z: not allowed beside \"mu_sl\""},
        BadAreaLoad{"GustsOfAStructure", WIND R"("mu_s": 1, "beta_z": 1.5, "beta_gz": 1.5}})",
                    "/wind/beta_gz: not allowed beside \"mu_s\""},
        BadAreaLoad{"ExponentAboveOne", WIND R"("mu_sl": 1, "profile": {"alpha": 1.5}}})",
                    "/wind/profile/alpha: found 1.5, must be between 0 and 1"},
        BadAreaLoad{"GradientBelowTheLowest",
                    WIND R"("mu_sl": 1, "profile": {"gradient_height": 8}}})",
                    "/wind/profile: the lowest height must not be above the gradient height"},
        BadAreaLoad{"UnknownNumber", WIND R"("mu_sl": 1, "profile": {"I10": 0.1}}})",
                    R"(/wind/profile/I10: unknown field, did you mean "i_10"?)"}),
    name_of);

}  // namespace
}  // namespace aluframe::io

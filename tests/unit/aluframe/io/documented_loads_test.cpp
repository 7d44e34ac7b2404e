// The loads that the description of the format shows mean what its text and figure say, in N and
// mm.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "tests/unit/aluframe/io/io_texts.h"

namespace aluframe::io {
namespace {

using model::LoadAxes;
using testing::ElementsAre;
using testing::SizeIs;

/// The block of JSON in the description that begins with this field.
std::string documented(const std::string& field) {
  const std::ifstream file(ALUFRAME_SOURCE_DIR "/docs/model-file.md");
  std::stringstream content;
  content << file.rdbuf();
  const std::string text = content.str();
  const std::string opening = "```json\n";
  const std::size_t block = text.find(opening + '"' + field + "\":");
  if (block == std::string::npos) {
    ADD_FAILURE() << "the description shows no " << field;
    return "";
  }
  const std::size_t begin = block + opening.size();
  return text.substr(begin, text.find("```", begin) - begin);
}

/// The portal of the figure, 6 m by 4 m.
class DocumentedLoads : public testing::Test {
 protected:
  const model::Model model_ = model_of(R"({"format": "aluframe-model", "version": 1,
"materials": [{"number": 1, "alloy": "6063-T5"}],
"sections": [{"number": 1, "shape": "P", "dimensions": {"D": 100, "t": 5}}],
"nodes": [{"number": 1, "x": 0, "y": 0, "z": 0}, {"number": 2, "x": 0, "y": 0, "z": 4},
          {"number": 3, "x": 6, "y": 0, "z": 4}, {"number": 4, "x": 6, "y": 0, "z": 0}],
"elements": [{"number": 1, "nodes": [1, 2], "section": 1, "material": 1},
             {"number": 2, "nodes": [2, 3], "section": 1, "material": 1},
             {"number": 3, "nodes": [4, 3], "section": 1, "material": 1}],
)" + documented("supports") + "," + documented("load_cases") +
                                       '}');

  model::CaseLoads loads_of(const std::string& name) const {
    for (const model::LoadCase& load_case : model_.load_cases) {
      if (load_case.name == name) return load_case.loads;
    }
    ADD_FAILURE() << "no load case " << name;
    return {};
  }
};

TEST_F(DocumentedLoads, OfTheDeadCaseAreTheWeightDownwards) {
  model::CaseLoads expected;
  expected.self_weight = {0, 0, -1};
  EXPECT_EQ(loads_of("Dead"), expected);
}

TEST_F(DocumentedLoads, OfTheSnowArePerLengthSeenFromAbove) {
  const auto span = loads_of("Snow").span;
  ASSERT_THAT(span, SizeIs(1));
  EXPECT_EQ(span[0].direction, (model::LoadDirection{LoadAxes::projected, 2}));
  EXPECT_EQ(span[0].from_value, -3.6);  // kN/m is N/mm
  EXPECT_EQ(span[0].to_value, -3.6);
  EXPECT_THAT(span[0].elements.numbers, ElementsAre(2));
}

TEST_F(DocumentedLoads, OfTheWindGrowUpTheColumnAndPushItsTop) {
  const auto loads = loads_of("Wind");
  ASSERT_THAT(loads.span, SizeIs(1));
  EXPECT_EQ(loads.span[0].direction, (model::LoadDirection{LoadAxes::global, 0}));
  EXPECT_EQ(loads.span[0].from_value, 0.4);
  EXPECT_EQ(loads.span[0].to_value, 0.8);
  ASSERT_THAT(loads.nodal, SizeIs(1));
  EXPECT_THAT(loads.nodal[0].components, ElementsAre(8000, 0, 0, 0, 0, 0));
}

TEST_F(DocumentedLoads, OfTheLampHangInTheMiddle) {
  const auto points = loads_of("Lamp").points;
  ASSERT_THAT(points, SizeIs(1));
  EXPECT_EQ(points[0].kind, model::PointLoad::Kind::force);
  EXPECT_EQ(points[0].direction, (model::LoadDirection{LoadAxes::global, 2}));
  EXPECT_EQ(points[0].at, 0.5);
  EXPECT_EQ(points[0].value, -5000.0);
}

TEST_F(DocumentedLoads, OfTheSunWarmAllAndTheTopOfTheBeamMore) {
  const auto temperature = loads_of("Sun").temperature;
  ASSERT_THAT(temperature, SizeIs(2));
  EXPECT_TRUE(temperature[0].elements.all);
  EXPECT_EQ(temperature[0].change, 25.0);
  EXPECT_THAT(temperature[1].elements.numbers, ElementsAre(2));
  EXPECT_EQ(temperature[1].difference_z, 12.0);
}

TEST_F(DocumentedLoads, OfTheSettlementLowerASupport) {
  const auto settlements = loads_of("Settlement").settlements;
  ASSERT_THAT(settlements, SizeIs(1));
  EXPECT_EQ(settlements[0].node, 4U);
  EXPECT_THAT(settlements[0].displacements, ElementsAre(0, 0, -10, 0, 0, 0));
}

TEST_F(DocumentedLoads, StandOnASpringThatTurnsAboutY) {
  ASSERT_THAT(model_.supports, SizeIs(2));
  EXPECT_THAT(model_.supports[1].restrained, ElementsAre(true, true, true, false, false, false));
  EXPECT_THAT(model_.supports[1].springs, ElementsAre(0, 0, 0, 0, 350e6, 0));  // kN·m in N·mm
}

}  // namespace
}  // namespace aluframe::io

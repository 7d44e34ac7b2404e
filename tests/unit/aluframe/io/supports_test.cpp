// Supports: rigid directions and springs. Expected values are converted by hand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/unit/aluframe/io/bad_model.h"

namespace aluframe::io {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* fixed = R"({"node": 1, "restrained": "all"})";

std::string with_support(const std::string& support) {
  return replaced(small_model, fixed, support);
}

model::Support support_of(const std::string& text) {
  const model::Model model = model_of(text);
  return model.supports.size() == 1 ? model.supports[0] : model::Support{};
}

TEST(Support, HasNoSpringsWhenTheFileHasNone) {
  EXPECT_THAT(support_of(std::string(small_model)).springs, ElementsAre(0, 0, 0, 0, 0, 0));
}

TEST(Support, MayHaveSpringsBesideRigidDirections) {
  const auto support = support_of(
      with_support(R"({"node": 1, "restrained": ["Dz"], "springs": {"Dx": 500, "Ry": 20}})"));
  EXPECT_THAT(support.restrained, ElementsAre(false, false, true, false, false, false));
  EXPECT_THAT(support.springs, ElementsAre(500, 0, 0, 0, 20, 0));
}

TEST(Support, MayHaveSpringsAlone) {
  const auto support = support_of(with_support(
      R"({"node": 1, "springs": {"Dx": 1, "Dy": 2, "Dz": 3, "Rx": 4, "Ry": 5, "Rz": 6}})"));
  EXPECT_THAT(support.restrained, ElementsAre(false, false, false, false, false, false));
  EXPECT_THAT(support.springs, ElementsAre(1, 2, 3, 4, 5, 6));
}

TEST(SpringsOfASupport, AreInForcePerLengthAndMomentPerRadian) {
  const auto support =
      support_of(replaced(with_support(R"({"node": 1, "springs": {"Dx": 500, "Ry": 20}})"),
                          R"("force": "N", "length": "mm")", R"("force": "kN", "length": "cm")"));
  EXPECT_EQ(support.springs[0], 500 * 100.0);  // 1 kN/cm = 100 N/mm
  EXPECT_EQ(support.springs[4], 20 * 1e4);     // 1 kN·cm = 10⁴ N·mm
}

TEST(SpringsOfASupport, AreWrittenInTheUnitsOfTheFile) {
  const std::string support =
      R"({"node": 1, "restrained": ["Dz"], "springs": {"Dx": 500, "Ry": 0.3}})";
  const std::string text =
      write_model(model_of(replaced(with_support(support), R"("force": "N", "length": "mm")",
                                    R"("force": "kip", "length": "ft")")));
  EXPECT_THAT(text, HasSubstr(support));
}

TEST(SpringsOfASupport, AreWrittenWithoutRestrainedDirectionsWhenThereAreNone) {
  const std::string support = R"({"node": 1, "springs": {"Dx": 500}})";
  EXPECT_THAT(write_model(model_of(with_support(support))), HasSubstr(support));
}

TEST(Support, OfNothingIsWrittenAsItWasRead) {
  const std::string support = R"({"node": 1, "restrained": []})";
  EXPECT_THAT(write_model(model_of(with_support(support))), HasSubstr(support));
}

using BadSupport = RejectedModel;

TEST_P(BadSupport, IsNamedByItsPath) {
  expect_message();
}

INSTANTIATE_TEST_SUITE_P(
    Springs, BadSupport,
    testing::Values(
        BadModel{"NeitherRestrainedNorSprings", fixed, R"({"node": 1})",
                 R"(/supports/0: missing field "restrained" or "springs")"},
        BadModel{"NoStiffness", fixed, R"({"node": 1, "springs": {}})",
                 "/supports/0/springs: at least one of Dx, Dy, Dz, Rx, Ry, Rz must be given"},
        BadModel{"StiffnessOfZero", fixed, R"({"node": 1, "springs": {"Dx": 0}})",
                 "/supports/0/springs/Dx: found 0, must be positive"},
        BadModel{"NegativeStiffness", fixed, R"({"node": 1, "springs": {"Rz": -2}})",
                 "/supports/0/springs/Rz: found -2, must be positive"},
        BadModel{"StiffnessBeyondTheRange", fixed, R"({"node": 1, "springs": {"Dy": 1e300}})",
                 "/supports/0/springs/Dy: found 1e+300, must be between -1e30 and 1e30"},
        BadModel{"SpringInARestrainedDirection", fixed,
                 R"({"node": 1, "restrained": ["Dx", "Dy"], "springs": {"Dz": 1, "Dy": 1}})",
                 "/supports/0/springs/Dy: this direction is restrained already"},
        BadModel{"SpringWhereAllIsRestrained", fixed,
                 R"({"node": 1, "restrained": "all", "springs": {"Rx": 1}})",
                 "/supports/0/springs/Rx: this direction is restrained already"},
        BadModel{"UnknownDirection", fixed, R"({"node": 1, "springs": {"Fx": 1}})",
                 "/supports/0/springs/Fx: unknown field, allowed are Dx, Dy, Dz, Rx, Ry, Rz"}),
    name_of_bad_model);

TEST(BadSupportTest, StiffnessThatVanishesInNewtonsPerMillimetreIsRefused) {
  // The smallest double, 4.9e-324 N/m, is less than half of itself in N/mm.
  EXPECT_EQ(message_about(replaced(with_support(R"({"node": 1, "springs": {"Dx": 4.9e-324}})"),
                                   R"("length": "mm")", R"("length": "m")")),
            "post.json: /supports/0/springs/Dx: found 5e-324, must be positive");
}

}  // namespace
}  // namespace aluframe::io

// Remarks on design attributes that do less, or more, than they seem to.

#include "remark_frames.h"

namespace aluframe::remarks {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

Frame with_coefficients(double y, double z, Frame frame = simple_beam()) {
  return frame.with(1, [y, z](model::Element& element) {
    element.design.stability_coefficients = model::ElementDesign::AxisPair{y, z};
  });
}

TEST(WeldCoefficient, IsSaidToBeReadByNoCheck) {
  Frame frame = simple_beam();
  EXPECT_THAT(frame.remarks("F12"), IsEmpty());
  frame.with(1, [](model::Element& element) { element.design.weld_coefficient = 0.7; });
  const auto remarks = frame.remarks("F12");
  ASSERT_THAT(remarks, SizeIs(1));
  EXPECT_THAT(remarks[0].elements, ElementsAre(1));
  EXPECT_EQ(remarks[0].value, 0.7);
}

TEST(StabilityCoefficients, AboveOneAreNamedWithTheLargest) {
  const auto remarks = with_coefficients(1.2, 0.9).remarks("S4");
  ASSERT_THAT(remarks, SizeIs(1));
  EXPECT_EQ(remarks[0].value, 1.2);
}

TEST(StabilityCoefficients, AboveOneAboutZAloneAreNamedToo) {
  const auto remarks = with_coefficients(0.9, 1.3).remarks("S4");
  ASSERT_THAT(remarks, SizeIs(1));
  EXPECT_EQ(remarks[0].value, 1.3);
}

TEST(StabilityCoefficients, OfZAloneSwitchLateralBucklingOff) {
  const auto remarks = with_coefficients(1.0, 0.9).remarks("S4");
  ASSERT_THAT(remarks, SizeIs(1));
  EXPECT_THAT(remarks[0].text, HasSubstr("lateral-torsional buckling off"));
  EXPECT_THAT(with_coefficients(1.0, 0.9, simple_beam(Shape::box, box_20)).remarks("S4"),
              IsEmpty());
}

TEST(StabilityCoefficients, WithinOneAreTakenWithoutAWord) {
  EXPECT_THAT(with_coefficients(0.6, 0.9).remarks("S4"), IsEmpty());
  EXPECT_THAT(with_coefficients(1.0, 1.0).remarks("S4"), IsEmpty());
}

TEST(Remarks, AreNoneOnABeamBetweenSupports) {
  EXPECT_THAT(model_remarks(simple_beam().model()), IsEmpty());
}

TEST(Remarks, AreNoneOnAPortalOfBoxes) {
  EXPECT_THAT(model_remarks(portal(Shape::box, {100, 60, 5, 5, 55, 5, 0, 0}).model()), IsEmpty());
}

TEST(Remarks, AreNoneOnAnEmptyModel) {
  EXPECT_THAT(model_remarks(model::Model()), IsEmpty());
}

}  // namespace
}  // namespace aluframe::remarks

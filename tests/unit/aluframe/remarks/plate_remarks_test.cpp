// Remarks on slender plates that count in full: of shapes that no check judges, and webs in
// bending. Limits by hand from the table of GB 50429-2007; 6061-T6 has f0.2 = 240 (weakly
// hardening), 6063-T5 has 110 (strongly hardening).

#include <cmath>

#include "aluframe/catalogue/profiles.h"
#include "aluframe/remarks/effective_area.h"
#include "aluframe/remarks/plate_limits.h"
#include "remark_frames.h"

namespace aluframe::remarks {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

// What a few roundings of a quotient and a root leave.
constexpr double rounding = 1e-12;

struct Slender {
  Shape shape;
  std::array<double, 8> dimensions;
  std::string_view plate;
  double ratio;
};

class UnjudgedPlates : public testing::TestWithParam<Slender> {};

TEST_P(UnjudgedPlates, AreNamedWithTheirShareOfTheLimit) {
  const auto& [shape, dimensions, plate, ratio] = GetParam();
  const auto remarks = simple_beam(shape, dimensions).remarks("B12");
  ASSERT_THAT(remarks, SizeIs(1));
  EXPECT_THAT(remarks[0].text, HasSubstr("the " + std::string(plate) + " of section 1"));
  EXPECT_NEAR(remarks[0].value.value(), ratio, rounding);
  EXPECT_THAT(remarks[0].elements, ElementsAre(1));
  EXPECT_EQ(remarks[0].section, 1U);
}

// By hand, outstands against 6, inner plates against 21.5, pipes against 12000/240 = 50:
// stem (100 − 8)/6; flange (100 − 10)/2/6; web (160 − 2·6 − 2·3)/4; web (160 − 2·6)/4; flange
// (60 − 5)/6; wall 200/2.
INSTANTIATE_TEST_SUITE_P(
    Shapes, UnjudgedPlates,
    testing::Values(Slender{Shape::tee, {100, 100, 6, 8, 0, 0, 0, 0}, "stem", 92.0 / 6 / 6},
                    Slender{Shape::tee, {60, 100, 10, 6, 0, 0, 0, 0}, "flange", 7.5 / 6},
                    Slender{Shape::channel, {160, 50, 4, 6, 50, 6, 3, 0}, "web", 35.5 / 21.5},
                    Slender{Shape::double_channel, {160, 50, 4, 6, 10, 0, 0, 0}, "web", 37 / 21.5},
                    Slender{
                        Shape::double_channel, {100, 60, 5, 6, 0, 0, 0, 0}, "flange", 55.0 / 6 / 6},
                    Slender{Shape::pipe, {200, 2, 0, 0, 0, 0, 0, 0}, "wall", 2.0}));

// Tee: flange 4.5·10/8 = 5.6, stem 52/10 = 5.2 of 6. Channel and double channel: web 80/4 = 20 of
// 21.5, flange of the double channel 36/6 = 6 of 6. Pipe 50 of 50. H and box: judged by the checks.
TEST(UnjudgedPlates, AreNoneWithinTheLimits) {
  EXPECT_THAT(simple_beam(Shape::tee, {60, 100, 10, 8, 0, 0, 0, 0}).remarks("B12"), IsEmpty());
  EXPECT_THAT(simple_beam(Shape::channel, {92, 40, 4, 6, 40, 6, 0, 0}).remarks("B12"), IsEmpty());
  EXPECT_THAT(simple_beam(Shape::double_channel, {92, 40, 4, 6, 10, 0, 0, 0}).remarks("B12"),
              IsEmpty());
  EXPECT_THAT(simple_beam(Shape::pipe, {100, 2, 0, 0, 0, 0, 0, 0}).remarks("B12"), IsEmpty());
  EXPECT_THAT(simple_beam(Shape::box, {400, 400, 2, 2, 398, 2, 0, 0}).remarks("B12"), IsEmpty());
}

// D/t 100; weakly hardening welded 8400/240 = 35; strongly hardening 8400/110, welded 6000/110.
TEST(UnjudgedPlates, OfPipesGoByAlloyAndWeld) {
  const std::array<double, 8> pipe{200, 2, 0, 0, 0, 0, 0, 0};
  const auto ratio = [](const Frame& frame) { return frame.remarks("B12").at(0).value.value(); };
  EXPECT_NEAR(ratio(simple_beam(Shape::pipe, pipe).welded()), 100.0 / 35.0, rounding);
  const Frame soft = simple_beam(Shape::pipe, pipe, "6063-T5");
  EXPECT_NEAR(ratio(soft), 100.0 * 110.0 / 8400.0, rounding);
  EXPECT_NEAR(ratio(Frame(soft).welded()), 100.0 * 110.0 / 6000.0, rounding);
}

// 12 mm thick: 12000/f0.2 with that of thick parts, 300: limit 40, D/t 600/12 = 50; the thin one,
// 240, would allow 50.
TEST(UnjudgedPlates, AreJudgedByTheStrengthOfTheirThickness) {
  Frame frame = simple_beam(Shape::pipe, {600, 12, 0, 0, 0, 0, 0, 0});
  frame.with_material([](model::Material& material) { material.f02_thick = 300.0; });
  EXPECT_NEAR(frame.remarks("B12").at(0).value.value(), 50.0 / 40.0, rounding);
}

// Stems (100 − 8)/6 and (200 − 8)/6 of limit 6.
TEST(UnjudgedPlates, AreOneRemarkWithTheWorst) {
  Frame frame = portal(Shape::tee, {100, 100, 6, 8, 0, 0, 0, 0});
  model::Section deep = *frame.model().sections.find(1);
  deep.number = 2;
  deep.dimensions[0] = 200.0;
  frame.model().sections.add(deep);
  frame.with(2, [](model::Element& element) { element.section = 2; });
  const auto remarks = frame.remarks("B12");
  ASSERT_THAT(remarks, SizeIs(1));
  EXPECT_THAT(remarks[0].elements, ElementsAre(1, 2, 3));
  EXPECT_EQ(remarks[0].element, 2U);
  EXPECT_EQ(remarks[0].section, 2U);
  EXPECT_NEAR(remarks[0].value.value(), 192.0 / 6 / 6, rounding);
}

// Web (200 − 2·3)/2 = 97; limit in bending 21.5·√(23.88/4) = 52.5; above 60 in shear.
TEST(SlenderWebs, OfABoxAreNamedWithTheirShareOfTheLimitInBending) {
  const auto remarks = simple_beam(Shape::box, {200, 60, 2, 3, 58, 3, 0, 0}).remarks("B2");
  ASSERT_THAT(remarks, SizeIs(1));
  EXPECT_NEAR(remarks[0].value.value(), 97.0 / (21.5 * std::sqrt(23.88 / 4.0)), rounding);
  EXPECT_THAT(remarks[0].text, HasSubstr("the web of section 1 has 1.85 times"));
  EXPECT_THAT(remarks[0].text, HasSubstr("at h/t up to 97 look at shear buckling"));
}

// Web of an H, (120 − 2·8 − 2·2)/1.75 = 57.1: over 52.5, below 60.
TEST(SlenderWebs, HaveNoWordOnShearBelowItsBound) {
  const auto remarks = simple_beam(Shape::h_section, {120, 60, 1.75, 8, 60, 8, 2, 0}).remarks("B2");
  ASSERT_THAT(remarks, SizeIs(1));
  EXPECT_NEAR(remarks[0].value.value(), 100.0 / 1.75 / (21.5 * std::sqrt(5.97)), rounding);
  EXPECT_THAT(remarks[0].text, Not(HasSubstr("shear")));
}

// 6063-T5: limit 17·√(240/110)·√5.97 = 61.4, web (126 − 6)/2 = 60 below it; welded 15 in place of
// 17 gives 54.1.
TEST(SlenderWebs, AreJudgedByAlloyAndWeld) {
  const Frame frame = simple_beam(Shape::box, {126, 60, 2, 3, 58, 3, 0, 0}, "6063-T5");
  EXPECT_THAT(frame.remarks("B2"), IsEmpty());
  EXPECT_NEAR(Frame(frame).welded().remarks("B2").at(0).value.value(),
              60.0 / (15.0 * std::sqrt(240.0 / 110.0) * std::sqrt(5.97)), rounding);
}

TEST(SlenderWebs, AreNoneOfTrusses) {
  Frame frame = simple_beam(Shape::box, {200, 60, 2, 3, 58, 3, 0, 0});
  frame.with(1, [](model::Element& element) { element.kind = model::ElementKind::truss; });
  EXPECT_THAT(frame.remarks("B2"), IsEmpty());
}

TEST(SlenderWebs, AreNoneOfStandardProfiles) {
  for (const catalogue::Profile& profile : catalogue::profiles()) {
    EXPECT_THAT(simple_beam(profile.shape, profile.dimensions).remarks("B2"), IsEmpty())
        << profile.name;
  }
}

// The limits of flanges of C and webs of H are those by which the check engine itself judges: it
// answers width over thickness over the limit. Web (200 − 2·8)/4 = 46, flange of the H below;
// flange of the channel (50 − 5)/5 = 9.
TEST(PlateLimits, AreThoseOfTheChecksInEveryAlloy) {
  for (const catalogue::Alloy& alloy : catalogue::alloys()) {
    for (const bool welded : {false, true}) {
      Frame web = simple_beam(Shape::h_section, {200, 20, 4, 8, 20, 8, 0, 0}, alloy.grade);
      Frame flange = simple_beam(Shape::channel, {100, 50, 5, 5, 50, 5, 0, 0}, alloy.grade);
      const auto expect = [welded](Frame& frame, PlateEdges edges, double slenderness) {
        if (welded) frame.welded();
        const model::Model& model = frame.model();
        const double limit = plate_limit(edges, *model.sections.find(1), *model.materials.find(1));
        EXPECT_NEAR(EffectiveAreas(model).with_ribs(*model.elements.find(1), false).slenderness,
                    slenderness / limit, rounding);
      };
      SCOPED_TRACE(std::string(alloy.grade) + (welded ? " welded" : ""));
      expect(web, PlateEdges::both_held, 46.0);
      expect(flange, PlateEdges::one_held, 9.0);
    }
  }
}

}  // namespace
}  // namespace aluframe::remarks

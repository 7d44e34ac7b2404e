#include "aluframe/section/second_computation.h"

#include "sections.h"

namespace aluframe::section {
namespace {

using model::Shape;

TEST(TorsionRemark, TellsOfAFlangeThatHardlyStandsOut) {
  // T 40x10x9x20 lies between the rectangles 40x9 and 40x10, of 0.286·40·9³ = 8341 and
  // 0.281·40·10³ = 11240 mm⁴; the formula has 4580 of the flange, 4170 of the web and 8290 of the
  // junction's circle, which does not fit into the section.
  const model::Section section = make_section(Shape::tee, {40, 10, 9, 20});
  const auto remark = torsion_remark(section);
  ASSERT_TRUE(remark.has_value());
  EXPECT_NE(remark->find("by formula, 170"), std::string::npos) << *remark;
  EXPECT_GT(compute_on_mesh(section)->it, 8341);
  EXPECT_LT(compute_on_mesh(section)->it, 11240);
}

TEST(TorsionRemark, IsSilentForOrdinarySections) {
  EXPECT_FALSE(torsion_remark(make_section(Shape::h_section, {400, 100, 3, 3, 40, 12})));
  EXPECT_FALSE(torsion_remark(make_section(Shape::channel, {100, 50, 5, 8, 50, 8})));
}

TEST(TorsionRemark, IsSilentForAGivenConstant) {
  model::Section section = make_section(Shape::tee, {40, 10, 9, 20});
  section.given.it = 1e4;
  EXPECT_FALSE(torsion_remark(section));
}

TEST(TorsionRemark, IsSilentForRoundsBoxesAndSectionsGivenByProperties) {
  EXPECT_FALSE(torsion_remark(make_section(Shape::solid_round, {30})));
  EXPECT_FALSE(torsion_remark(make_section(Shape::box, {60, 60, 10, 10, 50, 10})));
  EXPECT_FALSE(torsion_remark(make_section(Shape::other, {})));
}

}  // namespace
}  // namespace aluframe::section

#include "sections.h"

namespace aluframe::section {
namespace {

using model::Shape;

TEST(GivenProperties, StandInsteadOfTheComputedOnes) {
  model::Section section = make_section(Shape::h_section, {200, 100, 6, 10, 100, 10});
  section.given = {.area = 1,
                   .it = 2,
                   .iyy = 3,
                   .izz = 4,
                   .qyb = 5,
                   .qzb = 6,
                   .iw = 7,
                   .shear_centre_z = -8,
                   .point_y = std::array{1.0, 2.0, 3.0, 4.0},
                   .point_z = std::array{5.0, 6.0, -7.0, -8.0}};
  const model::SectionProperties expected{.area = 1,
                                          .it = 2,
                                          .iyy = 3,
                                          .izz = 4,
                                          .qyb = 5,
                                          .qzb = 6,
                                          .iw = 7,
                                          .shear_centre_z = -8,
                                          .point_y = {1, 2, 3, 4},
                                          .point_z = {5, 6, -7, -8}};
  EXPECT_EQ(properties_of(section), expected);
}

TEST(GivenProperties, LeaveTheOthersComputed) {
  model::Section section = make_section(Shape::h_section, {200, 100, 6, 10, 100, 10});
  model::SectionProperties expected = properties_of(section);
  section.given.izz = 1.7e6;
  expected.izz = 1.7e6;
  EXPECT_EQ(properties_of(section), expected);
}

TEST(GivenProperties, AreAllThatASectionOfAnotherShapeHas) {
  model::Section section = make_section(Shape::other, {});
  section.given.area = 1000;
  section.given.iyy = 2e6;
  section.given.izz = 1e6;
  section.given.point_y = {-20, 20, 20, -20};
  section.given.point_z = {50, 50, -60, -60};
  const model::SectionProperties found = properties_of(section);
  EXPECT_EQ(found.area, 1000);
  EXPECT_EQ(found.it, 0.0);
  EXPECT_EQ(found.qyb, 0.0);
  EXPECT_EQ(found.point_z, (std::array{50.0, 50.0, -60.0, -60.0}));
}

TEST(GivenProperties, OfNoWarpingStiffnessGetATinyConstant) {
  // 1e-9·Izz·H², as for a shape that has none by theory.
  model::Section section = make_section(Shape::h_section, {200, 100, 6, 10, 100, 10});
  section.given.izz = 1e6;
  section.given.iw = 0.0;
  expect_close(properties_of(section).iw, 1e-9 * 1e6 * square(200));
}

}  // namespace
}  // namespace aluframe::section

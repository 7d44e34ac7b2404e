// The scale on which forces without a check are large or negligible.

#include "aluframe/services/plain_capacity.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace aluframe::services {
namespace {

/// fv of an alloy with f0.2 of 240 N/mm²: 240/1.2/√3.
const double fv = 200.0 / std::sqrt(3.0);

/// Of an element with this section, in an alloy with f0.2 of 240 N/mm².
PlainCapacity capacity_of(model::Shape shape, std::array<double, 8> dimensions) {
  model::Model model;
  model::Material material;
  material.number = 1;
  material.f02_thin = 240;
  model.materials.add(material);
  model::Section section;
  section.number = 1;
  section.shape = shape;
  section.dimensions = dimensions;
  model.sections.add(section);
  model::Element element;
  element.number = 1;
  element.section = 1;
  element.material = 1;
  model.elements.add(element);
  return plain_capacity(model, 1);
}

// Closed forms: largest shear 4/3 of the mean, torsion π·D³/16.
TEST(PlainCapacity, OfASolidRound) {
  const double area = std::numbers::pi / 4 * 40 * 40;
  const PlainCapacity capacity = capacity_of(model::Shape::solid_round, {40});
  EXPECT_NEAR(capacity.shear_y, fv * area * 3 / 4, 1e-6 * fv * area);
  EXPECT_NEAR(capacity.shear_z, fv * area * 3 / 4, 1e-6 * fv * area);
  EXPECT_NEAR(capacity.torsion, fv * std::numbers::pi / 16 * 64000, 1e-3 * fv);
}

// By hand: Iyy = (80·100³ − 76·88³)/12 = 2,350,677 over the first moment of half, 80·6·47 + 44·4·22
// = 26,432, by a web of 4; Izz = 512,469 over that of half the flanges, 2·6·40·20 = 9,600, by 12.
TEST(PlainCapacity, OfAnHSectionInShear) {
  const PlainCapacity capacity = capacity_of(model::Shape::h_section, {100, 80, 4, 6, 80, 6, 0, 0});
  EXPECT_NEAR(capacity.shear_z, fv * 2350677 / 6608, 1e-6 * capacity.shear_z);
  EXPECT_NEAR(capacity.shear_y, fv * 512469 / 800, 1e-6 * capacity.shear_y);
}

// Closed form: π/16·(D⁴ − d⁴)/D.
TEST(PlainCapacity, OfAPipeInTorsion) {
  const double modulus = std::numbers::pi / 16 * (1e8 - 80.0 * 80 * 80 * 80) / 100;
  EXPECT_NEAR(capacity_of(model::Shape::pipe, {100, 10}).torsion, fv * modulus, 1e-6 * modulus);
}

// Bredt: walls 100 × 60 out to out, 4 mm at the sides, 5 mm above and below: 2·(56·95)·4.
TEST(PlainCapacity, OfABoxInTorsion) {
  EXPECT_NEAR(capacity_of(model::Shape::box, {100, 60, 4, 5, 56, 5}).torsion, fv * 2 * 56 * 95 * 4,
              1e-6 * fv);
}

// St-Venant: Σb·t³/3 over the thickest plate, 2·80·6³/3 + 88·4³/3 over 6. A tenth for how far
// plates reach into their corners and how their ends are counted.
TEST(PlainCapacity, OfAnHSectionInTorsion) {
  const double modulus = (2 * 80 * 216.0 + 88 * 64.0) / 3 / 6;
  EXPECT_NEAR(capacity_of(model::Shape::h_section, {100, 80, 4, 6, 80, 6}).torsion, fv * modulus,
              0.1 * fv * modulus);
}

TEST(PlainCapacity, OfPropertiesAloneIsUnknown) {
  EXPECT_EQ(capacity_of(model::Shape::other, {}).torsion, 0.0);
  EXPECT_EQ(capacity_of(model::Shape::other, {}).shear_z, 0.0);
}

}  // namespace
}  // namespace aluframe::services

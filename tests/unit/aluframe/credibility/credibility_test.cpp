#include "aluframe/credibility/credibility.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numbers>

namespace aluframe::credibility {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

/// One beam of 3 m, a box 150x60x3x3 of an alloy; tests spoil one magnitude of it. Numbers are not
/// places, so that a text that mixes them up fails.
model::Model beam() {
  model::Model model;
  model::Material material;
  material.number = 40;
  material.f02_thin = material.f02_thick = 110.0;
  material.fu = 160.0;
  model.materials.add(material);
  model::Section section;
  section.number = 50;
  section.shape = model::Shape::box;
  section.dimensions = {150, 60, 3, 3, 57, 3, 0, 0};
  model.sections.add(section);
  model.nodes.add({.number = 1, .name = {}, .x = 0, .y = 0, .z = 0});
  model.nodes.add({.number = 2, .name = {}, .x = 3000, .y = 0, .z = 0});
  model::Element element;
  element.number = 12;
  element.nodes = {1, 2};
  element.section = 50;
  element.material = 40;
  model.elements.add(element);
  model::LoadCase load_case;
  load_case.number = 7;
  model.load_cases.add(load_case);
  return model;
}

/// The beam with the first entity of a table changed.
template <class Entity, class Change>
std::vector<Doubt> with_first(model::Table<Entity> model::Model::* table, Change change) {
  model::Model model = beam();
  Entity entity = (model.*table)[0];
  change(entity);
  (model.*table).replace(entity);
  return doubts(model);
}

template <class Change>
std::vector<Doubt> with_element(Change change) {
  return with_first(&model::Model::elements, change);
}

template <class Change>
std::vector<Doubt> with_section(Change change) {
  return with_first(&model::Model::sections, change);
}

template <class Change>
std::vector<Doubt> with_material(Change change) {
  return with_first(&model::Model::materials, change);
}

std::vector<Doubt> with_length(double length) {
  model::Model model = beam();
  model.nodes.replace({.number = 2, .name = {}, .x = length, .y = 0, .z = 0});
  return doubts(model);
}

std::vector<Doubt> with_force(std::size_t component, double force) {
  model::Model model = beam();
  model.forces.resize(1, 1);
  model::CaseForces forces;
  forces.at[4][component] = static_cast<float>(-force);
  model.forces.set(0, 0, forces);
  return doubts(model);
}

TEST(Credibility, OfAUsualModelIsNotDoubted) {
  EXPECT_THAT(doubts(beam()), IsEmpty());
}

TEST(Credibility, OfSpansEndsAtOneHundredMillimetresAndAtFiveHundredMetres) {
  EXPECT_THAT(with_length(100.0), IsEmpty());
  EXPECT_THAT(with_length(500e3), IsEmpty());
  ASSERT_EQ(with_length(3.0).size(), 1U);
  EXPECT_EQ(with_length(3.0)[0].text,
            "/elements/0: a span of 3 mm begins with element 12, usual are 100 mm to 500 m: are "
            "coordinates in a larger unit than \"m\"?");
  EXPECT_EQ(with_length(3.0)[0].elements, std::vector<model::Number>{12});
  ASSERT_EQ(with_length(3e6).size(), 1U);
  EXPECT_EQ(with_length(3e6)[0].text,
            "/elements/0: a span of 3000 m begins with element 12, usual are 100 mm to 500 m: are "
            "coordinates in a smaller unit than \"m\"?");
}

TEST(Credibility, OfASpanIsThatOfTheWholeMember) {
  model::Model model = beam();
  model.nodes.replace({.number = 2, .name = {}, .x = 60, .y = 0, .z = 0});
  model.nodes.add({.number = 3, .name = {}, .x = 120, .y = 0, .z = 0});
  model::Element second = model.elements[0];
  second.number = 13;
  second.nodes = {2, 3};
  model.elements.add(second);
  EXPECT_EQ(doubts(model).size(), 1U);
  model::Member member;
  member.number = 1;
  member.elements = {12, 13};
  model.members.add(member);
  EXPECT_THAT(doubts(model), IsEmpty());
}

TEST(Credibility, OfPlatesEndsAtATenthOfAMillimetreAndAtOneHundred) {
  const auto web = [](double thickness) {
    return with_section([&](model::Section& section) {
      section.dimensions = {900, 600, thickness, 3, 500, 3, 0, 0};
    });
  };
  EXPECT_THAT(web(100.0), IsEmpty());
  EXPECT_THAT(web(0.1), IsEmpty());
  ASSERT_EQ(web(101.0).size(), 1U);
  EXPECT_EQ(web(101.0)[0].text,
            "/sections/0: tw of section 50 is 101 mm, walls of aluminium sections have 0.1 to 100 "
            "mm: are its dimensions in another unit than \"mm\"?");
  EXPECT_THAT(web(0.09)[0].text, StartsWith("/sections/0: tw of section 50 is 0.09 mm"));
}

// A strip b x h has I = A·h²/12 about its own middle and reaches h/2 to both sides; two strips at
// the outermost fibres have A·h²/4.
TEST(Credibility, OfInertiaLiesBetweenAStripAndTwoFlanges) {
  EXPECT_DOUBLE_EQ(largest_inertia(200.0, 50.0, 50.0), 200.0 * 100.0 * 100.0 / 4);
  EXPECT_DOUBLE_EQ(smallest_inertia(200.0, 100.0), 100.0 * 2.0 * 2.0 * 2.0 / 12);
}

std::vector<Doubt> of_strip(double area, double iyy, double izz) {
  return with_section([&](model::Section& section) {
    section.shape = model::Shape::other;
    section.dimensions = {};
    section.given.area = area;
    section.given.iyy = iyy;
    section.given.izz = izz;
    section.given.point_y = {-5, 5, 5, -5};
    section.given.point_z = {50, 50, -50, -50};
  });
}

// A strip 10 x 100: A 1000 mm², Iyy 10·100³/12, Izz 100·10³/12.
TEST(Credibility, OfInertiaThatDoesNotFitItsAreaIsDoubted) {
  constexpr double iyy = 10.0 * 100 * 100 * 100 / 12;
  constexpr double izz = 100.0 * 10 * 10 * 10 / 12;
  EXPECT_THAT(of_strip(1000, iyy, izz), IsEmpty());
  ASSERT_EQ(of_strip(1000, iyy * 100, izz).size(), 1U);
  EXPECT_EQ(
      of_strip(1000, iyy * 100, izz)[0].text,
      "/sections/0/properties: section 50 has Iyy = 8.333e+07 mm⁴ with an area of 1000 mm², a "
      "section between its stress points has 8.33e+05 to 2.5e+06: is one of them in another "
      "unit than \"mm\"?");
  // In cm⁴ where mm⁴ are declared, and an area in cm².
  EXPECT_THAT(of_strip(1000, iyy / 1e4, izz)[0].text, HasSubstr("has Iyy = 83.33 mm⁴"));
  EXPECT_THAT(of_strip(1000, iyy, izz / 1e4)[0].text, HasSubstr("has Izz = 0.8333 mm⁴"));
  EXPECT_THAT(of_strip(10, iyy, izz)[0].text, HasSubstr("with an area of 10 mm²"));
}

class BetaInRadians : public testing::TestWithParam<double> {};

TEST_P(BetaInRadians, IsDoubted) {
  const auto found = with_element([](model::Element& element) { element.beta = GetParam(); });
  ASSERT_EQ(found.size(), 1U);
  EXPECT_THAT(found[0].text, StartsWith("/elements/0/beta: element 12 is turned by "));
}

INSTANTIATE_TEST_SUITE_P(Angles, BetaInRadians,
                         testing::Values(std::numbers::pi / 2, 1.571, -1.5708, 3.14159, 0.7854,
                                         0.5236, 1.0472, 2.0944, 2.35619, 4.71239, 6.28319));

TEST(Credibility, OfAnglesInDegreesIsNotDoubted) {
  for (const double beta : {0.0, 1.0, 1.5, 2.0, 3.0, 5.0, 12.5, 45.0, 90.0, -90.0, 180.0, 270.0}) {
    EXPECT_THAT(with_element([&](model::Element& element) { element.beta = beta; }), IsEmpty())
        << beta;
  }
}

TEST(Credibility, OfModuliAndDensitiesIsThatOfMetals) {
  const auto in_pascal = with_material([](model::Material& material) { material.e = 70e9; });
  ASSERT_EQ(in_pascal.size(), 1U);
  EXPECT_EQ(in_pascal[0].text,
            "/materials/0/e: material 40 has E = 7e+10 N/mm², metals have 10000 to 500000 "
            "(aluminium 70000): is it in another unit?");
  EXPECT_EQ(with_material([](model::Material& material) { material.e = 70.0; }).size(), 1U);
  EXPECT_THAT(with_material([](model::Material& material) { material.e = 210e3; }), IsEmpty());
  const auto in_metres = with_material([](model::Material& material) { material.density = 2700; });
  ASSERT_EQ(in_metres.size(), 1U);
  EXPECT_EQ(in_metres[0].text,
            "/materials/0/density: material 40 has 2700 kg/mm³, metals have 1e-6 to 2.5e-5 "
            "(aluminium 2.7e-6): is it in kg/m³?");
  EXPECT_THAT(with_material([](model::Material& material) { material.density = 0; }), IsEmpty());
}

// The box has A = 150·60 − 144·54 = 1224 mm² and Iyy = (60·150³ − 54·144³)/12 = 3,438,072 mm⁴, so
// that it carries 1224·160 = 195.84 kN and 3,438,072/75·160 = 7.3346 kNm.
TEST(Credibility, OfForcesEndsAtAThousandTimesTheStrength) {
  EXPECT_THAT(with_force(0, 195.8e6), IsEmpty());
  ASSERT_EQ(with_force(0, 391.68e6).size(), 1U);
  EXPECT_EQ(
      with_force(0, 391.68e6)[0].text,
      "/elements/0: N of element 12 under load case 7 is 3.92e+05 kN, 2e+03 times what its "
      "section carries at its ultimate strength: are the loads or forces in another unit than "
      "\"kN\"?");
  EXPECT_THAT(with_force(4, 7.33e9), IsEmpty());
  ASSERT_EQ(with_force(4, 14.6692e9).size(), 1U);
  EXPECT_THAT(with_force(4, 14.6692e9)[0].text, HasSubstr("My of element 12 under load case 7 is "
                                                          "1.47e+04 kNm, 2e+03 times"));
}

}  // namespace
}  // namespace aluframe::credibility

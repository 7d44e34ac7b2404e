#include "aluframe/forces/frame_of_model.h"

#include <gtest/gtest.h>

#include "tests/unit/aluframe/forces/models.h"

namespace aluframe::forces {
namespace {

using testing::DoubleEq;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::SizeIs;

TEST(FrameOfModel, HasNodesInTheOrderOfTheModelUnderTheirNumbers) {
  model::Model model = bare_model();
  add_node(model, 14, 1, 2, 3);
  add_node(model, 3, 4, 5, 6);
  const analysis::Frame frame = frame_of(model);
  ASSERT_THAT(frame.nodes, SizeIs(2));
  EXPECT_EQ(frame.nodes[0].number, 14U);
  EXPECT_EQ(frame.nodes[0].z, 3.0);
  EXPECT_EQ(frame.nodes[1].number, 3U);
  EXPECT_EQ(frame.nodes[1].x, 4.0);
}

TEST(FrameOfModel, FindsTheNodesOfAnElementByNumber) {
  model::Model model = bare_model();
  add_node(model, 14, 0, 0, 0);
  add_node(model, 3, 1000, 0, 0);
  model.elements.add(beam(8, 3, 14));
  const analysis::Frame frame = frame_of(model);
  ASSERT_THAT(frame.elements, SizeIs(1));
  EXPECT_EQ(frame.elements[0].number, 8U);
  EXPECT_EQ(frame.elements[0].start, 1U);
  EXPECT_EQ(frame.elements[0].end, 0U);
}

TEST(FrameOfModel, TakesStiffnessFromSectionAndMaterial) {
  // G = E/(2(1 + ν)).
  model::Model model = straight_beam(1000);
  model::Material soft;
  soft.number = 1;
  soft.e = 60000;
  soft.poisson = 0.25;
  model.materials.replace(soft);
  const analysis::Stiffness s = frame_of(model).elements[0].stiffness;
  EXPECT_EQ(s.e, 60000.0);
  EXPECT_THAT(s.g, DoubleEq(24000.0));
  EXPECT_EQ(s.area, 2000.0);
  EXPECT_EQ(s.it, 4.0e5);
  EXPECT_EQ(s.iyy, 1.2e7);
  EXPECT_EQ(s.izz, 3.0e6);
}

TEST(FrameOfModel, SectionGivenByItsPropertiesIsRigidInShear) {
  const analysis::Stiffness s = frame_of(straight_beam(1000)).elements[0].stiffness;
  EXPECT_EQ(s.ay, 0.0);
  EXPECT_EQ(s.az, 0.0);
}

TEST(FrameOfModel, SectionByDimensionsBringsItsInertiasAndShearAreas) {
  // H 200x100x6x8 by hand: A = 2·100·8 + 184·6; Iyy = (100·200³ − 94·184³)/12;
  // Izz = 2·8·100³/12 + 184·6³/12; web 192·6 between the flanges' middles; 5/6 of the flanges.
  model::Model model = straight_beam(1000);
  model::Section section;
  section.number = 1;
  section.shape = model::Shape::h_section;
  section.dimensions = {200, 100, 6, 8, 100, 8, 0, 0};
  model.sections.replace(section);
  const analysis::Stiffness s = frame_of(model).elements[0].stiffness;
  EXPECT_THAT(s.area, DoubleNear(2704.0, 1e-9));
  EXPECT_THAT(s.iyy, DoubleNear(214426624.0 / 12, 1e-3));
  EXPECT_THAT(s.izz, DoubleNear(16039744.0 / 12, 1e-3));
  EXPECT_THAT(s.az, DoubleNear(1152.0, 1e-9));
  EXPECT_THAT(s.ay, DoubleNear(1600.0 * 5 / 6, 1e-9));
}

TEST(FrameOfModel, EachElementHasItsOwnSectionAndMaterial) {
  model::Model model = straight_beam(1000);
  model::Section big = plain_section(2);
  big.given.area = 9000;
  model.sections.add(big);
  model::Material steel;
  steel.number = 7;
  steel.e = 206000;
  model.materials.add(steel);
  model::Element second = beam(6, 20, 10);
  second.section = 2;
  second.material = 7;
  model.elements.add(second);
  const analysis::Frame frame = frame_of(model);
  EXPECT_EQ(frame.elements[0].stiffness.area, 2000.0);
  EXPECT_EQ(frame.elements[0].stiffness.e, 70000.0);
  EXPECT_EQ(frame.elements[1].stiffness.area, 9000.0);
  EXPECT_EQ(frame.elements[1].stiffness.e, 206000.0);
}

TEST(FrameOfModel, CarriesBetaReleasesDensityAndExpansion) {
  model::Model model = bare_model();
  add_node(model, 20, 0, 0, 0);
  add_node(model, 10, 1000, 0, 0);
  model::Element element = beam(5, 20, 10);
  element.beta = 30;
  element.released[4] = element.released[11] = true;
  model.elements.add(element);
  const analysis::Element found = frame_of(model).elements[0];
  EXPECT_EQ(found.beta, 30.0);
  EXPECT_EQ(found.released, element.released);
  EXPECT_EQ(found.density, 2.7e-6);
  EXPECT_EQ(found.expansion, 2.3e-5);
  EXPECT_EQ(found.kind, analysis::ElementKind::beam);
}

TEST(FrameOfModel, CarriesTheDirectionOfAnOrientation) {
  model::Model model = bare_model();
  add_node(model, 20, 100, 0, 0);
  add_node(model, 10, 1000, 0, 0);
  add_node(model, 30, 100, 500, -2000);
  model::Element by_node = beam(5, 20, 10), by_vector = beam(6, 20, 10);
  by_node.orientation = model::Number{30};
  by_vector.orientation = std::array{0.0, 2.0, 1.0};
  for (const model::Element& element : {by_node, by_vector, beam(7, 20, 10)}) {
    model.elements.add(element);
  }
  const analysis::Frame frame = frame_of(model);
  EXPECT_EQ(frame.elements[0].reference, (analysis::Vector3{0, 500, -2000}));
  EXPECT_EQ(frame.elements[1].reference, (analysis::Vector3{0, 2, 1}));
  EXPECT_EQ(frame.elements[2].reference, std::nullopt);
}

TEST(FrameOfModel, KnowsTrusses) {
  model::Model model = bare_model();
  add_node(model, 20, 0, 0, 0);
  add_node(model, 10, 1000, 0, 0);
  model.elements.add(truss(5, 20, 10));
  EXPECT_EQ(frame_of(model).elements[0].kind, analysis::ElementKind::truss);
}

TEST(FrameOfModel, SupportWithoutSpringsHasNone) {
  model::Model model = straight_beam(1000);
  add_support(model, 10, pinned);
  const analysis::Frame frame = frame_of(model);
  ASSERT_THAT(frame.supports, SizeIs(1));
  EXPECT_EQ(frame.supports[0].node, 1U);
  EXPECT_EQ(frame.supports[0].fixed, pinned);
  EXPECT_THAT(frame.springs, SizeIs(0));
}

TEST(FrameOfModel, SupportMayHoldRigidlyAndBySprings) {
  model::Model model = straight_beam(1000);
  model.supports.push_back({10, pinned, {0, 0, 0, 0, 5e8, 0}});
  const analysis::Frame frame = frame_of(model);
  ASSERT_THAT(frame.springs, SizeIs(1));
  EXPECT_EQ(frame.springs[0].node, 1U);
  EXPECT_THAT(frame.springs[0].stiffness, ElementsAre(0, 0, 0, 0, 5e8, 0));
}

}  // namespace
}  // namespace aluframe::forces

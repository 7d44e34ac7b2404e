// Remarks on loads that would bend trusses.

#include "remark_frames.h"

namespace aluframe::remarks {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr model::LoadDirection down{.axes = model::LoadAxes::global, .axis = 2};

void be_truss(model::Element& element) {
  element.kind = model::ElementKind::truss;
}

/// The portal with its beam, element 2, as a truss, under one load case.
Frame loaded(const model::CaseLoads& loads) {
  Frame frame = portal();
  frame.with(2, be_truss);
  model::LoadCase load_case;
  load_case.number = 1;
  load_case.loads = loads;
  frame.model().load_cases.add(load_case);
  return frame;
}

model::CaseLoads span(const model::Targets& elements, model::LoadDirection direction = down) {
  model::CaseLoads loads;
  loads.span.push_back(
      {.elements = elements, .direction = direction, .from_value = -1.0, .to_value = -1.0});
  return loads;
}

model::CaseLoads point(double at) {
  model::CaseLoads loads;
  loads.points.push_back(
      {.elements = {.all = false, .numbers = {2}}, .direction = down, .value = -1e3, .at = at});
  return loads;
}

TEST(BentTrusses, AreThoseOfTheListedElements) {
  const auto remarks = loaded(span({.all = false, .numbers = {1, 2}})).remarks("truss");
  ASSERT_THAT(remarks, SizeIs(1));
  EXPECT_THAT(remarks[0].elements, ElementsAre(2));
  EXPECT_THAT(remarks[0].text, HasSubstr("their bending is left out"));
}

TEST(BentTrusses, AreAllOfALoadOnAll) {
  Frame frame = loaded(span({.all = true, .numbers = {}}, {model::LoadAxes::local, 1}));
  frame.with(3, be_truss);
  EXPECT_THAT(frame.remarks("truss").at(0).elements, ElementsAre(2, 3));
}

TEST(BentTrusses, AreNoneUnderTheirOwnWeight) {
  model::CaseLoads loads;
  loads.self_weight = {0.0, 0.0, -1.0};
  EXPECT_THAT(loaded(loads).remarks("truss"), IsEmpty());
}

TEST(BentTrusses, AreThoseOfPointLoadsBetweenTheEnds) {
  EXPECT_THAT(loaded(point(0.0)).remarks("truss"), IsEmpty());
  EXPECT_THAT(loaded(point(1.0)).remarks("truss"), IsEmpty());
  EXPECT_THAT(loaded(point(0.5)).remarks("truss"), SizeIs(1));
}

// Element 2 lies along X, element 3 along Z.
TEST(BentTrusses, AreNoneOfLoadsAlongThem) {
  const model::Targets all{.all = true, .numbers = {}};
  EXPECT_THAT(loaded(span(all, {model::LoadAxes::local, 0})).remarks("truss"), IsEmpty());
  EXPECT_THAT(loaded(span(all, {model::LoadAxes::global, 0})).remarks("truss"), IsEmpty());
  Frame upright = loaded(span(all, {model::LoadAxes::global, 2}));
  upright.with(3, be_truss);
  EXPECT_THAT(upright.remarks("truss").at(0).elements, ElementsAre(2));
}

TEST(BentTrusses, AreNoBeams) {
  EXPECT_THAT(loaded(span({.all = false, .numbers = {1, 3}})).remarks("truss"), IsEmpty());
}

}  // namespace
}  // namespace aluframe::remarks

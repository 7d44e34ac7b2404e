// Forces of small structures, from the engineer's description to the five positions. Expected
// values by statics or by textbook formulas; signs as docs/sign-convention.md has them.

#include <gtest/gtest.h>

#include "tests/unit/aluframe/forces/models.h"

namespace aluframe::forces {
namespace {

using model::LoadAxes;
using PointKind = model::PointLoad::Kind;

/// Forces of the model under one case.
model::Model solved(model::Model model, const model::CaseLoads& loads) {
  add_case(model, loads);
  return with_forces(std::move(model));
}

model::Model solved(model::Model model, const model::SpanLoad& load) {
  model::CaseLoads loads;
  loads.span.push_back(load);
  return solved(std::move(model), loads);
}

model::Model solved(model::Model model, const model::PointLoad& load) {
  model::CaseLoads loads;
  loads.points.push_back(load);
  return solved(std::move(model), loads);
}

model::Model solved(model::Model model, const model::TemperatureLoad& load) {
  model::CaseLoads loads;
  loads.temperature.push_back(load);
  return solved(std::move(model), loads);
}

model::PointLoad at(double place, const model::LoadDirection& direction, PointKind kind,
                    double value) {
  return {{true, {}}, direction, kind, value, place};
}

TEST(SimpleBeam, UnderUniformLoadHasTheParabolaOfMoments) {
  // qL²/8 in the middle, 3/4 of it at the quarters, qL/2 at the supports.
  const model::Model m = solved(simple_beam(6000), uniform(downwards, -3.6));
  EXPECT_THAT(forces_at(m, 5, 0)[fz], about(10800));
  EXPECT_THAT(forces_at(m, 5, 1)[my], about(12.15e6));
  EXPECT_THAT(forces_at(m, 5, 2)[my], about(16.2e6));
  EXPECT_THAT(forces_at(m, 5, 3)[my], about(12.15e6));
  EXPECT_THAT(forces_at(m, 5, 4)[fz], about(-10800));
  EXPECT_EQ(forces_at(m, 5, 2)[n], 0.0F);
}

TEST(SimpleBeam, PushedSidewaysIsPulledOnTheFarSide) {
  // Towards +y: the face at y > 0 is pulled, Mz = −qL²/8; Fy grows from −qL/2.
  const model::Model m = solved(simple_beam(6000), uniform({LoadAxes::global, 1}, 2));
  EXPECT_THAT(forces_at(m, 5, 0)[fy], about(-6000));
  EXPECT_THAT(forces_at(m, 5, 2)[mz], about(-9.0e6));
  EXPECT_THAT(forces_at(m, 5, 4)[fy], about(6000));
}

TEST(SimpleBeam, UnderATriangleHasASixthAndAThirdOfIt) {
  // From 0 to q: qL/6 at the start, qL/3 at the end, qL²/16 in the middle.
  model::SpanLoad load = uniform(downwards, 0);
  load.to_value = -6;
  const model::Model m = solved(simple_beam(6000), load);
  EXPECT_THAT(forces_at(m, 5, 0)[fz], about(6000));
  EXPECT_THAT(forces_at(m, 5, 2)[my], about(13.5e6));
  EXPECT_THAT(forces_at(m, 5, 4)[fz], about(-12000));
}

TEST(SimpleBeam, LoadedOnItsFirstHalfHasThreeEighthsAtTheStart) {
  // qL·3/8 and qL/8; the middle hangs on the far reaction: qL²/16.
  model::SpanLoad load = uniform(downwards, -4);
  load.to = 0.5;
  const model::Model m = solved(simple_beam(6000), load);
  EXPECT_THAT(forces_at(m, 5, 0)[fz], about(9000));
  EXPECT_THAT(forces_at(m, 5, 2)[my], about(9.0e6));
  EXPECT_THAT(forces_at(m, 5, 4)[fz], about(-3000));
}

TEST(SimpleBeam, UnderAForceAtTheQuarterIsSplitByTheLever) {
  const model::Model m = solved(simple_beam(4000), at(0.25, downwards, PointKind::force, -8000));
  EXPECT_THAT(forces_at(m, 5, 0)[fz], about(6000));
  EXPECT_THAT(forces_at(m, 5, 1)[my], about(6.0e6));
  EXPECT_THAT(forces_at(m, 5, 2)[my], about(4.0e6));
  EXPECT_THAT(forces_at(m, 5, 4)[fz], about(-2000));
}

TEST(SimpleBeam, UnderAMomentInTheMiddleChangesItsSignThere) {
  // About +y the moment presses the end down on its support: M/L up there, M/L down at the start.
  const model::Model m =
      solved(simple_beam(4000), at(0.5, {LoadAxes::local, 1}, PointKind::moment, 4e6));
  EXPECT_THAT(forces_at(m, 5, 0)[fz], about(-1000));
  EXPECT_THAT(forces_at(m, 5, 2)[my], about(-2.0e6));  // on the side towards the start
  EXPECT_THAT(forces_at(m, 5, 3)[my], about(1.0e6));
}

TEST(SimpleBeam, CarriesItsOwnWeightByTheDensityOfItsMaterial) {
  // w = ρ·g·A: 2.7e-6·9.80665·2000 = 0.05295591 N/mm, then three times the density.
  model::CaseLoads weight;
  weight.self_weight = {0, 0, -1};
  model::Model heavy = simple_beam(8000);
  model::Material material;
  material.number = 1;
  material.density = 8.1e-6;
  heavy.materials.replace(material);
  EXPECT_THAT(forces_at(solved(simple_beam(8000), weight), 5, 2)[my], about(423647.28));
  EXPECT_THAT(forces_at(solved(heavy, weight), 5, 2)[my], about(3 * 423647.28));
}

TEST(SimpleBeam, TurnedOnItsSideBendsAboutZ) {
  // With a beta of 90° y points up: gravity compresses the face at y > 0.
  model::Model model = bare_model();
  add_node(model, 20, 0, 0, 0);
  add_node(model, 10, 6000, 0, 0);
  model::Element element = beam(5, 20, 10);
  element.beta = 90;
  model.elements.add(element);
  add_support(model, 20, {true, true, true, true, false, false});
  add_support(model, 10, {false, true, true, false, false, false});
  const model::Model m = solved(model, uniform(downwards, -3.6));
  EXPECT_THAT(forces_at(m, 5, 0)[fy], about(10800));
  EXPECT_THAT(forces_at(m, 5, 2)[mz], about(16.2e6));
  EXPECT_EQ(forces_at(m, 5, 2)[my], 0.0F);
}

/// A rafter of 5 m over 4 m, rising 3 m, simply supported: 2 N/mm in one direction.
struct RafterLoad {
  const char* name;
  model::LoadDirection direction;
  double value;
  double middle;  ///< My, by the length that the load is counted on times its arm over 8
};

void PrintTo(const RafterLoad& load, std::ostream* stream) {
  *stream << load.name;
}

class Rafter : public testing::TestWithParam<RafterLoad> {};
INSTANTIATE_TEST_SUITE_P(
    Directions, Rafter,
    testing::Values(RafterLoad{"PerLength", {LoadAxes::global, 2}, -2, 2.0 * 5000 * 4000 / 8},
                    RafterLoad{"OnThePlan", {LoadAxes::projected, 2}, -2, 2.0 * 4000 * 4000 / 8},
                    RafterLoad{
                        "OnTheElevation", {LoadAxes::projected, 0}, 2, 2.0 * 3000 * 3000 / 8},
                    RafterLoad{"SquareToIt", {LoadAxes::local, 2}, -2, 2.0 * 5000 * 5000 / 8}),
    [](const auto& load) { return load.param.name; });

model::Model rafter() {
  model::Model model = bare_model();
  add_node(model, 1, 0, 0, 0);
  add_node(model, 2, 4000, 0, 3000);
  model.elements.add(beam(1, 1, 2));
  add_support(model, 1, {true, true, true, true, false, false});
  add_support(model, 2, {false, true, true, false, false, false});
  return model;
}

TEST_P(Rafter, HasTheMomentOfItsLoadAndSpan) {
  const model::Model m = solved(rafter(), uniform(GetParam().direction, GetParam().value));
  EXPECT_THAT(forces_at(m, 1, 2)[my], about(GetParam().middle));
}

TEST(SnowOnARafter, PushesItsFootAndPullsItsHead) {
  // 4 kN up at both ends, turned by 3:4:5.
  const model::Model m = solved(rafter(), uniform({LoadAxes::projected, 2}, -2));
  EXPECT_THAT(forces_at(m, 1, 0)[n], about(-2400));
  EXPECT_THAT(forces_at(m, 1, 0)[fz], about(3200));
  EXPECT_THAT(forces_at(m, 1, 4)[n], about(2400));
}

/// A column of 3 m clamped at its foot.
model::Model mast() {
  model::Model model = bare_model();
  add_node(model, 1, 0, 0, 0);
  add_node(model, 2, 0, 0, 3000);
  model.elements.add(beam(1, 1, 2));
  add_support(model, 1, clamped);
  return model;
}

TEST(Mast, InWindAlongXIsPulledOnTheWindwardSide) {
  // z of a column points against X, into the wind: My = −qH²/2.
  const model::Model m = solved(mast(), uniform({LoadAxes::global, 0}, 0.5));
  EXPECT_THAT(forces_at(m, 1, 0)[my], about(-2.25e6));
  EXPECT_EQ(forces_at(m, 1, 4)[my], 0.0F);
}

TEST(Mast, IsPushedByItsOwnWeightMoreTowardsTheFoot) {
  model::CaseLoads weight;
  weight.self_weight = {0, 0, -1};
  const model::Model m = solved(mast(), weight);
  EXPECT_THAT(forces_at(m, 1, 0)[n], about(-0.05295591 * 3000));
  EXPECT_THAT(forces_at(m, 1, 2)[n], about(-0.05295591 * 1500));
  EXPECT_EQ(forces_at(m, 1, 4)[n], 0.0F);
}

TEST(Mast, UnderANodalMomentAboutYIsPulledOnTheSideOfZ) {
  // About +Y the head turns towards +X, away from z: the face at z > 0 is pulled.
  model::CaseLoads loads;
  loads.nodal.push_back({{false, {2}}, {0, 0, 0, 0, 2e6, 0}});
  const model::Model m = solved(mast(), loads);
  EXPECT_THAT(forces_at(m, 1, 0)[my], about(-2e6));
  EXPECT_THAT(forces_at(m, 1, 3)[my], about(-2e6));
}

TEST(Mast, TwistedAtItsHeadCarriesTheTorque) {
  model::CaseLoads loads;
  loads.nodal.push_back({{false, {2}}, {0, 0, 0, 0, 0, 3e5}});
  EXPECT_THAT(forces_at(solved(mast(), loads), 1, 2)[mx], about(3e5));
}

TEST(ClampedBeam, WarmedIsPushed) {
  // N = −E·A·α·ΔT.
  const model::TemperatureLoad warm{{true, {}}, 30, 0, 0};
  EXPECT_THAT(forces_at(solved(clamped_beam(6000), warm), 5, 2)[n], about(-96600));
}

TEST(ClampedBeam, WarmerAtTheTopIsPushedThere) {
  // My = E·Iyy·α·ΔT/240 mm.
  const model::TemperatureLoad sun{{true, {}}, 0, 0, 24};
  EXPECT_THAT(forces_at(solved(clamped_beam(6000), sun), 5, 1)[my],
              about(ei_y * 2.3e-5 * 24 / 240));
}

TEST(ClampedBeam, WarmerAtPositiveYIsPushedThere) {
  // Mz = E·Izz·α·ΔT/100 mm.
  const model::TemperatureLoad sun{{true, {}}, 0, 10, 0};
  EXPECT_THAT(forces_at(solved(clamped_beam(6000), sun), 5, 1)[mz],
              about(ei_z * 2.3e-5 * 10 / 100));
}

TEST(ClampedBeam, WhoseEndSinksIsPulledAtTheTopOfTheOther) {
  // 6·E·Iyy·Δ/L².
  model::CaseLoads loads;
  loads.settlements.push_back({10, {0, 0, -10}});
  const model::Model m = solved(clamped_beam(6000), loads);
  EXPECT_THAT(forces_at(m, 5, 0)[my], about(-6 * ei_y * 10 / 36e6));
  EXPECT_THAT(forces_at(m, 5, 4)[my], about(6 * ei_y * 10 / 36e6));
}

TEST(ClampedBeam, WithAHingeAtItsEndHasAnEighthAtItsStart) {
  model::Model model = bare_model();
  add_node(model, 20, 0, 0, 0);
  add_node(model, 10, 6000, 0, 0);
  model::Element element = beam(5, 20, 10);
  element.released[6 + my] = true;
  model.elements.add(element);
  add_support(model, 20, clamped);
  add_support(model, 10, clamped);
  const model::Model m = solved(model, uniform(downwards, -3.6));
  EXPECT_THAT(forces_at(m, 5, 0)[my], about(-16.2e6));
  EXPECT_THAT(forces_at(m, 5, 0)[fz], about(13500));  // 5/8 qL
  EXPECT_EQ(forces_at(m, 5, 4)[my], 0.0F);
}

TEST(Cantilever, OnASpringAsStiffAsItselfBearsHalfOfItsTipLoad) {
  // k = 3·E·Iyy/L³.
  model::Model model = straight_beam(6000);
  add_support(model, 20, clamped);
  model.supports.push_back({10, {}, {0, 0, 3 * ei_y / 2.16e11, 0, 0, 0}});
  model::CaseLoads loads;
  loads.nodal.push_back({{false, {10}}, {0, 0, -1000}});
  EXPECT_THAT(forces_at(solved(model, loads), 5, 0)[my], about(-500.0 * 6000));
}

/// A bar of 4 m held out from a wall by a strut of 5 m below it, both trusses.
model::Model bracket() {
  model::Model model = bare_model();
  add_node(model, 1, 0, 0, 0);
  add_node(model, 2, 4000, 0, 0);
  add_node(model, 3, 0, 0, -3000);
  model.elements.add(truss(1, 1, 2));
  model.elements.add(truss(2, 3, 2));
  add_support(model, 1, pinned);
  add_support(model, 3, pinned);
  add_support(model, 2, {false, true, false, false, false, false});
  return model;
}

TEST(Bracket, CarriesItsLoadByAPullAndAPush) {
  // 4/3 and 5/3 of the load.
  model::CaseLoads loads;
  loads.nodal.push_back({{false, {2}}, {0, 0, -6000}});
  const model::Model m = solved(bracket(), loads);
  EXPECT_THAT(forces_at(m, 1, 0)[n], about(8000));
  EXPECT_THAT(forces_at(m, 2, 4)[n], about(-10000));
}

TEST(Bracket, PassesALoadOnItsBarToTheEndsHalfEach) {
  // 2 N/mm on 4 m: 4 kN at the tip; the bar itself does not bend.
  const model::Model m = solved(bracket(), uniform(downwards, -2, {1}));
  EXPECT_THAT(forces_at(m, 1, 2)[n], about(4000.0 * 4 / 3));
  EXPECT_EQ(forces_at(m, 1, 2)[my], 0.0F);
  EXPECT_THAT(forces_at(m, 2, 2)[n], about(-4000.0 * 5 / 3));
}

TEST(Bracket, WarmedAsAWholeHasNoForces) {
  // Determinate: its parts grow freely.
  const model::Model m = solved(bracket(), model::TemperatureLoad{{true, {}}, 40, 0, 0});
  EXPECT_EQ(forces_at(m, 1, 2)[n], 0.0F);
  EXPECT_EQ(forces_at(m, 2, 2)[n], 0.0F);
}

TEST(Loads, OfOneCaseAddUp) {
  model::CaseLoads loads;
  loads.span = {uniform(downwards, -1), uniform(downwards, -2)};
  loads.points.push_back(at(0.5, downwards, PointKind::force, -1000));
  // qL²/8 and PL/4.
  EXPECT_THAT(forces_at(solved(simple_beam(4000), loads), 5, 2)[my], about(6e6 + 1e6));
}

TEST(Loads, OfEachCaseGiveItsOwnForces) {
  model::Model model = simple_beam(4000);
  for (const model::Number number : {9U, 4U}) {
    model::LoadCase load_case;
    load_case.number = number;
    load_case.loads.span.push_back(uniform(downwards, -static_cast<double>(number)));
    model.load_cases.add(load_case);
  }
  model = with_forces(model);
  EXPECT_THAT(forces_at(model, 5, 2, 4)[my], about(4 * 2e6));
  EXPECT_THAT(forces_at(model, 5, 2, 9)[my], about(9 * 2e6));
}

}  // namespace
}  // namespace aluframe::forces

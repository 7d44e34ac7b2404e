// Deflections of first order against closed forms of beams (integration of EI·w'' = M by hand; the
// places of the largest ones where w' = 0), to 1e-9.

#include "aluframe/section/section_properties.h"
#include "aluframe/section/shear_areas.h"
#include "searches.h"

namespace aluframe::deflections {
namespace {

constexpr double length = 4000.0, q = 3.0;

model::Model loaded(model::Model model, const model::CaseLoads& loads) {
  add_case(model, loads);
  return model;
}

model::CaseLoads uniform_load(double value) {
  model::CaseLoads loads;
  loads.span.push_back(uniform(downwards, value));
  return loads;
}

model::CaseLoads span_load(double from_value, double to_value, double from = 0.0, double to = 1.0) {
  model::CaseLoads loads = uniform_load(from_value);
  loads.span[0].to_value = to_value;
  loads.span[0].from = from;
  loads.span[0].to = to;
  return loads;
}

model::CaseLoads point_load(double at, double value,
                            model::PointLoad::Kind kind = model::PointLoad::Kind::force) {
  model::CaseLoads loads;
  model::PointLoad load;
  load.elements.all = true;
  load.direction = downwards;
  if (kind == model::PointLoad::Kind::moment) load.direction = {model::LoadAxes::global, 1};
  load.kind = kind;
  load.value = value;
  load.at = at;
  loads.points.push_back(load);
  return loads;
}

model::Model cantilever() {
  model::Model model = straight_beam(length);
  add_support(model, 20, clamped);
  return model;
}

TEST(Deflections, SimpleBeamUnderAUniformLoadSagsInItsMiddle) {
  const auto z = only_span(loaded(simple_beam(length), uniform_load(-q)), 1);
  EXPECT_THAT(z.relative.value, near(-5 * q * std::pow(length, 4) / (384 * ei_y)));
  EXPECT_THAT(z.absolute.value, near(z.relative.value));
  EXPECT_NEAR(z.relative.x, length / 2, 1e-3);
  EXPECT_EQ(z.relative.combination, 1);
  EXPECT_EQ(z.relative.element, 0U);
}

TEST(Deflections, NothingMovesAcrossTheLoad) {
  const auto y = only_span(loaded(simple_beam(length), uniform_load(-q)), 0);
  EXPECT_EQ(y.relative.value, 0.0);
  EXPECT_EQ(y.relative.combination, 0);
}

TEST(Deflections, HorizontalLoadBendsAboutTheOtherAxis) {
  model::CaseLoads loads;
  loads.span.push_back(uniform({model::LoadAxes::global, 1}, q));
  const auto y = only_span(loaded(simple_beam(length), loads), 0);
  EXPECT_THAT(std::abs(y.relative.value), near(5 * q * std::pow(length, 4) / (384 * ei_z)));
}

TEST(Deflections, AMemberOfManyElementsIsOneSpan) {
  for (const int pieces : {2, 3, 7}) {
    const auto z = only_span(loaded(cut(simple_beam(length), pieces), uniform_load(-q)), 1);
    EXPECT_THAT(z.relative.value, near(-5 * q * std::pow(length, 4) / (384 * ei_y))) << pieces;
  }
}

TEST(Deflections, OneBeamThatRunsAgainstItsMemberChangesNothing) {
  model::Model model = cut(simple_beam(length), 3);
  model::Element turned = model.elements[1];
  std::swap(turned.nodes[0], turned.nodes[1]);
  model.elements.replace(turned);
  const auto z = only_span(loaded(model, uniform_load(-q)), 1);
  EXPECT_THAT(z.relative.value, near(-5 * q * std::pow(length, 4) / (384 * ei_y)));
  EXPECT_EQ(z.relative.element, 1U);
}

TEST(Deflections, EccentricPointLoadHasItsLargestBesideIt) {
  const double a = 0.3 * length, b = length - a, p = 5000.0;
  const auto z = only_span(loaded(simple_beam(length), point_load(0.3, -p)), 1);
  // Counted from the far support, which the longer part b adjoins.
  const double place = std::sqrt((length * length - a * a) / 3.0);
  const double largest =
      p * a * std::pow(length * length - a * a, 1.5) / (9.0 * std::sqrt(3.0) * length * ei_y);
  EXPECT_THAT(z.relative.value, near(-largest));
  EXPECT_NEAR(z.relative.x, length - place, 0.1);
  EXPECT_LT(z.relative.x, length / 2.0 + 0.077 * length);
  EXPECT_GT(b, a);
}

TEST(Deflections, TriangularLoad) {
  const auto z = only_span(loaded(simple_beam(length), span_load(0.0, -q)), 1);
  const double x = length * std::sqrt(1.0 - std::sqrt(8.0 / 15.0));
  const double w = q * x *
                   (3 * std::pow(x, 4) - 10 * length * length * x * x + 7 * std::pow(length, 4)) /
                   (360 * length * ei_y);
  EXPECT_THAT(z.relative.value, near(-w));
  EXPECT_NEAR(z.relative.x, x, 0.1);
}

TEST(Deflections, LoadOnTheMiddleHalf) {
  // Of a load on the middle half: uniform from a to L - a, a = L/4; w in the middle by the unit
  // load: q·(5L⁴ - 24a²L² + 16a⁴)/(384·EI).
  const auto z = only_span(loaded(simple_beam(length), span_load(-q, -q, 0.25, 0.75)), 1);
  const double a = length / 4;
  EXPECT_THAT(
      z.relative.value,
      near(-q * (5 * std::pow(length, 4) - 24 * a * a * length * length + 16 * std::pow(a, 4)) /
           (384 * ei_y)));
}

TEST(Deflections, MomentAtTheEnd) {
  const double moment = 4.0e6;
  const auto z = only_span(
      loaded(simple_beam(length), point_load(1.0, moment, model::PointLoad::Kind::moment)), 1);
  EXPECT_THAT(std::abs(z.relative.value),
              near(moment * length * length / (9.0 * std::sqrt(3.0) * ei_y)));
}

TEST(Deflections, TemperatureDifferenceBendsToAParabola) {
  model::CaseLoads loads;
  model::TemperatureLoad load;
  load.elements.all = true;
  load.difference_z = 30.0;
  loads.temperature.push_back(load);
  model::Model model = loaded(simple_beam(length), loads);
  const double expansion = model.materials[0].thermal_expansion;
  const auto z = only_span(model, 1);
  EXPECT_THAT(std::abs(z.relative.value), near(expansion * 30.0 / 240.0 * length * length / 8.0));
}

TEST(Deflections, ClampedBeam) {
  const auto z = only_span(loaded(clamped_beam(length), uniform_load(-q)), 1);
  EXPECT_THAT(z.relative.value, near(-q * std::pow(length, 4) / (384 * ei_y)));
}

TEST(Deflections, ReleasedEndIsAHinge) {
  model::Model model = clamped_beam(length);
  model::Element element = model.elements[0];
  element.released[10] = true;  // My at the end
  model.elements.replace(element);
  const auto z = only_span(loaded(model, uniform_load(-q)), 1);
  // From the hinge: w = q·x·(L³ - 3Lx² + 2x³)/(48·EI), largest where 8t³ - 9t² + 1 = 0.
  const double t = (1.0 + std::sqrt(33.0)) / 16.0;
  const double w = q * std::pow(length, 4) * t * (1 - 3 * t * t + 2 * t * t * t) / (48 * ei_y);
  EXPECT_THAT(z.relative.value, near(-w));
  EXPECT_NEAR(length - z.relative.x, t * length, 0.1);
}

TEST(Deflections, CantileverIsCountedFromItsHeldEnd) {
  const model::Model model = loaded(cantilever(), point_load(1.0, -500.0));
  const Deflections found = find_deflections(model, first_case());
  ASSERT_EQ(found.spans.size(), 1U);
  EXPECT_EQ(found.spans[0].kind, SpanKind::cantilever);
  EXPECT_EQ(found.spans[0].counted_length(), 2 * length);
  const Extreme& tip = found.of_spans[0][1].relative;
  EXPECT_THAT(tip.value, near(-500.0 * std::pow(length, 3) / (3 * ei_y)));
  EXPECT_EQ(tip.x, length);
}

TEST(Deflections, CantileverThatItsElementsRunAgainst) {
  model::Model model = straight_beam(length);
  add_support(model, 10, clamped);
  const Extreme tip = only_span(loaded(model, uniform_load(-q)), 1).relative;
  EXPECT_THAT(tip.value, near(-q * std::pow(length, 4) / (8 * ei_y)));
  EXPECT_EQ(tip.x, 0.0);
}

TEST(Deflections, SettlingSupportsMoveABeamAndDoNotBendIt) {
  model::CaseLoads loads;
  loads.settlements.push_back({20, {0, 0, -12, 0, 0, 0}});
  const auto z = only_span(loaded(simple_beam(length), loads), 1);
  EXPECT_NEAR(z.relative.value, 0.0, 1e-9);
  EXPECT_NEAR(z.absolute.value, -12.0, 1e-9);
  EXPECT_EQ(z.absolute.x, 0.0);
}

TEST(Deflections, OverASupportEveryPartAndTheWholeCount) {
  model::Model model = cut(simple_beam(2 * length), 2);
  add_support(model, 1001, {false, true, true, false, false, false});
  model = loaded(model, uniform_load(-q));
  const Deflections found = find_deflections(model, first_case());
  ASSERT_EQ(found.spans.size(), 3U);
  EXPECT_TRUE(found.spans[0].is_part);
  EXPECT_FALSE(found.spans[2].is_part);
  EXPECT_NEAR(found.spans[0].length, length, 1e-9);
  EXPECT_NEAR(found.spans[2].length, 2 * length, 1e-9);
  // Each half bends like a beam clamped over the support.
  const double t = (1.0 + std::sqrt(33.0)) / 16.0;
  const double w = q * std::pow(length, 4) * t * (1 - 3 * t * t + 2 * t * t * t) / (48 * ei_y);
  for (const std::size_t span : {0U, 1U, 2U}) {
    EXPECT_THAT(found.of_spans[span][1].relative.value, near(-w)) << span;
  }
}

TEST(Deflections, SoftSupportDoesNotHideTheSagOfTheWhole) {
  model::Model model = cut(simple_beam(2 * length), 2);
  model.supports.push_back({1001, {}, {0, 0, 1e-6, 0, 0, 0}});
  model = loaded(model, uniform_load(-q));
  const Deflections found = find_deflections(model, first_case());
  const double whole = 5 * q * std::pow(2 * length, 4) / (384 * ei_y);
  EXPECT_NEAR(found.of_spans[2][1].relative.value, -whole, 1e-4 * whole);
  EXPECT_LT(std::abs(found.of_spans[0][1].relative.value), 0.5 * whole);
}

TEST(Deflections, CombinationsAddUpAndTheLargestGoverns) {
  model::Model model = loaded(simple_beam(length), uniform_load(-q));
  add_case(model, uniform_load(2 * q));
  const std::vector<State> states{
      {11, {{0, 1.0}}}, {12, {{0, 1.0}, {1, 1.0}}}, {13, {{0, 1.2}, {1, -0.5}}}};
  const auto z = only_span(model, 1, states);
  EXPECT_EQ(z.relative.combination, 13);
  EXPECT_THAT(z.relative.value, near(-2.2 * 5 * q * std::pow(length, 4) / (384 * ei_y)));
}

// Which of two spans bends further, of equals the first, does not hang on rounding; nor does the
// state.
TEST(Deflections, OfEqualStatesTheFirstIsTold) {
  const model::Model model = loaded(simple_beam(length), uniform_load(-q));
  const auto z = only_span(model, 1, {{3, {{0, 1.0}}}, {2, {{0, 1.0 + 1e-14}}}});
  EXPECT_EQ(z.relative.combination, 3);
}

TEST(Deflections, SearchEndsWhereItIsToldTo) {
  const model::Model model = cut(loaded(simple_beam(length), uniform_load(-q)), 2);
  int asked = 0;
  const Deflections found = find_deflections(model, first_case(), [&](int done, int total) {
    ++asked;
    EXPECT_EQ(done, 0);
    EXPECT_EQ(total, 2);
    return false;
  });
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(found.of_spans[0][1].relative.value, 0.0);
}

// The displacements that the forces of a check follow from.
TEST(Deflections, GoByTheDisplacementsOfAnAnalysisThatWasMade) {
  model::Model model = cut(loaded(simple_beam(length), uniform_load(-q)), 2);
  add_case(model, uniform_load(2 * q));
  const std::vector<State> states{{1, {{0, 1.0}}}, {2, {{0, 1.0}, {1, 1.5}}}};
  const Deflections own = find_deflections(model, states);
  model::Combination in_use;
  in_use.number = 1;
  in_use.serviceability = true;
  in_use.terms = {{.number = model.load_cases[0].number}};
  model.combinations.add(in_use);
  const auto computed = forces::compute_forces(model);
  const auto known = std::get<forces::Summary>(computed).displacements;
  ASSERT_NE(known, nullptr);
  EXPECT_EQ(find_deflections(model, states, {}, known.get()).of_spans[0][1].relative.value,
            own.of_spans[0][1].relative.value);
  // Twice as large displacements are twice the deflections: they are what counts.
  forces::CaseDisplacements twice = *known;
  for (auto& nodes : twice) {
    for (analysis::Vector6& node : nodes) {
      for (double& u : node) u *= 2;
    }
  }
  const Deflections of_twice = find_deflections(model, states, {}, &twice);
  EXPECT_GT(std::abs(of_twice.of_spans[0][1].absolute.value),
            1.2 * std::abs(own.of_spans[0][1].absolute.value));
  // Without one of the cases it is analysed here.
  twice.pop_back();
  EXPECT_EQ(find_deflections(model, states, {}, &twice).of_spans[0][1].relative.value,
            own.of_spans[0][1].relative.value);
}

TEST(Deflections, WithoutServiceabilityNoDisplacementsAreKept) {
  model::Model model = loaded(simple_beam(length), uniform_load(-q));
  EXPECT_EQ(std::get<forces::Summary>(forces::compute_forces(model)).displacements, nullptr);
}

TEST(Deflections, StateWithoutLoadsMovesNothing) {
  const auto z = only_span(loaded(simple_beam(length), uniform_load(-q)), 1, {{5, {}}});
  EXPECT_EQ(z.relative.value, 0.0);
  EXPECT_EQ(z.relative.combination, 0);
}

TEST(Deflections, ShearIsPartOfThem) {
  model::Model model = loaded(simple_beam(length), uniform_load(-q));
  model::Section section;
  section.number = 1;
  section.shape = model::Shape::h_section;
  section.dimensions = {300.0, 150.0, 8.0, 12.0, 150.0, 12.0};
  model.sections = {};
  model.sections.add(section);
  const double iyy = section::properties_of(section).iyy, az = section::shear_areas_of(section).z;
  ASSERT_GT(az, 0.0);
  const double g = 70000.0 / (2 * 1.3);
  EXPECT_THAT(only_span(model, 1).relative.value,
              near(-5 * q * std::pow(length, 4) / (384 * 70000.0 * iyy) -
                   q * length * length / (8 * g * az)));
}

TEST(Deflections, FrameThatCannotBeAnalysedIsUnknown) {
  const model::Model model = loaded(straight_beam(length), uniform_load(-q));
  const Deflections found = find_deflections(model, {{4, {{0, 1.0}}}, {9, {{0, 2.0}}}});
  ASSERT_EQ(found.unknown.size(), 2U);
  EXPECT_EQ(found.unknown[1].combination, 9);
  EXPECT_FALSE(found.unknown[0].reason.empty());
  EXPECT_EQ(found.of_spans[0][1].relative.value, 0.0);
}

}  // namespace
}  // namespace aluframe::deflections

// Places between the five positions where forces are given, and those of envelopes.

#include "tests/unit/aluframe/forces/peaks.h"

namespace aluframe::forces {
namespace {

using Kind = model::PointLoad::Kind;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

constexpr double span = 4000.0, q = 3.0, force = 9000.0;

/// A beam with one case and these forces at five positions.
model::Model with_given(const model::CaseLoads& loads, const model::CaseForces& forces) {
  model::Model model = propped_beam(span);
  add_case(model, loads);
  add_sum(model, {{1, 1.0}});
  model.forces.resize(1, 1);
  model.forces.set(0, 0, forces);
  return model;
}

/// Fz and My of a propped beam under a uniform load: clamped at its start.
model::CaseForces of_propped_beam() {
  model::CaseForces out{.inner = true};
  for (std::size_t i = 0; i < 5; ++i) {
    const double x = span * static_cast<double>(i) / 4;
    out.at[i][fz] = static_cast<float>(q * (5 * span / 8 - x));
    out.at[i][my] = static_cast<float>(-q * span * span / 8 + 5 * q * span * x / 8 - q * x * x / 2);
  }
  return out;
}

TEST(PeakOfGivenForces, FollowsFromTheLoadsOfTheModelWhenTheyAgree) {
  const auto places = peaks_of(with_given(only(partial(2, 0, 1, -q, -q)), of_propped_beam()));
  ASSERT_THAT(places, SizeIs(1));
  expect_place(places[0], 2500, my, 9 * q * span * span / 128);
}

TEST(PeakOfGivenForces, OfAUniformLoadThatTheModelDoesNotHaveIsExact) {
  const auto places = peaks_of(with_given({}, of_propped_beam()));
  ASSERT_THAT(places, SizeIs(1));
  expect_place(places[0], 2500, my, 9 * q * span * span / 128);
}

TEST(PeakOfGivenForces, DoesNotFollowFromLoadsThatContradictThem) {
  const auto places = peaks_of(with_given(point(Kind::force, 2, -force, 0.375), of_propped_beam()));
  ASSERT_THAT(places, SizeIs(1));
  expect_place(places[0], 2500, my, 9 * q * span * span / 128);
}

TEST(PeakOfGivenForces, IsUnknownOfUnsignedMaxima) {
  // As a response spectrum gives them: no load makes a moment fall under a positive shear force.
  model::CaseForces forces = of_propped_beam();
  for (auto& at : forces.at) {
    for (float& value : at) value = std::abs(value);
  }
  const model::Model model = with_given({}, forces);
  EXPECT_THAT(peaks_of(model), IsEmpty());
  ASSERT_THAT(InnerForces(model).unknown(), SizeIs(1));
}

TEST(PeaksOfAnEnvelope, AreThoseOfItsPartsWithTheExtremesThere) {
  // Forces at 3/8, one downwards and one upwards and twice as large.
  model::Model model = simple_beam(span);
  add_case(model, point(Kind::force, 2, -force, 0.375));
  add_case(model, point(Kind::force, 2, 2 * force, 0.625));
  model::Combination envelope;
  envelope.number = 1;
  envelope.kind = model::CombinationKind::envelope;
  for (const model::Number i : {1U, 2U}) {
    envelope.terms.push_back({model::CombinationTerm::Source::load_case, i, 1.0});
  }
  model.combinations.add(envelope);
  model = with_forces(model);
  const double peak = force * 1500 * 2500 / span;
  const auto high = peaks_of(model, 1);
  ASSERT_THAT(high, SizeIs(4));
  expect_place(high[0], 1500, my, peak);
  expect_place(high[1], 1500, fz, -0.375 * force);
  const auto low = peaks_of(model, 1, {}, model::Side::minimum);
  // At 3/8 the second load has the smaller shear force on both sides of the first.
  ASSERT_THAT(low, SizeIs(3));
  expect_place(low[0], 1500, fz, -0.75 * force);
  expect_place(low[1], 2500, my, -2 * peak);
}

TEST(PeaksOfAnEnvelope, ChangeSidesUnderANegativeFactor) {
  // Once or twice a force at 3/8, and less the one or the other: from -2 to -1 times its moment.
  model::Model model = simple_beam(span);
  add_case(model, point(Kind::force, 2, -force, 0.375));
  model::Combination envelope;
  envelope.number = 1;
  envelope.kind = model::CombinationKind::envelope;
  for (const double factor : {1.0, 2.0}) {
    envelope.terms.push_back({model::CombinationTerm::Source::load_case, 1, factor});
  }
  model.combinations.add(envelope);
  model::Combination less;
  less.number = 2;
  less.terms.push_back({model::CombinationTerm::Source::combination, 1, -1.0});
  model.combinations.add(less);
  model = with_forces(model);
  const double peak = force * 1500 * 2500 / span;
  const auto high = peaks_of(model, 2);
  ASSERT_THAT(high, Not(IsEmpty()));
  expect_place(high[0], 1500, my, -peak);
  const auto low = peaks_of(model, 2, {}, model::Side::minimum);
  ASSERT_THAT(low, Not(IsEmpty()));
  expect_place(low[0], 1500, my, -2 * peak);
}

}  // namespace
}  // namespace aluframe::forces

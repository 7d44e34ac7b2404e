// Deflections of second order against closed forms of beam-columns (Timoshenko and Gere, Theory of
// Elastic Stability, 1961, 1.3 and 1.11).

#include "searches.h"

namespace aluframe::deflections {
namespace {

constexpr double length = 4000.0, q = 3.0;

/// A simple beam under a uniform load and an axial force, tension positive, at its end.
model::Model beam_column(double axial_force, int pieces = 1) {
  model::Model model = simple_beam(length);
  if (pieces > 1) model = cut(model, pieces);
  model::CaseLoads loads;
  loads.span.push_back(uniform(downwards, -q));
  model::NodalLoad end;
  end.nodes = {false, {10}};
  end.components[0] = axial_force;
  loads.nodal.push_back(end);
  add_case(model, loads);
  model.analysis.second_order = true;
  return model;
}

/// Under which it leaves the plane of the load: its section is weaker there.
const double euler = std::pow(std::numbers::pi / length, 2) * ei_z;

/// Deflection in the middle under a compression p.
double compressed(double p) {
  const double u = length / 2 * std::sqrt(p / ei_y);
  return 5 * q * std::pow(length, 4) / (384 * ei_y) * 12 * (2 / std::cos(u) - 2 - u * u) /
         (5 * std::pow(u, 4));
}

TEST(SecondOrderDeflections, GrowByCompression) {
  for (const double part : {0.1, 0.5, 0.9}) {
    for (const int pieces : {1, 3}) {
      const auto z = only_span(beam_column(-part * euler, pieces), 1);
      const double expected = compressed(part * euler);
      EXPECT_NEAR(z.relative.value, -expected, 1e-6 * expected) << part << ' ' << pieces;
      EXPECT_GT(expected, 5 * q * std::pow(length, 4) / (384 * ei_y));
    }
  }
}

TEST(SecondOrderDeflections, ShrinkByTension) {
  const double t = 2.0e5, u = length / 2 * std::sqrt(t / ei_y);
  const double expected = 5 * q * std::pow(length, 4) / (384 * ei_y) * 12 *
                          (2 / std::cosh(u) - 2 + u * u) / (5 * std::pow(u, 4));
  const auto z = only_span(beam_column(t), 1);
  EXPECT_NEAR(z.relative.value, -expected, 1e-6 * expected);
}

TEST(SecondOrderDeflections, OfACombinationThatBucklesAreUnknownOthersAreNot) {
  const model::Model model = beam_column(-0.5 * euler);
  const Deflections found = find_deflections(model, {{3, {{0, 1.0}}}, {4, {{0, 3.0}}}});
  ASSERT_EQ(found.unknown.size(), 1U);
  EXPECT_EQ(found.unknown[0].combination, 4);
  EXPECT_THAT(found.unknown[0].reason, testing::HasSubstr("buckle"));
  EXPECT_EQ(found.of_spans[0][1].relative.combination, 3);
}

}  // namespace
}  // namespace aluframe::deflections

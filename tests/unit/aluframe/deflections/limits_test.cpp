// Drifts and displacements of nodes, against a cantilever column worked by hand.

#include "searches.h"

namespace aluframe::deflections {
namespace {

constexpr double height = 3000.0;

/// A column from node 1 to node 2 and on to node 3, each `height` long, with a force at the top.
model::Model column(double force_x, double force_y, double force_z = 0.0) {
  model::Model model = bare_model();
  add_node(model, 1, 0, 0, 0);
  add_node(model, 2, 0, 0, height);
  add_node(model, 3, 0, 0, 2 * height);
  model.elements.add(beam(1, 1, 2));
  model.elements.add(beam(2, 2, 3));
  add_support(model, 1, clamped);
  model::CaseLoads loads;
  model::NodalLoad top;
  top.nodes = {false, {3}};
  top.components = {force_x, force_y, force_z, 0, 0, 0};
  loads.nodal.push_back(top);
  add_case(model, loads);
  return model;
}

/// Displacement of a cantilever of length l at x under a force at its tip.
double tip_loaded(double force, double ei, double x, double l = 2 * height) {
  return force * x * x * (3 * l - x) / (6 * ei);
}

/// Stiffness against bending in X, and in Y, of a column whose z axis may lie in either.
std::array<double, 2> stiffness_of(const model::Model& model) {
  const Deflections found = find_deflections(model, first_case());
  const bool z_along_x = std::abs(found.of_spans[0][1].absolute.value) > 0.0;
  return z_along_x ? std::array{ei_y, ei_z} : std::array{ei_z, ei_y};
}

TEST(Drifts, AreHorizontalAndBetweenTwoNodes) {
  model::Model model = column(800.0, 0.0, -5000.0);
  const double ei = stiffness_of(model)[0];
  model.serviceability.drifts = {{"upper", 2, 3, 250.0}, {"lower", 1, 2, 250.0}};
  const Deflections found = find_deflections(model, {{8, {{0, -1.0}}}});
  ASSERT_EQ(found.drifts.size(), 2U);
  const double at_3 = tip_loaded(800, ei, 2 * height), at_2 = tip_loaded(800, ei, height);
  EXPECT_THAT(found.drifts[0].value, near(at_3 - at_2));
  EXPECT_THAT(found.drifts[1].value, near(at_2));
  EXPECT_EQ(found.drifts[0].combination, 8U);
}

TEST(Displacements, AreTakenAlongWhatTheLimitNames) {
  using enum model::DisplacementDirection;
  model::Model model = column(800.0, -600.0, -5000.0);
  const auto [ei_x, ei_y_] = stiffness_of(column(800.0, 0.0));
  for (const auto direction : {x, y, z, horizontal, total}) {
    model.serviceability.displacements.push_back({{3}, direction, 10.0});
  }
  model.serviceability.displacements.push_back({{2, 3}, x, 10.0});
  const Deflections found = find_deflections(model, first_case());
  ASSERT_EQ(found.nodes.size(), 7U);
  const double ux = tip_loaded(800, ei_x, 2 * height), uy = tip_loaded(-600, ei_y_, 2 * height);
  const double uz = -5000.0 * 2 * height / (70000.0 * 2000.0);
  EXPECT_THAT(found.nodes[0].value, near(ux));
  EXPECT_THAT(found.nodes[1].value, near(uy));
  EXPECT_THAT(found.nodes[2].value, near(uz));
  EXPECT_THAT(found.nodes[3].value, near(std::hypot(ux, uy)));
  EXPECT_THAT(found.nodes[4].value, near(std::hypot(ux, uy, uz)));
  EXPECT_EQ(found.nodes[5].node, 1U);
  EXPECT_THAT(found.nodes[6].value, near(ux));
}

TEST(Displacements, TheLargestCombinationGoverns) {
  model::Model model = column(800.0, 0.0);
  model.serviceability.displacements = {{{3}, model::DisplacementDirection::x, 10.0}};
  const Deflections found =
      find_deflections(model, {{1, {{0, 1.0}}}, {2, {{0, -1.5}}}, {3, {{0, 1.2}}}});
  EXPECT_EQ(found.nodes[0].combination, 2U);
  EXPECT_LT(found.nodes[0].value, 0.0);
}

}  // namespace
}  // namespace aluframe::deflections

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "aluframe/analysis/assembly.h"
#include "aluframe/analysis/linear_refinement.h"
#include "aluframe/analysis/second_order.h"
#include "analysis_frames.h"

namespace aluframe::analysis {
namespace {

/// Global forces that the two ends of an element take from its nodes, by its section forces.
Vector12 taken_from_nodes(const Geometry& geometry, const ElementForces& f) {
  const SectionForces &a = f[0], &b = f[4];
  Vector12 local;
  local << -a[0], a[1], a[2], -a[3], a[4], -a[5], b[0], -b[1], -b[2], b[3], -b[4], b[5];
  return to_global(geometry.axes, local);
}

RC_GTEST_PROP(FrameLaws, EveryNodeIsInEquilibrium, ()) {
  // Beams only: what acts on a truss's length goes to its nodes and is not in its section forces.
  Frame frame = any_frame();
  for (Element& e : frame.elements) e.kind = ElementKind::beam;
  const LoadCase loads = any_loads_of_a_site(frame);
  const CaseResult result = solved(frame, {loads})[0];
  std::vector<Vector6> rest(frame.nodes.size());
  double force = 0.0;
  const std::vector<Geometry> geometry = element_geometry(frame);
  for (std::size_t e = 0; e < frame.elements.size(); ++e) {
    const Vector12 taken = taken_from_nodes(geometry[e], result.forces[e]);
    for (int i = 0; i < 12; ++i) {
      const std::size_t node = i < 6 ? frame.elements[e].start : frame.elements[e].end;
      rest[node][static_cast<std::size_t>(i % 6)] -= taken[i];
      force = std::max(force, i % 6 < 3 ? std::abs(taken[i]) : std::abs(taken[i]) / 3000.0);
    }
  }
  for (const NodalLoad& l : loads.nodal) {
    for (std::size_t i = 0; i < 6; ++i) {
      rest[l.node][i] += l.value[i];
      force = std::max(force, std::abs(l.value[i]) / (i < 3 ? 1.0 : 3000.0));
    }
  }
  for (const Reaction& r : result.reactions) {
    for (std::size_t i = 0; i < 6; ++i) rest[r.node][i] += r.value[i];
  }
  for (const Vector6& node : rest) {
    // Single precision of several forces that meet in a node.
    for (std::size_t i = 0; i < 6; ++i) {
      RC_ASSERT(std::abs(node[i]) <= 1e-6 * force * (i < 3 ? 1.0 : 3000.0));
    }
  }
}

RC_GTEST_PROP(FrameLaws, RefinementChangesNothingThatDoublesSufficeFor, ()) {
  const Frame frame = any_frame();
  const LoadCase load_case = any_loads_of_a_site(frame);
  const CaseResult first = solved(frame, {load_case})[0];
  const auto geometry = element_geometry(frame);
  const Equations equations(frame);
  const LoadsByElement loads(frame, geometry, load_case);
  LinearRefinement refinement(frame, geometry, equations);
  const auto refined = refinement.refine(first, load_case, loads, Norms{});
  const auto* result = std::get_if<CaseResult>(&refined);
  RC_ASSERT(result != nullptr);
  assert_same_forces(result->forces, first.forces);
  RC_ASSERT(result->equilibrium.force_error <= 1e-12);
}

RC_GTEST_PROP(FrameLaws, TheWholeIsInEquilibrium, ()) {
  const Frame frame = any_frame();
  const LoadCase loads = any_loads_of_a_site(frame);
  const CaseResult result = solved(frame, {loads})[0];
  // Soft frames of random releases lose a few of the sixteen digits.
  RC_ASSERT(result.equilibrium.nodes <= 1e-9);
  RC_ASSERT(result.equilibrium.whole <= 1e-9);
}

RC_GTEST_PROP(FrameLaws, ResultsOfLoadsAddUp, ()) {
  const Frame frame = any_frame();
  const LoadCase a = any_loads_of_a_site(frame), b = any_loads_of_a_site(frame);
  const double fa = number_between(-2, 2), fb = number_between(-2, 2);
  const std::array<FactoredCase, 2> parts{{{&a, fa}, {&b, fb}}};
  const auto results = solved(frame, {a, b, combine(parts)});
  std::vector<ElementForces> sum = results[0].forces;
  for (std::size_t e = 0; e < sum.size(); ++e) {
    for (std::size_t p = 0; p < 5; ++p) {
      for (std::size_t i = 0; i < 6; ++i) {
        sum[e][p][i] =
            static_cast<float>(fa * results[0].forces[e][p][i] + fb * results[1].forces[e][p][i]);
      }
    }
  }
  // The parts may be several times as large as their sum.
  assert_same_forces(results[2].forces, sum, 5e-5);
}

RC_GTEST_PROP(FrameLaws, SmallLoadsHaveTheSameForcesInSecondOrder, ()) {
  const Frame frame = any_frame();
  const LoadCase loads = any_loads_of_a_site(frame);
  // So small that their axial forces add next to nothing to any stiffness.
  const LoadCase small = combine(std::array<FactoredCase, 1>{{{&loads, 1e-9}}});
  const auto second = analyse_second_order(frame, small);
  if (const auto* problem = std::get_if<Problem>(&second)) RC_FAIL(problem->text);
  std::vector<ElementForces> first = solved(frame, {small})[0].forces;
  std::vector<ElementForces> found = std::get<SecondOrderResult>(second).result.forces;
  for (auto* forces : {&first, &found}) {
    for (ElementForces& element : *forces) {
      for (SectionForces& at : element) {
        for (float& force : at) force *= 1e9F;
      }
    }
  }
  assert_same_forces(found, first, 5e-6);
}

RC_GTEST_PROP(FrameLaws, DisplacementAtOnePlaceFromAnotherIsMutual, ()) {
  // Maxwell and Betti: the flexibility, and so the stiffness, is symmetric.
  const Frame frame = any_frame();
  const std::size_t i = place_below(6 * frame.nodes.size()),
                    j = place_below(6 * frame.nodes.size());
  // The size of a load at which its displacements are comparable.
  const auto unit = [](std::size_t place) {
    LoadCase loads;
    Vector6 value{};
    value[place % 6] = place % 6 < 3 ? 1000.0 : 1e6;
    loads.nodal.push_back({place / 6, value});
    return loads;
  };
  const auto results = solved(frame, {unit(i), unit(j)});
  const auto work = [&](std::size_t of, std::size_t at) {
    const double size = at % 6 < 3 ? 1000.0 : 1e6;
    return size * results[of].displacements[at / 6][at % 6];
  };
  const double own = std::sqrt(std::abs(work(0, i) * work(1, j)));
  RC_ASSERT(std::abs(work(0, j) - work(1, i)) <= 1e-8 * own);
}

RC_GTEST_PROP(FrameLaws, ElementStiffnessIsSymmetricAndNeverNegative, ()) {
  Frame frame = any_frame();
  const std::vector<Geometry> geometry = element_geometry(frame);
  const StiffnessSource source = elastic_source(frame, geometry);
  for (std::size_t e = 0; e < frame.elements.size(); ++e) {
    ElementStiffness k;
    source(e, k);
    const Matrix12 global = to_global(geometry[e].axes, k.condensed);
    const double size = global.cwiseAbs().maxCoeff();
    RC_ASSERT((global - global.transpose()).cwiseAbs().maxCoeff() <= 1e-12 * size);
    // Relative to each diagonal, since lengths are among the entries.
    const Vector12 scale = k.unreleased.cwiseMax(1e-30).cwiseSqrt().cwiseInverse();
    const Matrix12 scaled = scale.asDiagonal() * k.condensed * scale.asDiagonal();
    const Eigen::SelfAdjointEigenSolver<Matrix12> modes(scaled);
    RC_ASSERT(modes.eigenvalues()[0] >= -1e-12);
  }
}

}  // namespace
}  // namespace aluframe::analysis

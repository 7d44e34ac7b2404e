#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>

#include "aluframe/analysis/initial_shapes.h"
#include "aluframe/analysis/second_order.h"
#include "analysis_changes.h"
#include "analysis_frames.h"

namespace aluframe::analysis {
namespace {

/// Iterations may stop at different ones, and forces are kept in single precision.
constexpr double certain = 1e-5;

/// What a frame has under the loads; nothing where it does not stand.
std::optional<CaseResult> standing(const Frame& frame, const LoadCase& loads,
                                   const Imperfections& what) {
  auto result = analyse_second_order(frame, loads, {.imperfections = what});
  if (std::holds_alternative<Problem>(result)) return std::nullopt;
  return std::get<SecondOrderResult>(std::move(result)).result;
}

double any_size() {
  return by_chance(70) ? number_between(1e-4, 0.01) : 0.0;
}

Imperfections any_imperfections() {
  return {.sway = {any_size(), any_size()}, .bow = {any_size(), any_size()}};
}

RC_GTEST_PROP(ImperfectionLaws, TinyOnesLeaveForcesAsTheyAre, ()) {
  const Frame frame = any_frame();
  const LoadCase loads = any_loads(frame);
  const auto plain = standing(frame, loads, {});
  RC_PRE(plain.has_value());
  constexpr double tiny = 1e-13;
  const auto found = standing(frame, loads, {.sway = {tiny, tiny}, .bow = {tiny, tiny}});
  RC_ASSERT(found.has_value());
  assert_same_forces(found->forces, plain->forces, certain);
}

/// Pushes every node every way, so that all sway has a sign.
LoadCase pushed(const Frame& frame, LoadCase loads) {
  for (std::size_t node = 0; node < frame.nodes.size(); ++node) {
    loads.nodal.push_back({node, {310, 470, -1300}});
  }
  return loads;
}

RC_GTEST_PROP(ImperfectionLaws, TurningTheModelAboutTheVerticalTurnsSwayWithIt, ()) {
  Frame frame = any_frame();
  frame.supports.resize(1);  // an element between nodes that stand still sways no way
  const LoadCase loads = pushed(frame, any_loads(frame));
  const Imperfections along = any_imperfections();
  const auto before = standing(frame, loads, along);
  RC_PRE(before.has_value());
  const int quarters = *rc::gen::inRange(1, 4);
  const Rotation turn = Eigen::AngleAxisd(std::numbers::pi / 2 * quarters, Eigen::Vector3d::UnitZ())
                            .toRotationMatrix();
  Imperfections across = along;
  if (quarters % 2 == 1) std::swap(across.sway[0], across.sway[1]);
  const auto after = standing(turned(turn, frame), turned(turn, loads), across);
  RC_ASSERT(after.has_value());
  assert_same_forces(after->forces, before->forces, certain);
}

RC_GTEST_PROP(ImperfectionLaws, AMemberInTwoPiecesHasTheShapeOfOne, ()) {
  Frame frame = any_frame();
  LoadCase loads;
  const std::size_t place = place_below(frame.elements.size());
  const std::size_t axis = place_below(2);
  const double size = number_between(1e-4, 0.1), at = number_between(0.1, 0.9);
  const std::size_t alone[] = {place};
  const auto whole = shape_of_bow(frame, element_geometry(frame), alone, axis, size);
  split(frame, loads, place, at);
  std::vector<std::size_t> member{place, frame.elements.size() - 1};
  if (by_chance(50)) std::ranges::reverse(member);
  const auto pieces = shape_of_bow(frame, element_geometry(frame), member, axis, size);
  for (const auto& [element, slopes] : pieces) {
    const double from = element == place ? 0.0 : at, to = element == place ? at : 1.0;
    for (const double t : {-1.0, 0.3, 1.0}) {
      const double part = from + (to - from) * (t + 1) / 2;
      for (std::size_t i = 0; i < 2; ++i) {
        const double expected = whole[0].slopes[i].at(2 * part - 1);
        RC_ASSERT(std::abs(slopes[i].at(t) - expected) <= 1e-9 * size);
      }
    }
  }
}

RC_GTEST_PROP(ImperfectionLaws, ReactionsBalanceTheLoads, ()) {
  const Frame frame = any_frame();
  Imperfections what = any_imperfections();
  what.mode = number_between(0.1, 20);
  const auto found = standing(frame, any_loads(frame), what);
  RC_PRE(found.has_value());
  RC_ASSERT(found->equilibrium.nodes <= 1e-8);
  RC_ASSERT(found->equilibrium.whole <= 1e-8);
}

}  // namespace
}  // namespace aluframe::analysis

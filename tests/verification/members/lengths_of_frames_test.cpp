// Effective length factors of random frames against the buckling loads of the same frames cut into
// cubic elements (tests/support/fine_frame.h), which share nothing with the program's modes: no
// factor of a member that buckles lies below the one of the Euler load at which the frame buckles
// by more than a twentieth, unless the program says so.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <numbers>
#include <random>

#include "lengths_of_frames.h"

namespace aluframe::members {
namespace {

/// Frames of one kind after the other, by their seed. Each has one load case.
class AnyFrame {
 public:
  static constexpr std::array<const char*, 6> kinds{"sway",   "braced",    "kinked",
                                                    "arched", "bracketed", "dome"};

  explicit AnyFrame(std::uint32_t seed) : kind(seed % kinds.size()), random_(seed) {
    model::Section section = *frame.model().sections.find(1);
    section.given.it = 1e5;
    frame.model().sections.replace(section);
    load_case_.number = 1;
    constexpr void (AnyFrame::* builders[])() = {&AnyFrame::sway,      &AnyFrame::braced,
                                                 &AnyFrame::kinked,    &AnyFrame::arched,
                                                 &AnyFrame::bracketed, &AnyFrame::dome};
    (this->*builders[kind])();
    frame.model().load_cases.add(load_case_);
  }

  FrameBuilder frame;
  std::size_t kind;

 private:
  double between(double low, double high) {
    return low + (high - low) * static_cast<double>(random_()) / 4294967295.0;
  }
  int whole(int low, int high) { return static_cast<int>(std::floor(between(low, high + 0.999))); }
  bool by_chance(int percent) { return between(0, 100) < percent; }

  Number node(double x, double y, double z) {
    frame.node(++nodes_, x, y, z);
    return nodes_;
  }
  Number beam(Number start, Number end) {
    frame.beam(++elements_, start, end);
    return elements_;
  }
  void press(Number node, double kilonewtons) {
    model::NodalLoad load;
    load.nodes.numbers = {node};
    load.components = {0, 0, -1e3 * kilonewtons, 0, 0, 0};
    load_case_.loads.nodal.push_back(load);
  }
  void foot(Number node) {
    if (by_chance(50)) {
      frame.fixed(node);
    } else {
      frame.support(node, {true, true, true, false, false, true});
    }
  }
  /// A line of elements; its nodes, both ends included.
  std::vector<Number> line(Number start, const Eigen::Vector3d& from, const Eigen::Vector3d& to,
                           int pieces, Number end = 0) {
    std::vector<Number> nodes{start};
    for (int i = 1; i <= pieces; ++i) {
      const Eigen::Vector3d at = from + (to - from) * (static_cast<double>(i) / pieces);
      nodes.push_back(i == pieces && end != 0 ? end : node(at.x(), at.y(), at.z()));
      beam(nodes[nodes.size() - 2], nodes.back());
    }
    return nodes;
  }

  /// A frame of a plane, held across it at its storeys.
  void storeys(bool has_brace) {
    const int bays = whole(1, 2), floors = whole(1, 3);
    const double height = between(2.5, 5), span = between(3, 8);
    std::vector<std::vector<Number>> at;
    for (int x = 0; x <= bays; ++x) {
      at.push_back({node(span * x, 0, 0)});
      foot(at.back()[0]);
      for (int floor = 1; floor <= floors; ++floor) {
        const double z = height * floor;
        const auto column =
            line(at.back().back(), {span * x, 0, z - height}, {span * x, 0, z}, whole(1, 2));
        at.back().push_back(column.back());
        frame.support(column.back(), {false, true, false, false, false, false});
        press(column.back(), between(1, 50));
      }
    }
    for (int x = 1; x <= bays; ++x) {
      for (std::size_t floor = 1; floor < at[0].size(); ++floor) {
        const auto left = static_cast<std::size_t>(x - 1), right = static_cast<std::size_t>(x);
        beam(at[left][floor], at[right][floor]);
        if (has_brace && x == 1) {
          frame.truss(++elements_, at[left][floor - 1], at[right][floor]);
        }
      }
    }
    if (has_brace && by_chance(50)) frame.braced(true, false);
  }
  void sway() { storeys(false); }
  void braced() { storeys(true); }

  /// A strut on hinges, upright, level or inclined, whose middle nodes lie off its line.
  void kinked() {
    const double length = between(2, 6), slope = between(0, std::numbers::pi / 2);
    const int pieces = whole(2, 6);
    std::vector<Number> nodes;
    for (int i = 0; i <= pieces; ++i) {
      const double s = static_cast<double>(i) / pieces;
      const double off = i == 0 || i == pieces ? 0.0 : between(-0.03, 0.03);
      nodes.push_back(
          node(length * s * std::cos(slope) + 0.3 * off, off, length * s * std::sin(slope)));
      if (i > 0) beam(nodes[nodes.size() - 2], nodes.back());
    }
    frame.support(nodes.front(), {true, true, true, true, false, true});
    const bool is_level = slope < std::numbers::pi / 4;
    frame.support(nodes.back(), {!is_level, true, is_level, true, false, true});
    model::NodalLoad load;
    load.nodes.numbers = {nodes.back()};
    load.components = {-1e3 * std::cos(slope), 0, -1e3 * std::sin(slope), 0, 0, 0};
    load_case_.loads.nodal.push_back(load);
  }

  void arched() {
    const double span = between(4, 20), rise = span * between(0.1, 0.5);
    const int pieces = whole(8, 20);
    const double radius = (span * span / 4 + rise * rise) / (2 * rise);
    const double half = std::asin(std::min(1.0, span / 2 / radius));
    const bool is_clamped = by_chance(50), has_purlins = by_chance(50);
    for (int i = 0; i <= pieces; ++i) {
      const double turn = half * (2.0 * i / pieces - 1.0);
      const Number at = node(radius * std::sin(turn), 0, radius * std::cos(turn));
      const bool is_end = i == 0 || i == pieces;
      if (is_end && is_clamped) frame.fixed(at);
      if (is_end && !is_clamped) frame.support(at, {true, true, true, true, false, true});
      if (!is_end && has_purlins) frame.support(at, {false, true, false, false, false, false});
      if (!is_end) press(at, between(0.5, 1.5));
      if (i > 0) beam(at - 1, at);
    }
  }

  /// A mullion with arms that nothing else holds.
  void bracketed() {
    const double height = between(2, 6);
    const Number foot_node = node(0, 0, 0);
    frame.support(foot_node, {true, true, true, false, false, true});
    const int pieces = whole(2, 4);
    const auto nodes = line(foot_node, {0, 0, 0}, {0, 0, height}, pieces);
    for (std::size_t i = 1; i + 1 < nodes.size(); ++i) {
      const double z = height * static_cast<double>(i) / pieces;
      const Number tip = node(between(-0.8, 0.8), between(0.2, 0.8), z);
      beam(nodes[i], tip);
      press(tip, between(0.01, 0.5));
    }
    frame.support(nodes.back(), {true, true, false, false, false, by_chance(50)});
    press(nodes.back(), between(5, 20));
  }

  /// Rings and ribs, pressed unevenly so that its modes are single.
  void dome() {
    const int rings = whole(2, 3), sectors = whole(5, 7);
    const double radius = between(3, 8), rise = radius * between(0.1, 0.4);
    std::vector<std::vector<Number>> at{{node(0, 0, rise)}};
    press(at[0][0], between(0.5, 1.5));
    for (int ring = 1; ring <= rings; ++ring) {
      const double share = static_cast<double>(ring) / rings;
      at.emplace_back();
      for (int i = 0; i < sectors; ++i) {
        const double turn = 2 * std::numbers::pi * i / sectors;
        const Number here = node(radius * share * std::cos(turn), radius * share * std::sin(turn),
                                 rise * (1 - share * share));
        at.back().push_back(here);
        if (ring == rings) frame.hinged(here);
        if (ring < rings) press(here, between(0.5, 1.5));
      }
      const auto& inner = at[static_cast<std::size_t>(ring - 1)];
      for (std::size_t i = 0; i < at.back().size(); ++i) {
        const std::size_t next = (i + 1) % at.back().size();
        beam(inner[i % inner.size()], at.back()[i]);
        beam(at.back()[i], at.back()[next]);
        if (ring > 1) beam(inner[i], at.back()[next]);
      }
    }
  }

  std::mt19937 random_;
  model::LoadCase load_case_;
  Number nodes_ = 0, elements_ = 0;
};

struct Counts {
  int frames = 0, factors = 0, by_mode = 0, told = 0;
};

void compare(const AnyFrame& any, const LengthFactor& factor, const Fine& fine,
             const std::string& name, Counts& counts) {
  if (fine.share < clearly_working) return;
  ++counts.factors;
  const std::string where = std::string(AnyFrame::kinds[any.kind]) + ", " + name + ", fine " +
                            std::to_string(fine.k) + ", " + std::string(name_of(factor.source));
  if (factor.source == FactorSource::mode) {
    ++counts.by_mode;
    EXPECT_NEAR(factor.k, fine.k, 0.01 * fine.k) << where;
  } else if (factor.k * below < fine.k) {
    ++counts.told;
    EXPECT_TRUE(is_below_mode(factor)) << where << " " << factor.k;
  }
}

TEST(LengthFactors, OfRandomFramesDoNotLieBelowThoseOfTheirModesUntold) {
  constexpr std::uint32_t frames = 500;
  std::array<Counts, AnyFrame::kinds.size()> counts;
  for (std::uint32_t seed = 1; seed <= frames; ++seed) {
    AnyFrame any(seed);
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    model::Model& model = any.frame.model();
    complete(model);
    const auto factors = factors_of(model);
    const auto mode = fine_mode(model, 6);
    ASSERT_TRUE(mode.has_value());
    const FineFactors by_fine(model, *mode, factors);
    Counts& of_kind = counts[any.kind];
    ++of_kind.frames;
    for (const SegmentFactors& segment : factors) {
      const std::string element = "element " + std::to_string(segment.elements[0]);
      compare(any, segment.y, by_fine.of(segment, 0), "Ky of " + element, of_kind);
      compare(any, segment.z, by_fine.of(segment, 1), "Kz of " + element, of_kind);
    }
  }
  for (std::size_t kind = 0; kind < counts.size(); ++kind) {
    const Counts& of = counts[kind];
    std::printf("%s: %d frames, %d factors that buckle, %d by modes, %d told to lie below\n",
                AnyFrame::kinds[kind], of.frames, of.factors, of.by_mode, of.told);
    EXPECT_GT(of.factors, of.frames / 2);
  }
}

}  // namespace
}  // namespace aluframe::members

// Random space frames against a computation of its own: every member cut into sixteen cubic
// elements. By Sylvester's law of inertia as many of its factors lie below one as its stiffness
// there has negative eigenvalues.

#include <gtest/gtest.h>

#include <random>

#include "buckling_frames.h"
#include "tests/support/fine_frame.h"

namespace aluframe::analysis::verification {
namespace {

constexpr int parts = 16;
/// Cubic elements are off by (k·h)⁴/720: 3e-5 for the second mode of a clamped member.
constexpr double agreement = 1e-3;

/// Frames of one or two bays and storeys: columns, beams with releases, braces, feet of all kinds.
class AnyFrame {
 public:
  explicit AnyFrame(std::uint32_t seed) : random_(seed) {
    bays_ = by_chance(40) ? 2 : 1;
    storeys_ = by_chance(40) ? 2 : 1;
    add_nodes();
    for (int floor = 1; floor <= storeys_; ++floor) add_storey(floor);
    for (std::size_t i = 0; i < feet(); ++i) add_foot(i);
    add_loads();
  }
  Frame frame;
  LoadCase loads;

 private:
  double between(double low, double high) {
    return low + (high - low) * static_cast<double>(random_()) / 4294967295.0;
  }
  bool by_chance(int percent) { return between(0, 100) < percent; }
  std::size_t feet() const { return 2 * static_cast<std::size_t>(bays_ + 1); }
  std::size_t node(int x, int y, int floor) const {
    return static_cast<std::size_t>((floor * (bays_ + 1) + x) * 2 + y);
  }

  void add_nodes() {
    for (int floor = 0; floor <= storeys_; ++floor) {
      for (int x = 0; x <= bays_; ++x) {
        for (int y = 0; y < 2; ++y) {
          const auto number = static_cast<Number>(frame.nodes.size() + 1);
          frame.nodes.push_back({number, 5000.0 * x + between(-400, 400),
                                 4000.0 * y + between(-400, 400),
                                 3500.0 * floor + between(-300, 300)});
        }
      }
    }
  }

  Element& add(std::size_t start, std::size_t end) {
    Element element;
    element.number = static_cast<Number>(frame.elements.size() + 1);
    element.start = start;
    element.end = end;
    element.stiffness = {.e = 70000.0,
                         .g = 27000.0,
                         .area = between(1000, 5000),
                         .ay = by_chance(50) ? between(100, 2000) : 0.0,
                         .az = by_chance(50) ? between(100, 2000) : 0.0,
                         .it = between(1e4, 1e7),
                         .iyy = between(1e6, 3e7),
                         .izz = between(1e6, 3e7)};
    element.beta = between(-180, 180);
    if (by_chance(50)) std::swap(element.start, element.end);
    return frame.elements.emplace_back(element);
  }

  /// Ends that are hinged or slide, so that the element itself stays held.
  void release(Element& element) {
    for (const std::size_t place : {3U, 4U, 5U}) {
      if (by_chance(25)) element.released[by_chance(50) ? place : place + 6] = true;
    }
    for (const std::size_t place : {1U, 8U}) {
      if (by_chance(7)) element.released[place] = true;
    }
  }

  void add_beam(std::size_t start, std::size_t end) {
    Element& element = add(start, end);
    release(element);
    const double load = by_chance(60) ? -between(0, 20) : 0.0;
    if (load == 0.0) return;
    loads.distributed.push_back({.element = frame.elements.size() - 1,
                                 .axes = LoadAxes::global,
                                 .from_value = {0, 0, load},
                                 .to_value = {0, 0, load}});
  }

  void add_storey(int floor) {
    for (int x = 0; x <= bays_; ++x) {
      for (int y = 0; y < 2; ++y) {
        Element& column = add(node(x, y, floor - 1), node(x, y, floor));
        if (by_chance(20)) release(column);
        if (x > 0) add_beam(node(x - 1, y, floor), node(x, y, floor));
        if (x > 0 && by_chance(30)) {
          add(node(x - 1, y, floor - 1), node(x, y, floor)).kind = ElementKind::truss;
        }
      }
      add_beam(node(x, 0, floor), node(x, 1, floor));
      if (by_chance(30)) {
        add(node(x, 1, floor - 1), node(x, 0, floor)).kind = ElementKind::truss;
      }
    }
  }

  void add_foot(std::size_t place) {
    const bool is_clamped = by_chance(50);
    frame.supports.push_back({place, clamped});
    if (is_clamped) return;
    for (const std::size_t turn : {3U, 4U}) frame.supports.back().fixed[turn] = false;
    if (by_chance(50)) {
      const double k = between(1e7, 1e10);
      frame.springs.push_back({place, {0, 0, 0, k, k, 0}});
    }
  }

  void add_loads() {
    for (std::size_t i = feet(); i < frame.nodes.size(); ++i) {
      if (by_chance(70)) loads.nodal.push_back({i, {0, 0, -between(1e3, 1e5)}});
    }
    if (by_chance(30)) frame.springs.push_back({feet(), {between(1, 1000), between(1, 1000)}});
  }

  std::mt19937 random_;
  int bays_ = 1, storeys_ = 1;
};

bool is_held(const AnyFrame& any) {
  return std::holds_alternative<Solution>(analyse(any.frame, {&any.loads, 1}));
}

TEST(Buckling, OfFiftyRandomFramesIsThatOfTheirMembersCutIntoCubicElements) {
  int compared = 0, modes = 0, own = 0;
  for (std::uint32_t seed = 1; compared < 50; ++seed) {
    ASSERT_LT(seed, 100U) << "too many mechanisms";
    const AnyFrame any(seed);
    if (!is_held(any)) continue;
    ++compared;
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    const BucklingResult found = buckle(any.frame, any.loads, compared % 5 == 0 ? 4 : 1);
    ASSERT_FALSE(found.modes.empty());
    EXPECT_LE(found.modes.size() == 1 ? found.factorisations : 0, 15);
    const FineFrame fine(any.frame, any.loads, parts);
    for (std::size_t i = 0; i < found.modes.size(); ++i) {
      const double factor = found.modes[i].factor;
      const int order = static_cast<int>(i);
      EXPECT_LE(fine.factors_below(factor * (1.0 - agreement)), order) << factor;
      EXPECT_GE(fine.factors_below(factor * (1.0 + agreement)), order + 1) << factor;
      ++modes;
      own += found.modes[i].element.has_value();
    }
  }
  std::printf("%d frames, %d modes, %d of single elements\n", compared, modes, own);
}

}  // namespace
}  // namespace aluframe::analysis::verification

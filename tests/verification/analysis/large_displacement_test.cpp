// Large displacements of bars and columns against closed forms and published curves.

#include "tests/verification/analysis/large_displacements.h"

namespace aluframe::analysis {
namespace {

// ---- Cantilevers ------------------------------------------------------------------------------

/// K. E. Bisshopp and D. C. Drucker, Quart. Appl. Math. 3 (1945) 272: a cantilever under a load at
/// its tip that stays vertical, by elliptic integrals of the modulus k.
struct Elastica {
  double k = 0.0, load = 0.0;  ///< P·L²/EI

  explicit Elastica(double modulus) : k(modulus) {
    const double start = std::asin(1 / (k * std::sqrt(2.0)));
    const double root = std::comp_ellint_1(k) - std::ellint_1(k, start);
    load = root * root;
    down = 1 - 2 / root * (std::comp_ellint_2(k) - std::ellint_2(k, start));
    const double sine = 2 * k * k - 1;
    back = 1 - std::sqrt(2 * sine / load);
    turn = std::asin(sine);
  }
  double down = 0.0, back = 0.0, turn = 0.0;  ///< of the tip: parts of the length; rad
};

/// 500 times as long as its radius of gyration: it shortens by 4e-5 at most.
Stiffness thin() {
  return {.e = 70000.0, .g = 27000.0, .area = 250.0, .it = 1e3, .iyy = 1e3, .izz = 2e3};
}

class ElasticaTest : public testing::TestWithParam<double> {};

TEST_P(ElasticaTest, IsMetByOneElement) {
  const Elastica exact(GetParam());
  constexpr double length = 1000.0;
  const Stiffness s = thin();
  LoadCase loads;
  loads.nodal.push_back({1, {0, 0, -exact.load * s.e * s.iyy / (length * length)}});
  const CaseResult r = displaced(cantilever(length, s), loads);
  // Eight pieces, the softest one turning by a quarter of the whole angle: 5e-3 at 82 degrees.
  const double tolerance = exact.load < 3 ? 5e-4 : 5e-3;
  EXPECT_NEAR(r.displacements[1][dz] / length, -exact.down, tolerance * exact.down);
  EXPECT_NEAR(r.displacements[1][dx] / length, -exact.back, tolerance * exact.back);
  EXPECT_NEAR(r.displacements[1][ry], exact.turn, tolerance * exact.turn);
  // The clamping moment balances the load at its displaced arm; single precision.
  const double arm = length + r.displacements[1][dx];
  EXPECT_NEAR(r.reactions[0].value[ry], loads.nodal[0].value[2] * arm,
              1e-6 * std::abs(loads.nodal[0].value[2] * arm));
}

// Loads P·L²/EI of 0.65, 2.2 and 9.9.
INSTANTIATE_TEST_SUITE_P(Moduli, ElasticaTest, testing::Values(0.80, 0.93, 0.9975),
                         [](const auto& of) {
                           return "modulus_" + std::to_string(static_cast<int>(1e4 * of.param));
                         });

TEST(LargeDisplacement, AnEndMomentBendsACantileverToACircle) {
  constexpr double length = 1000.0;
  const Stiffness s = thin();
  for (const double angle : {0.5 * pi, pi, 1.9 * pi}) {
    LoadCase loads;
    loads.nodal.push_back({1, {0, 0, 0, 0, -angle * s.e * s.iyy / length, 0}});
    Frame frame = cantilever(length, s);
    frame.supports.push_back({1, {false, true, false, true, false, true}});  // stays in its plane
    const CaseResult r = displaced(frame, loads);
    const double radius = length / angle;
    // Chords of eight pieces are those of arcs to (angle/16)^4/120.
    const double tolerance = 2e-3 * length;
    EXPECT_NEAR(r.displacements[1][dx], radius * std::sin(angle) - length, tolerance) << angle;
    EXPECT_NEAR(r.displacements[1][dz], radius * (1 - std::cos(angle)), tolerance) << angle;
  }
}

TEST(LargeDisplacement, ABendOf45DegreesMovesInSpaceAsPublished) {
  // K.-J. Bathe and S. Bolourchi, Int. J. Numer. Meth. Engng 14 (1979) 961: radius 100, section
  // 1 x 1, E = 1e7, no lateral contraction, load 300 and 600 across the plane of the bend.
  const Stiffness s{.e = 1e7,
                    .g = 5e6,
                    .area = 1.0,
                    .ay = 5.0 / 6.0,
                    .az = 5.0 / 6.0,
                    .it = 1.0 / 6.0,
                    .iyy = 1.0 / 12.0,
                    .izz = 1.0 / 12.0};
  Frame frame;
  constexpr int count = 8;
  for (int i = 0; i <= count; ++i) {
    const double angle = pi / 4 * i / count;
    add_node(frame, 100 * (1 - std::cos(angle)), 100 * std::sin(angle), 0);
  }
  for (std::size_t i = 0; i < count; ++i) add_element(frame, i, i + 1, s);
  frame.supports.push_back({0, clamped});
  const auto tip = [&](double load) {
    LoadCase loads;
    loads.nodal.push_back({count, {0, 0, load}});
    const Vector6 moved = displaced(frame, loads).displacements[count];
    const Node& node = frame.nodes[count];
    return std::array{node.x + moved[0], node.y + moved[1], moved[2]};
  };
  // Published positions differ from one another by about 1 % of the displacement.
  EXPECT_THAT(tip(300), testing::Pointwise(testing::DoubleNear(0.7), {22.5, 59.2, 39.5}));
  EXPECT_THAT(tip(600), testing::Pointwise(testing::DoubleNear(0.7), {15.9, 47.2, 53.4}));
}

// ---- Strongly pulled beams --------------------------------------------------------------------

/// A clamped bar under a load across and a pull: with k² = N/EI and u = kL/2 the moment at its ends
/// is -q/k²·(u·coth u - 1), and in the middle q/k²·(1 - u/sinh u).
TEST(PulledBeam, HasTheMomentsOfTheTie) {
  constexpr double length = 3000.0, q = 0.01;
  const double area = pi * 25.0, inertia = pi * 625.0 / 4.0;  // a rod of 10 mm
  Frame frame = cantilever(length, {.e = 70000.0,
                                    .g = 27000.0,
                                    .area = area,
                                    .it = 2 * inertia,
                                    .iyy = inertia,
                                    .izz = inertia});
  frame.supports.push_back({1, {false, true, true, true, true, true}});
  for (const double pull : {1000.0, 10000.0, 20000.0}) {
    LoadCase loads;
    loads.nodal.push_back({1, {pull, 0, 0}});
    loads.distributed.push_back({.element = 0, .from_value = {0, 0, -q}, .to_value = {0, 0, -q}});
    const CaseResult r = displaced(frame, loads);
    const double k = std::sqrt(pull / (70000.0 * inertia)), u = k * length / 2;
    const double at_end = -q / (k * k) * (u / std::tanh(u) - 1);
    const double in_middle = q / (k * k) * (1 - u / std::sinh(u));
    // Cubic shapes of pieces up to kl = 0.8: its fourth power over 720.
    EXPECT_NEAR(r.forces[0][0][my], at_end, 2e-3 * -at_end) << pull;
    EXPECT_NEAR(r.forces[0][2][my], in_middle, 2e-3 * in_middle) << pull;
  }
}

// ---- Stiff links ------------------------------------------------------------------------------

std::pair<Frame, LoadCase> cantilever_with_link(double l, double a, double times, double load) {
  Frame frame = cantilever(l);
  add_node(frame, l + a, 0, 0);
  Stiffness stiff = plain_stiffness();
  for (double* const value : {&stiff.area, &stiff.it, &stiff.iyy, &stiff.izz}) *value *= times;
  add_element(frame, 1, 2, stiff);
  LoadCase loads;
  loads.nodal.push_back({2, {0, 0, -load}});
  return {frame, loads};
}

/// A cantilever whose last tenth is many times as stiff: the load at its end acts on the bar with a
/// moment, so that the bar's end moves by P·l³/3EI + P·a·l²/2EI and turns by P·l²/2EI + P·a·l/EI,
/// with which the link turns.
TEST(StiffLink, AtTheEndOfACantilever) {
  constexpr double l = 900.0, a = 100.0, load = 30.0;
  for (const double times : {30.0, 300.0, 1000.0}) {
    const auto [frame, loads] = cantilever_with_link(l, a, times, load);
    const double ei = plain_stiffness().e * plain_stiffness().iyy;
    const double turn = load * (l * l / 2 + a * l) / ei;
    const double down = load * (l * l * l / 3 + a * l * l / 2) / ei + a * turn;
    const double in_link = load * a * a * a / 3 / (ei * times);
    const CaseResult r = displaced(frame, loads);
    // Rotations of 3e-5, whose squares are left out here.
    EXPECT_NEAR(r.displacements[2][dz], -(down + in_link), 1e-6 * down) << times;
  }
}

TEST(StiffLink, BeyondWhatRoundingAllowsIsRefusedWithTheReason) {
  const auto [frame, loads] = cantilever_with_link(900.0, 100.0, 1e8, 30.0);
  const auto answer = analyse_large_displacements(frame, loads);
  EXPECT_THAT(std::get<Problem>(answer).text, testing::HasSubstr("rounding in the stiffest"));
}

// ---- Loads that leave a frame without forces -------------------------------------------------

/// A bar that is warmer above bends to an arc without stress: κ = α·ΔT/h.
TEST(WithoutForces, ADifferenceOfTemperatureBendsACantileverToAnArc) {
  constexpr double length = 3000.0, depth = 100.0, expansion = 2.3e-5;
  Frame frame = cantilever(length);
  frame.elements[0].expansion = expansion;
  for (const double difference : {1.0, 30.0, 600.0}) {
    LoadCase loads;
    loads.temperatures.push_back({.element = 0, .difference_z = difference, .depth_z = depth});
    const CaseResult r = displaced(frame, loads);
    const double turn = expansion * difference / depth * length, radius = length / turn;
    EXPECT_NEAR(std::abs(r.displacements[1][dz]), radius * (1 - std::cos(turn)), 1e-3)
        << difference;
    EXPECT_NEAR(r.displacements[1][dx], radius * std::sin(turn) - length, 1e-3) << difference;
  }
}

/// A beam on hinges turns as a rigid body when a support comes down.
TEST(WithoutForces, ASettlementTurnsABeamOnHinges) {
  constexpr double length = 4000.0;
  Frame frame = cantilever(length);
  frame.supports = {{0, {true, true, true, true, false, false}}, {1, {false, true, true}}};
  for (const double down : {1.0, 100.0, 1000.0}) {
    LoadCase loads;
    loads.settlements.push_back({1, dz, -down});
    const CaseResult r = displaced(frame, loads);
    EXPECT_NEAR(r.displacements[1][dx], std::sqrt(length * length - down * down) - length,
                1e-6 * down)
        << down;
    EXPECT_NEAR(r.displacements[1][ry], std::asin(down / length), 1e-6) << down;
  }
}

/// The end of a clamped bar that turns with its support.
TEST(WithoutForces, ATurnedSupportTurnsACantilever) {
  constexpr double length = 1000.0;
  for (const double turn : {0.01, 0.3, 1.2}) {
    LoadCase loads;
    loads.settlements.push_back({0, ry, turn});
    const CaseResult r = displaced(cantilever(length), loads);
    EXPECT_NEAR(r.displacements[1][dz], -length * std::sin(turn), 1e-4) << turn;
    EXPECT_NEAR(r.displacements[1][dx], length * (std::cos(turn) - 1), 1e-4) << turn;
  }
}

// ---- Columns ----------------------------------------------------------------------------------

TEST(LargeDisplacement, AColumnOfOneElementBucklesAtEulersLoads) {
  // Clamped-free, hinged and clamped at both ends: effective lengths 2, 1 and 1/2.
  constexpr double length = 4000.0;
  Stiffness s = plain_stiffness();
  s.izz = 1e9;
  const double euler = pi * pi * s.e * s.iyy / (length * length);
  const auto factor_of = [&](const Support& start, const Support& end, double load) {
    Frame frame = cantilever(length, s);
    frame.supports = {start, end};
    LoadCase loads;
    loads.nodal.push_back({1, {-load}});
    const LimitLoad found = limit_of(frame, loads, 2.0);
    EXPECT_EQ(found.kind, LimitLoad::Kind::buckling);
    return found.factor;
  };
  const Support held{0, clamped}, hinged{0, {true, true, true, true, false, true}};
  const Support free{1, {false, true, false, true, false, true}},
      rolling{1, {false, true, true, true, false, true}},
      guided{1, {false, true, true, true, true, true}};
  // The bar is shortened by σ/E = 2e-3 to 8e-3 before it buckles, which raises its load by twice
  // that; bracket 1e-4; pieces 5e-4 (clamped at both ends).
  const double shortening = euler / (s.e * s.area);
  EXPECT_NEAR(factor_of(held, free, euler / 4), 1.0, 2 * shortening + 2e-4);
  EXPECT_NEAR(factor_of(hinged, rolling, euler), 1.0, 2 * shortening + 2e-4);
  EXPECT_NEAR(factor_of(held, guided, 4 * euler), 1.0, 8 * shortening + 7e-4);
}

TEST(LargeDisplacement, ABeamOnForksBucklesSidewaysAtTimoshenkosLoad) {
  // Under a force at its middle: 16.94·√(EIz·GIt)/L² (Timoshenko and Gere, 6.5), without warping;
  // bending in its own plane before raises it by 1/√(1 - Iz/Iy) at most, 0.5 %.
  constexpr double length = 4000.0;
  Stiffness s = plain_stiffness();
  s.iyy = 2e7;
  s.izz = 2e5;
  s.it = 4e5;
  Frame frame;
  for (const double x : {0.0, 0.5, 1.0}) add_node(frame, x * length, 0, 0);
  add_element(frame, 0, 1, s);
  add_element(frame, 1, 2, s);
  frame.supports = {{0, {true, true, true, true}}, {2, {false, true, true, true}}};
  LoadCase loads;
  const double critical = 16.94 * std::sqrt(s.e * s.izz * s.g * s.it) / (length * length);
  loads.nodal.push_back({1, {0, 0, -critical}});
  const LimitLoad found = limit_of(frame, loads);
  EXPECT_EQ(found.kind, LimitLoad::Kind::buckling);
  EXPECT_EQ(found.text, "node 2 moves along Y");
  EXPECT_NEAR(found.factor, 1.0, 5e-3);
}

/// As far as a factor is looked for does not make it less certain: a strut on hinges, which its
/// load shortens by N/EA before it bends out, so that its Euler load is that of the shorter length.
TEST(LimitLoadOfAStrut, IsThatOfEulerHoweverFarIsLooked) {
  constexpr double length = 3000.0, load = 10000.0;
  Frame frame = cantilever(length);
  frame.supports = {{0, {true, true, true, true, false, false}}, {1, {false, true, true}}};
  LoadCase loads;
  loads.nodal.push_back({1, {-load, 0, 0}});
  const Stiffness s = plain_stiffness();
  const double euler = pi * pi * s.e * s.izz / (length * length);
  for (const double largest : {70.0, 200.0, 1e4, 1e6}) {
    // Pieces with cubic shapes buckle 3e-5 too late, and N/EA of their length is 3e-3.
    EXPECT_NEAR(limit_of(frame, loads, largest).factor, euler / load, 5e-3 * euler / load)
        << largest;
  }
}

}  // namespace
}  // namespace aluframe::analysis

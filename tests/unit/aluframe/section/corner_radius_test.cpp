#include "aluframe/section/plates.h"
#include "aluframe/section/section_properties.h"
#include "sections.h"

namespace aluframe::section {
namespace {

using model::Shape;

// The piece between a quarter circle of radius 1 and its square's sides, by hand: area 1 − π/4,
// first moment about a side 1/2 − ∫(1 − u)√(1 − u²)du = 5/6 − π/4, second 1 − 5π/16.
constexpr double piece = 1.0 - M_PI / 4.0;
constexpr double first = 5.0 / 6.0 - M_PI / 4.0;
constexpr double second = 1.0 - 5.0 * M_PI / 16.0;

TEST(CornerRadius, APieceHasTheMomentsOfItsSquareLessTheQuarterCircle) {
  const Rounding r{2.0, 10.0, 20.0, 1.0, -1.0, 1.0};
  expect_close(r.area(), 4.0 * piece);
  expect_close(r.centre_y(), 10.0 + 2.0 * first / piece);
  expect_close(r.centre_z(), 20.0 - 2.0 * first / piece);
  expect_close(r.inertia(), 16.0 * (second - first * first / piece));
}

// Checked by summing thin strips of the piece of radius 1: 0.00755 about its own centroid.
TEST(CornerRadius, APiecesOwnInertiaIsTheHandbooks) {
  EXPECT_NEAR((Rounding{1.0, 0, 0, 1, 1, 1.0}.inertia()), 0.00755, 5e-6);
  EXPECT_NEAR((Rounding{1.0, 0, 0, 1, 1, 1.0}.centre_y()), 0.2234, 5e-5);
}

/// ∫ over a filleted H section, strip by strip along z: an independent computation.
struct Strips {
  double area = 0.0, iyy = 0.0, izz = 0.0;
};
Strips strips_of_h(double h, double b, double tw, double tf, double r1, double r2) {
  constexpr int count = 200000;
  Strips out;
  const double step = h / count;
  for (int i = 0; i < count; ++i) {
    const double z = std::abs(-h / 2.0 + (i + 0.5) * step);
    const double below_flange = h / 2.0 - tf - z;  // distance to the flange's inner face
    double width = tw;
    if (below_flange <= 0.0) {
      width = b;
      const double from_edge = r2 + below_flange;  // > 0 within the rounded edge
      if (from_edge > 0.0) width -= 2.0 * (r2 - std::sqrt(r2 * r2 - from_edge * from_edge));
    } else if (below_flange < r1) {
      const double u = r1 - below_flange;
      width += 2.0 * (r1 - std::sqrt(r1 * r1 - u * u));
    }
    out.area += width * step;
    out.iyy += width * step * z * z;
    out.izz += step * width * width * width / 12.0;
  }
  return out;
}

TEST(CornerRadius, AnHSectionWithRadiiHasTheMomentsOfItsStrips) {
  const Strips strips = strips_of_h(200, 100, 6, 10, 12, 4);
  const auto h = properties_of(Shape::h_section, {200, 100, 6, 10, 100, 10, 12, 4});
  // Strips of 0.001 mm: 1e-5.
  expect_close(h.area, strips.area, 1e-5);
  expect_close(h.iyy, strips.iyy, 1e-5);
  expect_close(h.izz, strips.izz, 1e-5);
}

TEST(CornerRadius, AChannelGainsTwoFilletsAndLosesTwoEdges) {
  const auto sharp = properties_of(Shape::channel, {100, 50, 5, 8, 50, 8});
  const auto rounded = properties_of(Shape::channel, {100, 50, 5, 8, 50, 8, 6, 3});
  expect_close(rounded.area, sharp.area + 2.0 * piece * (36.0 - 9.0));
}

TEST(CornerRadius, FilletsRaiseTheFirstMomentOfTheHalfSection) {
  const auto sharp = properties_of(Shape::h_section, {200, 100, 6, 10, 100, 10});
  const auto rounded = properties_of(Shape::h_section, {200, 100, 6, 10, 100, 10, 12});
  // Two fillets above the axis: their area times their height, over the web.
  const double lever = 90.0 - 12.0 * first / piece;
  expect_close(rounded.qyb, sharp.qyb + 2.0 * 144.0 * piece * lever / 6.0);
}

TEST(CornerRadius, RadiiThatFindNoRoomAreRefused) {
  const auto text = [](std::array<double, 8> d) {
    const auto problem = find_dimension_problem(make_section(Shape::h_section, d));
    return problem ? problem->text : std::string();
  };
  EXPECT_EQ(text({100, 50, 5, 8, 50, 8, 20, 2}), "");
  EXPECT_EQ(text({100, 50, 5, 8, 50, 8, 43, 0}),
            "r1 is 43 mm: the web leaves room for at most 42 mm");
  EXPECT_EQ(text({100, 50, 5, 8, 50, 6, 4, 7}),
            "r2 is 7 mm: the thinner flange leaves room for at most 6 mm");
  EXPECT_EQ(text({100, 50, 5, 8, 40, 8, 14, 4}),
            "r1 is 14 mm: beside the other radius, the narrower flange leaves room for at most "
            "13.5 mm");
}

}  // namespace
}  // namespace aluframe::section

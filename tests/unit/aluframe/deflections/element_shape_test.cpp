// Polynomials of the fifth degree in Bernstein form, against powers evaluated by hand.

#include "aluframe/analysis/element_shape.h"

#include <gmock/gmock.h>

#include <cmath>

namespace aluframe::analysis {
namespace {

template <class Function>
Bernstein of(Function function) {
  std::array<double, 6> values{};
  for (std::size_t i = 0; i < 6; ++i) values[i] = function(static_cast<double>(i) / 5.0);
  return through(values);
}

TEST(Bernstein, GoesThroughItsValuesAndBetween) {
  const auto power = [](double t) { return 2 - 3 * t + t * t * t - 4 * std::pow(t, 5); };
  const Bernstein polynomial = of(power);
  for (const double t : {0.0, 0.13, 0.5, 0.77, 1.0}) {
    EXPECT_NEAR(value_at(polynomial, t), power(t), 1e-13) << t;
  }
  EXPECT_EQ(polynomial.front(), power(0.0));
  EXPECT_EQ(polynomial.back(), power(1.0));
}

TEST(Bernstein, PeakWithinTheStretch) {
  // t(1-t)² is largest at 1/3: 4/27.
  const Peak peak = peak_of(of([](double t) { return t * (1 - t) * (1 - t); }));
  EXPECT_NEAR(peak.part, 1.0 / 3.0, 1e-6);
  EXPECT_NEAR(peak.value, 4.0 / 27.0, 1e-12);
}

TEST(Bernstein, PeakKeepsItsSignAndMayBeAnEnd) {
  const Peak peak = peak_of(of([](double t) { return 1 - 3 * t; }));
  EXPECT_EQ(peak.part, 1.0);
  EXPECT_NEAR(peak.value, -2.0, 1e-14);
}

TEST(Bernstein, LargerOfTwoWaves) {
  // The roots are 0, 1/5, 1/2, 4/5, 1; sampled finely here.
  const auto wave = [](double t) { return t * (t - 0.2) * (t - 0.5) * (t - 0.8) * (t - 1); };
  double largest = 0.0;
  for (int i = 0; i <= 100000; ++i) largest = std::max(largest, std::abs(wave(i / 100000.0)));
  EXPECT_NEAR(std::abs(peak_of(of(wave)).value), largest, 1e-11);
}

TEST(Bernstein, ConstantAndZeroEndAtOnce) {
  EXPECT_EQ(peak_of(Bernstein{}).value, 0.0);
  EXPECT_EQ(peak_of(Bernstein{3, 3, 3, 3, 3, 3}).value, 3.0);
}

TEST(ElementShape, TakesAFunctionPieceByPiece) {
  const std::array bounds{0.0, 1000.0, 4000.0};
  const ElementShape shape = shape_through(bounds, [](std::span<const double> places) {
    std::array<std::vector<double>, 2> out;
    for (const double x : places) {
      out[0].push_back(x);
      out[1].push_back(x * x);
    }
    return out;
  });
  ASSERT_EQ(shape.size(), 2U);
  EXPECT_EQ(shape[1].from, 1000.0);
  EXPECT_NEAR(value_at(shape[1].across[1], 0.5), 2500.0 * 2500.0, 1e-6);
  EXPECT_NEAR(value_at(shape[0].across[0], 0.25), 250.0, 1e-10);
}

}  // namespace
}  // namespace aluframe::analysis

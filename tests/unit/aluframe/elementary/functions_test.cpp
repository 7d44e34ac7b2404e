// Elementary functions give the nearest number there is to the exact value. The library's with 64
// binary digits are the measure: 11 more than a result has.

#include "aluframe/elementary/functions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <random>

namespace aluframe::elementary {
namespace {

constexpr int samples = 100'000;

/// Distance of a result from the exact value, in units of its last place: at most a half when it is
/// the nearest number, and what the measure itself is off.
double distance(double result, long double exact) {
  const double place =
      std::nextafter(std::abs(result), std::numeric_limits<double>::infinity()) - std::abs(result);
  return static_cast<double>(std::abs(result - exact) / place);
}

constexpr double nearest = 0.5 + 2e-3;

/// A number of each size from tiny to the largest, of both signs.
class Numbers {
 public:
  double next(double largest) {
    const double size = largest * std::exp2(-20.0 * share_(engine_));
    return engine_() % 2 == 0 ? size : -size;
  }

 private:
  std::mt19937_64 engine_{50429};
  std::uniform_real_distribution<double> share_{0.0, 1.0};
};

TEST(ElementaryFunctions, AreTheNearestNumbers) {
  Numbers numbers;
  for (int i = 0; i < samples; ++i) {
    const double angle = numbers.next(1000.0);
    EXPECT_LE(distance(sine(angle), std::sin(static_cast<long double>(angle))), nearest) << angle;
    EXPECT_LE(distance(cosine(angle), std::cos(static_cast<long double>(angle))), nearest) << angle;
    const double share = numbers.next(1.0);
    EXPECT_LE(distance(angle_of_sine(share), std::asin(static_cast<long double>(share))), nearest)
        << share;
    const double x = numbers.next(1e6), y = numbers.next(1e6);
    EXPECT_LE(distance(angle_of(y, x), std::atan2(static_cast<long double>(y), x)), nearest)
        << y << ' ' << x;
    EXPECT_LE(distance(hypotenuse(x, y), std::hypot(static_cast<long double>(x), y)), nearest)
        << x << ' ' << y;
    const double base = std::abs(numbers.next(1e6)), exponent = numbers.next(3.0);
    EXPECT_LE(distance(power(base, exponent), std::pow(static_cast<long double>(base), exponent)),
              nearest)
        << base << ' ' << exponent;
  }
}

TEST(ElementaryFunctions, RaiseToPowersAsTheLibraryWhereNothingIsRounded) {
  EXPECT_EQ(power(2.0, 10.0), 1024.0);
  EXPECT_EQ(power(49.0, 0.5), 7.0);
  EXPECT_EQ(power(1.0, 1e300), 1.0);
  EXPECT_EQ(power(3.5, 0.0), 1.0);
  EXPECT_EQ(power(0.0, 0.3), 0.0);
  EXPECT_EQ(power(0.0, -0.3), std::numeric_limits<double>::infinity());
  EXPECT_EQ(power(2.0, 1e6), std::numeric_limits<double>::infinity());
  EXPECT_EQ(power(2.0, -1e6), 0.0);
  EXPECT_EQ(power(0x1p-1074, 0.5), 0x1p-537);
  EXPECT_EQ(power(0x1p1000, -1.0), 0x1p-1000);
  EXPECT_TRUE(std::isnan(power(-2.0, 0.5)));
}

TEST(ElementaryFunctions, HaveTheValuesOfRightTriangles) {
  EXPECT_EQ(hypotenuse(3.0, -4.0), 5.0);
  EXPECT_EQ(hypotenuse(0.0, 0.0), 0.0);
  EXPECT_EQ(hypotenuse(3e300, 4e300), 5e300);
  EXPECT_EQ(sine(0.0), 0.0);
  EXPECT_EQ(cosine(0.0), 1.0);
  EXPECT_EQ(angle_of(0.0, -1.0), std::numbers::pi);
  EXPECT_EQ(angle_of(-2.0, 0.0), -std::numbers::pi / 2.0);
  EXPECT_EQ(angle_of(1.0, 1.0), std::numbers::pi / 4.0);
  EXPECT_EQ(angle_of_sine(1.0), std::numbers::pi / 2.0);
}

TEST(ElementaryFunctions, SeeTheShortSideOfAFlatTriangle) {
  // sqrt(1 + s^2) = 1 + s^2/2: 9/8 units in the last place of 1.
  EXPECT_EQ(hypotenuse(1.0, 0x1.8p-26), 1.0 + 0x1p-52);
  EXPECT_EQ(hypotenuse(1.0, 0x1p-30), 1.0);
}

TEST(ElementaryFunctions, OfWhatIsNoAngleAreNoNumbers) {
  const double infinite = std::numeric_limits<double>::infinity();
  EXPECT_TRUE(std::isnan(sine(infinite)));
  EXPECT_TRUE(std::isnan(cosine(-infinite)));
  EXPECT_TRUE(std::isnan(angle_of_sine(1.5)));
  EXPECT_EQ(hypotenuse(-infinite, 1.0), infinite);
}

TEST(PowersOfTen, AreTheNumbersThatTheyAreWrittenAs) {
  EXPECT_EQ(power_of_ten(0), 1.0);
  EXPECT_EQ(power_of_ten(-5), 1e-5);
  EXPECT_EQ(power_of_ten(23), 1e23);
  EXPECT_EQ(power_of_ten(-310), 1e-310);
  EXPECT_EQ(power_of_ten(400), std::numeric_limits<double>::infinity());
  EXPECT_EQ(power_of_ten(-400), 0.0);
}

TEST(PowersOfTen, StandBelowANumberOrAreIt) {
  EXPECT_EQ(exponent_of_ten(1000.0), 3);
  EXPECT_EQ(exponent_of_ten(std::nextafter(1000.0, 0.0)), 2);
  EXPECT_EQ(exponent_of_ten(0.001), -3);
  EXPECT_EQ(exponent_of_ten(std::nextafter(0.001, 0.0)), -4);
  EXPECT_EQ(exponent_of_ten(5e-320), -320);
}

}  // namespace
}  // namespace aluframe::elementary

#pragma once

/// Elementary functions whose values do not depend on the machine. Those of C libraries differ in
/// their last digit from system to system, and within one from processor to processor; these are
/// worked out with twice the digits, and rounded once: the nearest double to the exact value, but
/// for one case in some 10^12. They stand where a result, a report or a table comes of them. What
/// is drawn on the screen may take the library's, which are many times as fast.
///
/// Square roots, sums, products and quotients are exact to the last digit everywhere.
namespace aluframe::elementary {

/// √(x² + y²), without overflow on the way.
double hypotenuse(double x, double y);

/// Of an angle in radians.
double sine(double angle);
double cosine(double angle);
/// The angle of −π/2 to π/2 with this sine; not a number beyond ±1.
double angle_of_sine(double sine);
/// The angle of −π to π from the x axis to a point, as the library's atan2.
double angle_of(double y, double x);

/// base^exponent, as the library's pow.
double power(double base, double exponent);
/// 10^exponent; 0 and infinity beyond the range of numbers.
double power_of_ten(int exponent);
/// The largest exponent whose power of ten is not above a positive number.
int exponent_of_ten(double value);

}  // namespace aluframe::elementary

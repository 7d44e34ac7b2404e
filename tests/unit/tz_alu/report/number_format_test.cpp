// Printed values against the C library's printf, over random values and all borders.

#include "tz_alu/report/number_format.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

namespace {

using alu_report::FormatValue;

// The double closest to a power of ten, by the library's reading of "1e7".
double TenTo(int exponent) {
  return std::strtod(("1e" + std::to_string(exponent)).c_str(), nullptr);
}

bool PrintsAnExponent(double magnitude, int precision, int width) {
  if (magnitude < 1e-7 * 1e-7 * 1e-7) return false;
  const double upper = precision == 0 ? TenTo(width) : TenTo(width - precision - 1);
  const double lower = precision == 0 ? 1.0 : TenTo(-precision);
  return magnitude >= upper || magnitude < lower;
}

// Whole numbers have 32 bits; what does not fit is the smallest one.
int Whole(double value) {
  const double cut = std::trunc(value);
  return cut >= -2147483648.0 && cut <= 2147483647.0 ? static_cast<int>(cut) : -2147483647 - 1;
}

std::wstring ByPrintf(double value, int precision, int width) {
  char text[1024];
  if (PrintsAnExponent(std::fabs(value), precision, width)) {
    std::snprintf(text, sizeof text, "%*.*e", width, precision, value);
  } else if (precision != 0) {
    std::snprintf(text, sizeof text, "%*.*f", width, precision, value);
  } else {
    std::snprintf(text, sizeof text, "%*d", width, Whole(value));
  }
  const std::string narrow = text;
  return {narrow.begin(), narrow.end()};
}

void ExpectAsPrintf(double value, int precision, int width) {
  ASSERT_EQ(FormatValue(value, static_cast<unsigned>(precision), static_cast<unsigned>(width)),
            ByPrintf(value, precision, width))
      << "value " << testing::PrintToString(value) << ", precision " << precision << ", width "
      << width;
}

/// Random values, the same on every machine.
class RANDOM_VALUES {
 public:
  /// Any bit pattern: all exponents, subnormal, infinite and undefined values among them.
  double Any() { return std::bit_cast<double>(m_bits()); }
  /// A magnitude from 1e-25 to 1e25, evenly over the exponents.
  double Moderate() {
    const double mantissa = 1.0 + 9.0 * static_cast<double>(m_bits() >> 11) * 0x1p-53;
    const double sign = m_bits() % 2 == 0 ? 1.0 : -1.0;
    return sign * mantissa * TenTo(Below(50) - 25);
  }
  int Below(int bound) { return static_cast<int>(m_bits() % static_cast<std::uint64_t>(bound)); }

 private:
  std::mt19937_64 m_bits{20071201};
};

constexpr int kValues = 120'000;

TEST(FormatValueAsPrintf, RandomValuesOverTheWholeRangeOfDoubles) {
  RANDOM_VALUES random;
  for (int i = 0; i < kValues; ++i) {
    const double value = random.Any();
    ASSERT_NO_FATAL_FAILURE(ExpectAsPrintf(value, random.Below(18), random.Below(41)));
  }
}

TEST(FormatValueAsPrintf, RandomValuesOfModerateMagnitude) {
  RANDOM_VALUES random;
  for (int i = 0; i < kValues; ++i) {
    const double value = random.Moderate();
    ASSERT_NO_FATAL_FAILURE(ExpectAsPrintf(value, random.Below(18), random.Below(41)));
  }
}

TEST(FormatValueAsPrintf, RandomValuesInTheFormatsOfTheReport) {
  RANDOM_VALUES random;
  for (int i = 0; i < kValues / 3; ++i) {
    const double value = random.Moderate();
    ASSERT_NO_FATAL_FAILURE(ExpectAsPrintf(value, 3, 10));
    ASSERT_NO_FATAL_FAILURE(ExpectAsPrintf(value, 5, 0));
    ASSERT_NO_FATAL_FAILURE(ExpectAsPrintf(value, 0, 10));
  }
}

TEST(FormatValueAsPrintf, MoreDecimalsThanADoubleHas) {
  RANDOM_VALUES random;
  for (int i = 0; i < 2'000; ++i) {
    ASSERT_NO_FATAL_FAILURE(ExpectAsPrintf(random.Moderate(), 60, 80));
    ASSERT_NO_FATAL_FAILURE(ExpectAsPrintf(random.Any(), 400, 420));
  }
}

void ExpectAsPrintfAround(double border, int precision, int width) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  for (const double magnitude :
       {std::nextafter(border, 0.0), border, std::nextafter(border, kInfinity)}) {
    ASSERT_NO_FATAL_FAILURE(ExpectAsPrintf(magnitude, precision, width));
    ASSERT_NO_FATAL_FAILURE(ExpectAsPrintf(-magnitude, precision, width));
  }
}

// Powers of ten up to 1e22 are doubles, so their borders are the same however they are computed.
constexpr int kExactPower = 22;

TEST(FormatValueAsPrintf, UpperBordersAndTheirNeighbours) {
  for (int precision = 0; precision <= 17; ++precision) {
    for (int width = 0; width <= 40; ++width) {
      const int exponent = precision == 0 ? width : width - precision - 1;
      if (exponent > kExactPower) continue;
      ASSERT_NO_FATAL_FAILURE(ExpectAsPrintfAround(TenTo(exponent), precision, width));
    }
  }
}

TEST(FormatValueAsPrintf, LowerBordersAndTheirNeighbours) {
  for (int precision = 0; precision <= 17; ++precision) {
    for (int width = 0; width <= 40; ++width) {
      ASSERT_NO_FATAL_FAILURE(ExpectAsPrintfAround(TenTo(-precision), precision, width));
    }
  }
}

TEST(FormatValueAsPrintf, ZerosAndValuesThatCountAsZero) {
  for (int precision = 0; precision <= 17; ++precision) {
    for (int width = 0; width <= 40; ++width) {
      for (const double value : {0.0, -0.0, 1e-21, 0.9e-21, 1.1e-21, 1e-22, 5e-324}) {
        ASSERT_NO_FATAL_FAILURE(ExpectAsPrintf(value, precision, width));
        ASSERT_NO_FATAL_FAILURE(ExpectAsPrintf(-value, precision, width));
      }
    }
  }
}

TEST(FormatValueAsPrintf, ValuesThatAreNotFinite) {
  for (int precision = 0; precision <= 17; ++precision) {
    for (int width = 0; width <= 40; ++width) {
      for (const double value :
           {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        ASSERT_NO_FATAL_FAILURE(ExpectAsPrintf(value, precision, width));
        ASSERT_NO_FATAL_FAILURE(ExpectAsPrintf(-value, precision, width));
      }
    }
  }
}

}  // namespace

// Which check governs is decided by the rules of severity for any numbers, also where products or
// quotients overflow, vanish, or differ in their last digit only.

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

#include "host/tz_db/ralu.h"

namespace {

// How bad a check is, from the rules that an engineer would give: none at all, then by its ratio
// (no limit counts as ratio 0), and anything that is not finite worst.
using RANK = std::pair<int, double>;

RANK RankOf(const T_RALU_RLT& check) {
  if (check.dDemand == 0.0 && check.dCapacity == 0.0) return {0, 0.0};
  if (!std::isfinite(check.dDemand)) return {2, 0.0};
  const double ratio = check.dCapacity == 0.0 ? 0.0 : check.dDemand / check.dCapacity;
  return std::isfinite(ratio) ? RANK{1, ratio} : RANK{2, 0.0};
}

bool Governs(const T_RALU_RLT& a, const T_RALU_RLT& b) {
  return RaluGoverns(a.dDemand, a.dCapacity, b.dDemand, b.dCapacity);
}

double AnyBits() {
  return std::bit_cast<double>(*rc::gen::arbitrary<std::uint64_t>());
}

double AnyEdge() {
  using LIMITS = std::numeric_limits<double>;
  return *rc::gen::element(0.0, -0.0, 1.0, -1.0, 200.0, LIMITS::infinity(), -LIMITS::infinity(),
                           LIMITS::quiet_NaN(), LIMITS::max(), -LIMITS::max(), LIMITS::min(),
                           LIMITS::denorm_min());
}

// A design strength or stress as a run has them: a few hundred, in steps of a thousandth.
double AnyStress() {
  return *rc::gen::inRange(-400'000, 400'000) / 1000.0;
}

double AnyNumber() {
  const int kind = *rc::gen::inRange(0, 3);
  return kind == 0 ? AnyBits() : kind == 1 ? AnyEdge() : AnyStress();
}

T_RALU_RLT AnyCheck() {
  return {AnyNumber(), AnyNumber(), 0.0};
}

RC_GTEST_PROP(GoverningCheck, IsTheWorseOneForAnyNumbers, ()) {
  for (int i = 0; i < 100; ++i) {
    const T_RALU_RLT a = AnyCheck();
    const T_RALU_RLT b = AnyCheck();
    RC_ASSERT(Governs(a, b) == (RankOf(a) > RankOf(b)));
  }
}

// Demands in proportion to their capacities: ratios that are equal or a last digit apart.
RC_GTEST_PROP(GoverningCheck, IsTheWorseOneOfNearlyEqualRatios, ()) {
  for (int i = 0; i < 100; ++i) {
    const T_RALU_RLT a{AnyStress(), AnyStress(), 0.0};
    const double factor = *rc::gen::element(1.0, 3.0, 1.0 / 3.0, 1e-3, 1e200, 1e-200, 1e-310);
    double demand = a.dDemand * factor;
    const int steps = *rc::gen::inRange(-2, 3);
    for (int step = 0; step < std::abs(steps); ++step) {
      demand = std::nextafter(demand, steps > 0 ? 1e300 : -1e300);
    }
    const T_RALU_RLT b{demand, a.dCapacity * factor, 0.0};
    RC_ASSERT(Governs(a, b) == (RankOf(a) > RankOf(b)));
    RC_ASSERT(Governs(b, a) == (RankOf(b) > RankOf(a)));
  }
}

// The severity alone orders checks as the rules do.
RC_GTEST_PROP(GoverningCheck, HasTheLargerSeverity, ()) {
  for (int i = 0; i < 100; ++i) {
    const T_RALU_RLT a = AnyCheck();
    const T_RALU_RLT b = AnyCheck();
    const bool larger = RaluSeverity(a.dDemand, a.dCapacity) > RaluSeverity(b.dDemand, b.dCapacity);
    RC_ASSERT(larger == (RankOf(a) > RankOf(b)));
  }
}

RC_GTEST_PROP(GoverningCheck, IsTheFirstOfTheWorstPositions, ()) {
  T_RALU_D record;
  for (T_RALU_SECT& sect : record.aSect) {
    for (T_RALU_RLT& item : sect.aItem) item = AnyCheck();
  }
  record.MakeCompItem();
  for (std::size_t type = 0; type < kResultItems; ++type) {
    int worst = -1;
    RANK rank{0, 0.0};
    for (int pos = 0; pos < kCheckPositions; ++pos) {
      const RANK here = RankOf(record.aSect[static_cast<std::size_t>(pos)].aItem[type]);
      if (here > rank) {
        rank = here;
        worst = pos;
      }
    }
    RC_ASSERT(record.aComp[type].nPos == worst);
  }
}

}  // namespace

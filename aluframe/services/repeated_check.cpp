#include "aluframe/services/repeated_check.h"

#include "aluframe/texts/text.h"

#include <algorithm>
#include <cmath>

namespace aluframe::services {

namespace {

constexpr double rounding = 1e-6;

/// True when the values agree within the rounding of a value as large as `scale`.
bool agree(double a, double b, double scale) {
  if (std::isnan(a) || std::isnan(b)) return std::isnan(a) && std::isnan(b);
  if (std::isinf(a) || std::isinf(b)) return a == b;
  const double largest = std::max({std::fabs(a), std::fabs(b), scale});
  return std::fabs(a - b) <= rounding * largest;
}

double finite_scale(double value) {
  return std::isfinite(value) ? std::fabs(value) : 0.0;
}

}  // namespace

std::optional<std::string> difference_of_checks(const T_RALU_ITEM& stored,
                                                const T_RALU_RLT& again) {
  if (RaluIsEmpty(again.dDemand, again.dCapacity)) {
    return texts::translated("no result when made again, demand {:.6g} as stored", stored.dDemand);
  }
  if (!agree(stored.dDemand, again.dDemand, finite_scale(again.dCapacity))) {
    return texts::translated("demand {:.6g} when made again, {:.6g} as stored", again.dDemand,
                             stored.dDemand);
  }
  if (!agree(stored.dCapacity, again.dCapacity, 0.0)) {
    return texts::translated("capacity {:.6g} when made again, {:.6g} as stored", again.dCapacity,
                             stored.dCapacity);
  }
  return std::nullopt;
}

}  // namespace aluframe::services

#include "aluframe/services/governing_count.h"

#include <cmath>
#include <cstddef>

namespace aluframe::services {

namespace {

constexpr double ratio_tolerance = 1e-10;

}  // namespace

bool exceeds_limit(double ratio) {
  return !std::isfinite(ratio) || ratio - 1.0 >= ratio_tolerance;
}

bool was_judged(double demand, double capacity) {
  return capacity != 0.0 || !std::isfinite(demand);
}

bool GoverningCount::add(std::uint32_t element,
                         const std::array<T_RALU_ITEM, kResultItems>& checks) {
  bool any = false;
  bool over = false;
  for (std::size_t item = 0; item < checks.size(); ++item) {
    const T_RALU_ITEM& check = checks[item];
    if (!was_judged(check.dDemand, check.dCapacity)) continue;
    any = true;
    over = over || exceeds_limit(check.Ratio());
    if (!worst_ || check.ComPair(worst_->check) != 0) {
      worst_ = WorstCheck{element, static_cast<int>(item), check};
    }
  }
  if (any) ++checked_;
  if (over) ++over_limit_;
  return any;
}

}  // namespace aluframe::services

#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "host/tz_db/ralu.h"

namespace aluframe::services {

/// The governing check of a whole run.
struct WorstCheck {
  std::uint32_t element = 0;
  int item = 0;  ///< RALU_ITEM_TYPE
  T_RALU_ITEM check;
};

/// True when a check fails: its ratio exceeds 1 by 1e-10 or more, or is not a finite number.
bool exceeds_limit(double ratio);

/// True when demand was set against a limit. Slenderness without a limit (capacity 0) was formed
/// but proves nothing, unless it is no number: that is never taken for sound.
bool was_judged(double demand, double capacity);

/// How elements stand by their governing checks.
class GoverningCount {
 public:
  /// @param checks of the element, by RALU_ITEM_TYPE
  /// @return false when none of them has a result
  bool add(std::uint32_t element, const std::array<T_RALU_ITEM, kResultItems>& checks);

  /// Elements with a result.
  std::uint64_t checked() const { return checked_; }
  /// Of them, those of which a check fails.
  std::uint64_t over_limit() const { return over_limit_; }
  const std::optional<WorstCheck>& worst() const { return worst_; }

 private:
  std::uint64_t checked_ = 0;
  std::uint64_t over_limit_ = 0;
  std::optional<WorstCheck> worst_;
};

}  // namespace aluframe::services

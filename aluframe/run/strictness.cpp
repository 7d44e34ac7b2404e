#include "aluframe/run/strictness.h"

#include <algorithm>

#include "aluframe/run/deflections.h"
#include "aluframe/run/remarks.h"

namespace aluframe::run {

namespace {

bool fails_by_remark(const store::RemarkRow& remark) {
  return remark.kind == unknown_between_ends || remark.kind == unknown_displacements ||
         (remark.ratio && services::exceeds_limit(*remark.ratio));
}

/// Shear and torsion have a second opinion, which the remarks hold.
bool is_judged_by_nothing(const store::NotChecked& item) {
  return !item.largest;
}

}  // namespace

bool fails(const Told& told, Strictness strict) {
  if (strict == Strictness::none) return false;
  if (told.over > 0 || std::ranges::any_of(told.buckling_factors, buckles) ||
      std::ranges::any_of(told.displacements, exceeds_limit)) {
    return true;
  }
  if (strict == Strictness::checks) return false;
  return (told.safe && told.safe->over > 0) || std::ranges::any_of(told.remarks, fails_by_remark) ||
         std::ranges::any_of(told.not_checked, is_judged_by_nothing);
}

}  // namespace aluframe::run

#include "aluframe/remarks/remarks.h"

#include <utility>

#include "aluframe/remarks/kinds.h"

namespace aluframe::remarks {

std::vector<Remark> model_remarks(const model::Model& model) {
  return model_remarks(model, members::length_factors(model));
}

std::vector<Remark> model_remarks(const model::Model& model,
                                  const std::vector<members::SegmentFactors>& factors) {
  constexpr std::optional<Remark> (*kinds[])(Subject&) = {wide_strips,
                                                          area_above_gross,
                                                          welds_without_loss,
                                                          assumed_ribs,
                                                          slender_webs,
                                                          unjudged_plates,
                                                          factor_at_bound,
                                                          factor_without_supports,
                                                          free_ends,
                                                          bent_trusses,
                                                          unused_cases,
                                                          unread_weld_coefficients,
                                                          coefficients_above_one,
                                                          lateral_buckling_off};
  Subject subject{model, factors, model::Connectivity(model), EffectiveAreas(model)};
  std::vector<Remark> remarks;
  for (const auto kind : kinds) {
    if (auto remark = kind(subject)) remarks.push_back(std::move(*remark));
  }
  return remarks;
}

}  // namespace aluframe::remarks

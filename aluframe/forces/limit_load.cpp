#include "aluframe/forces/limit_load.h"

#include "aluframe/forces/frame_of_model.h"

namespace aluframe::forces {

analysis::Result<analysis::LimitLoad> limit_load(const model::Model& model, const LoadSet& set,
                                                 double largest_factor) {
  std::vector<analysis::LoadCase> loads;
  for (const auto& entry : set) loads.push_back(loads_of(model, model.load_cases[entry.load_case]));
  std::vector<analysis::FactoredCase> cases;
  for (std::size_t i = 0; i < loads.size(); ++i) cases.push_back({&loads[i], set[i].factor});
  return analysis::find_limit_load(frame_of(model), analysis::combine(cases), largest_factor);
}

}  // namespace aluframe::forces

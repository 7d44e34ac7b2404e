#include "aluframe/model/meeting.h"

#include <algorithm>

namespace aluframe::model {

bool meets_others(const Model& model, const Connectivity& connectivity, Number node,
                  const std::vector<Number>& chain, Meeting counted) {
  return std::ranges::any_of(connectivity.elements_at(node), [&](Number element) {
    const bool counts =
        counted == Meeting::any || model.elements.find(element)->kind == ElementKind::beam;
    return counts && std::ranges::find(chain, element) == chain.end();
  });
}

}  // namespace aluframe::model

#include "aluframe/run/element_result.h"

#include <algorithm>
#include <limits>

#include "aluframe/services/run_monitor.h"

namespace aluframe::run {

bool was_judged(const T_RALU_RLT& check) {
  return services::was_judged(check.dDemand, check.dCapacity);
}

bool was_judged(const store::GoverningRow& row) {
  return services::was_judged(row.governing.dDemand, row.governing.dCapacity);
}

bool fails(const store::GoverningRow& row) {
  return was_judged(row) && services::exceeds_limit(row.governing.Ratio());
}

const store::GoverningRow& ElementResult::worst() const {
  const store::GoverningRow* worst = &items.front();
  for (const store::GoverningRow& row : items) {
    if (!was_judged(row)) continue;
    if (!was_judged(*worst) || row.governing.ComPair(worst->governing) != 0) worst = &row;
  }
  return *worst;
}

const store::GoverningRow* ElementResult::find(int item) const {
  const auto found = std::ranges::find(items, item, &store::GoverningRow::item);
  return found == items.end() ? nullptr : &*found;
}

std::vector<ElementResult> by_element(const std::vector<store::GoverningRow>& rows) {
  std::vector<ElementResult> elements;
  for (const store::GoverningRow& row : rows) {
    if (elements.empty() || elements.back().element != row.element) {
      elements.push_back({row.element, row.member_type, {}});
    }
    elements.back().items.push_back(row);
  }
  return elements;
}

std::array<double, kCheckPositions> ratios_along(store::ResultReader& reader,
                                                 model::Number element) {
  std::array<double, kCheckPositions> ratios{};
  ratios.fill(std::numeric_limits<double>::quiet_NaN());
  const auto record = reader.read(element, 0, 0);
  if (!record) return ratios;
  for (std::size_t position = 0; position < ratios.size(); ++position) {
    for (const T_RALU_RLT& check : record->aSect[position].aItem) {
      if (!was_judged(check)) continue;
      const double ratio = RaluRatio(check.dDemand, check.dCapacity);
      if (!(ratio <= ratios[position])) ratios[position] = ratio;
    }
  }
  return ratios;
}

}  // namespace aluframe::run

#include <algorithm>

#include "aluframe/remarks/concerned.h"

#include <fmt/format.h>
#include "aluframe/remarks/kinds.h"
#include "aluframe/texts/text.h"

namespace aluframe::remarks {

std::optional<Remark> unread_weld_coefficients(Subject& subject) {
  const model::Model& model = subject.model;
  Concerned concerned;
  for (const model::Element& element : model.elements) {
    if (element.design.weld_coefficient) concerned.add(element, -*element.design.weld_coefficient);
  }
  if (concerned.empty()) return std::nullopt;
  Remark remark = concerned.remark(
      "F12", texts::translatable(
                 "no check reads `weld_coefficient`: the welds themselves are not checked; "
                 "design them apart"));
  remark.value = -concerned.worst_value();
  return remark;
}

std::optional<Remark> coefficients_above_one(Subject& subject) {
  const model::Model& model = subject.model;
  Concerned concerned;
  for (const model::Element& element : model.elements) {
    const auto& given = element.design.stability_coefficients;
    if (given && std::max(given->y, given->z) > 1.0) {
      concerned.add(element, std::max(given->y, given->z));
    }
  }
  if (concerned.empty()) return std::nullopt;
  Remark remark = concerned.remark(
      "S4", fmt::format(texts::translatable(
                            "`stability_coefficients` above 1 are taken as they are: up to {:g}, "
                            "as if buckling made a member stronger; give φb of bending, at most 1"),
                        concerned.worst_value()));
  remark.value = concerned.worst_value();
  return remark;
}

// A coefficient that is left out is 1, so y = 1 beside another z is most likely not meant.
std::optional<Remark> lateral_buckling_off(Subject& subject) {
  const model::Model& model = subject.model;
  Concerned concerned;
  for (const model::Element& element : model.elements) {
    const auto& given = element.design.stability_coefficients;
    if (!given || given->y != 1.0 || given->z == 1.0) continue;
    if (is_open(model.sections.find(element.section)->shape)) concerned.add(element);
  }
  if (concerned.empty()) return std::nullopt;
  Remark remark = concerned.remark(
      "S4",
      texts::translatable("`stability_coefficients` with `z` alone leave `y` at 1, which switches "
                          "lateral-torsional buckling off in open sections; give φb as `y` too"));
  remark.value = 1.0;
  return remark;
}

}  // namespace aluframe::remarks

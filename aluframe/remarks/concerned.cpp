#include "aluframe/remarks/concerned.h"

#include <algorithm>
#include <utility>

#include "aluframe/model/number_ranges.h"
#include "aluframe/texts/text.h"

namespace aluframe::remarks {

std::string named(const model::Section& section) {
  const std::string number = fmt::format(texts::translatable("section {}"), section.number);
  return section.name.empty() ? number : number + " \"" + section.name + "\"";
}

void Concerned::add(const model::Element& element, double value) {
  elements_.insert(std::ranges::upper_bound(elements_, element.number), element.number);
  if (worst_ != nullptr && !(value > worst_value_)) return;
  worst_ = &element;
  worst_value_ = value;
}

std::string Concerned::named() const {
  const std::string numbers = model::join_as_ranges(elements_, most_ranges);
  return elements_.size() == 1 ? fmt::format(texts::translatable("element {}"), numbers)
                               : fmt::format(texts::translatable("elements {}"), numbers);
}

Remark Concerned::remark(std::string_view rule, std::string text) const {
  Remark remark;
  remark.rule = rule;
  remark.elements = elements_;
  remark.element = worst_->number;
  remark.text = std::move(text);
  return remark;
}

Remark about_section(const Concerned& concerned, std::string_view rule, std::string text) {
  Remark remark = concerned.remark(rule, std::move(text));
  remark.section = concerned.worst().section;
  return remark;
}

}  // namespace aluframe::remarks

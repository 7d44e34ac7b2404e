#include "aluframe/remarks/concerned.h"

#include <algorithm>
#include <utility>

namespace aluframe::remarks {

namespace {

constexpr int most_ranges = 6;

}  // namespace

std::string as_ranges(const std::vector<model::Number>& numbers) {
  std::string text;
  int ranges = 0;
  for (std::size_t i = 0; i < numbers.size();) {
    if (ranges++ == most_ranges)
      return text + " and " + std::to_string(numbers.size() - i) + " more";
    std::size_t last = i;
    while (last + 1 < numbers.size() && numbers[last + 1] == numbers[last] + 1) ++last;
    if (!text.empty()) text += ", ";
    text += std::to_string(numbers[i]);
    if (last > i) text += "-" + std::to_string(numbers[last]);
    i = last + 1;
  }
  return text;
}

std::string named(const model::Section& section) {
  const std::string number = "section " + std::to_string(section.number);
  return section.name.empty() ? number : number + " \"" + section.name + "\"";
}

void Concerned::add(const model::Element& element, double value) {
  elements_.insert(std::ranges::upper_bound(elements_, element.number), element.number);
  if (worst_ != nullptr && !(value > worst_value_)) return;
  worst_ = &element;
  worst_value_ = value;
}

std::string Concerned::named() const {
  return (elements_.size() == 1 ? "element " : "elements ") + as_ranges(elements_);
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

#pragma once

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "aluframe/catalogue/alloys.h"
#include "aluframe/remarks/remarks.h"

namespace aluframe::remarks {

using model::Number;
using model::Shape;

/// Sections by their dimensions in the host's order, mm.
inline constexpr std::array<double, 8> box_20{20, 20, 2, 2, 18, 2, 0, 0};
inline constexpr std::array<double, 8> h_200{200, 100, 8, 8, 100, 8, 0, 0};

/// A frame of one section and one alloy, in m; every support holds its node rigidly.
class Frame {
 public:
  explicit Frame(Shape shape = Shape::h_section, const std::array<double, 8>& dimensions = h_200,
                 std::string_view grade = "6061-T6") {
    model::Section section;
    section.number = 1;
    section.shape = shape;
    section.dimensions = dimensions;
    model_.sections.add(section);
    model::Material material = catalogue::material_of(*catalogue::find_alloy(grade));
    material.number = 1;
    model_.materials.add(material);
  }

  Frame& node(Number number, double x, double z) {
    model_.nodes.add({.number = number, .name = {}, .x = 1e3 * x, .y = 0.0, .z = 1e3 * z});
    return *this;
  }
  Frame& beam(Number number, Number start, Number end) {
    model::Element element;
    element.number = number;
    element.nodes = {start, end};
    element.section = element.material = 1;
    model_.elements.add(element);
    return *this;
  }
  Frame& fixed(Number node) { return support(node, {true, true, true, true, true, true}); }
  Frame& support(Number node, const std::array<bool, 6>& restrained) {
    model_.supports.push_back({.node = node, .restrained = restrained, .springs = {}});
    return *this;
  }
  template <class Change>
  Frame& with_section(Change change) {
    return changed(model_.sections, 1, change);
  }
  template <class Change>
  Frame& with_material(Change change) {
    return changed(model_.materials, 1, change);
  }
  template <class Change>
  Frame& with(Number element, Change change) {
    return changed(model_.elements, element, change);
  }
  Frame& welded() {
    return with_section([](model::Section& section) { section.welded = true; });
  }
  model::Model& model() { return model_; }

  /// The remarks of a rule.
  std::vector<Remark> remarks(std::string_view rule) const {
    std::vector<Remark> found = model_remarks(model_);
    std::erase_if(found, [rule](const Remark& remark) { return remark.rule != rule; });
    return found;
  }

 private:
  template <class Table, class Change>
  Frame& changed(Table& table, Number number, Change change) {
    auto entity = *table.find(number);
    change(entity);
    table.replace(entity);
    return *this;
  }

  model::Model model_;
};

/// One beam between two supports.
inline Frame simple_beam(Shape shape = Shape::h_section,
                         const std::array<double, 8>& dimensions = h_200,
                         std::string_view grade = "6061-T6") {
  Frame frame(shape, dimensions, grade);
  return frame.node(1, 0, 0).node(2, 4, 0).beam(1, 1, 2).fixed(1).fixed(2);
}

/// A portal of columns 1 and 3 and beam 2, clamped at the feet.
inline Frame portal(Shape shape = Shape::h_section,
                    const std::array<double, 8>& dimensions = h_200) {
  Frame frame(shape, dimensions);
  frame.node(1, 0, 0).node(2, 0, 3).node(3, 5, 3).node(4, 5, 0);
  return frame.beam(1, 1, 2).beam(2, 2, 3).beam(3, 3, 4).fixed(1).fixed(4);
}

}  // namespace aluframe::remarks

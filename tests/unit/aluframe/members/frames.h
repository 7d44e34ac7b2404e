#pragma once

#include <gmock/gmock.h>

#include "aluframe/model/model.h"

namespace aluframe::members {

using model::Number;

/// A frame of one aluminium section whose Iyy and Izz are equal and given, in m, built up step by
/// step.
class FrameBuilder {
 public:
  static constexpr double e = 70000.0, inertia = 1e6;  ///< N/mm², mm⁴

  FrameBuilder() {
    model_.finds_members = true;
    for (const Number number : {1U, 2U}) {
      model::Material material;
      material.number = number;
      material.e = e;
      model_.materials.add(material);
      model::Section section;
      section.number = number;
      section.given.area = 1000.0;
      section.given.iyy = section.given.izz = inertia;
      section.given.point_y = {{-10, 10, 10, -10}};
      section.given.point_z = {{10, 10, -10, -10}};
      model_.sections.add(section);
    }
  }

  FrameBuilder& node(Number number, double x, double y, double z) {
    model_.nodes.add({.number = number, .name = {}, .x = 1e3 * x, .y = 1e3 * y, .z = 1e3 * z});
    return *this;
  }
  FrameBuilder& beam(Number number, Number start, Number end) {
    return add(number, start, end, model::ElementKind::beam);
  }
  FrameBuilder& truss(Number number, Number start, Number end) {
    return add(number, start, end, model::ElementKind::truss);
  }
  /// Changes an element that is there.
  template <class Change>
  FrameBuilder& with(Number number, Change change) {
    model::Element element = *model_.elements.find(number);
    change(element);
    model_.elements.replace(element);
    return *this;
  }
  FrameBuilder& release(Number number, std::initializer_list<std::size_t> places) {
    return with(number, [&](model::Element& element) {
      for (const std::size_t place : places) element.released[place] = true;
    });
  }
  FrameBuilder& fixed(Number node) { return support(node, {true, true, true, true, true, true}); }
  FrameBuilder& hinged(Number node) {
    return support(node, {true, true, true, false, false, false});
  }
  FrameBuilder& support(Number node, std::array<bool, 6> restrained,
                        std::array<double, 6> springs = {}) {
    model_.supports.push_back({.node = node, .restrained = restrained, .springs = springs});
    return *this;
  }
  FrameBuilder& braced(bool a, bool b) {
    model_.frame = model::FrameSettings{.braced_a = a, .braced_b = b};
    return *this;
  }
  FrameBuilder& member(model::Member member) {
    model_.members.add(std::move(member));
    return *this;
  }

  model::Model& model() { return model_; }

 private:
  FrameBuilder& add(Number number, Number start, Number end, model::ElementKind kind) {
    model::Element element;
    element.number = number;
    element.nodes = {start, end};
    element.section = element.material = 1;
    element.kind = kind;
    model_.elements.add(std::move(element));
    return *this;
  }

  model::Model model_;
};

/// Places of released bending moments: at the start, at the end.
inline constexpr std::size_t my_start = 4, mz_start = 5, my_end = 10, mz_end = 11;

}  // namespace aluframe::members

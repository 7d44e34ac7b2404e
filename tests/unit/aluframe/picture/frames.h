#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "aluframe/picture/content.h"

namespace aluframe::picture {

inline model::Node node(model::Number number, double x, double y, double z) {
  return {.number = number, .name = {}, .x = x, .y = y, .z = z};
}

inline model::Element element(model::Number number, model::Number start, model::Number end) {
  model::Element out;
  out.number = number;
  out.nodes = {start, end};
  out.section = 1;
  out.material = 1;
  return out;
}

inline model::Support support(model::Number node, const std::array<bool, 6>& restrained) {
  return {.node = node, .restrained = restrained};
}

/// Elements that join the nodes one after the other, numbered from 1.
inline model::Model chain(const std::vector<model::Node>& nodes) {
  model::Model model;
  model.title = "Test";
  model.materials.add({.number = 1, .name = "Alloy", .standard = {}, .grade = {}});
  model.sections.add({.number = 1, .name = "Tube", .given = {}});
  for (const model::Node& one : nodes) model.nodes.add(one);
  for (std::size_t i = 1; i < nodes.size(); ++i) {
    model.elements.add(
        element(static_cast<model::Number>(i), nodes[i - 1].number, nodes[i].number));
  }
  return model;
}

/// A beam of 4 m along X, 3 m above the ground.
inline model::Model beam() {
  return chain({node(1, 0, 0, 3000), node(2, 4000, 0, 3000)});
}

inline Content along_y() {
  Content content;
  content.view = View::xz;
  return content;
}

inline std::vector<Shape> shapes_of(const Scene& scene, Layer layer) {
  std::vector<Shape> out;
  std::ranges::copy_if(scene.shapes, std::back_inserter(out),
                       [layer](const Shape& shape) { return shape.layer == layer; });
  return out;
}

inline std::vector<Marker> markers_of(const Scene& scene, Layer layer) {
  std::vector<Marker> out;
  std::ranges::copy_if(scene.markers, std::back_inserter(out),
                       [layer](const Marker& marker) { return marker.layer == layer; });
  return out;
}

inline std::vector<std::string> texts_of(const Scene& scene, Layer layer) {
  std::vector<std::string> out;
  for (const Label& label : scene.labels) {
    if (label.layer == layer) out.push_back(label.text);
  }
  return out;
}

inline bool has_note(const Scene& scene, const std::string& note) {
  return std::ranges::count(scene.notes, note) == 1;
}

}  // namespace aluframe::picture

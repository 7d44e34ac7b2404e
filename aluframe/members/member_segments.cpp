#include "aluframe/members/member_segments.h"

#include <utility>

#include "aluframe/members/cantilever_ends.h"
#include "aluframe/section/section_properties.h"

namespace aluframe::members {

namespace {

std::size_t end_at(const model::Element& element, model::Number node) {
  return element.nodes[0] == node ? 0 : 1;
}

/// The node at which a chain starts: that of its first element which the second does not share.
model::Number start_of(const model::Model& model, const std::vector<std::size_t>& elements) {
  const model::Element& first = model.elements[elements.front()];
  if (elements.size() == 1) return first.nodes[0];
  const model::Element& second = model.elements[elements[1]];
  const bool turned = second.nodes[0] == first.nodes[0] || second.nodes[1] == first.nodes[0];
  return first.nodes[turned ? 1 : 0];
}

/// Iyy and Izz by the place of the section, mm⁴.
std::vector<std::array<double, 2>> inertias_of(const model::Table<model::Section>& sections) {
  std::vector<std::array<double, 2>> inertias;
  for (const model::Section& section : sections) {
    const model::SectionProperties properties = section::properties_of(section);
    inertias.push_back({properties.iyy, properties.izz});
  }
  return inertias;
}

}  // namespace

MemberSegments::MemberSegments(const model::Model& model)
    : model_(model),
      connectivity_(model),
      cantilever_ends_(cantilever_ends(model, connectivity_)),
      places_(model.elements.size()) {
  note_elements(inertias_of(model.sections));
  for (const model::Member& member : model.members) {
    std::vector<std::size_t> elements;
    elements.reserve(member.elements.size());
    for (const model::Number number : member.elements) {
      elements.push_back(model.elements.position(number));
    }
    add(&member, std::move(elements));
  }
  for (std::size_t place = 0; place < model.elements.size(); ++place) {
    if (connectivity_.member_of(model.elements[place].number) == nullptr) add(nullptr, {place});
  }
}

void MemberSegments::note_elements(const std::vector<std::array<double, 2>>& inertias) {
  geometry_.reserve(model_.elements.size());
  for (const model::Element& element : model_.elements) {
    geometry_.push_back(geometry_of(model_, element));
    upright_.push_back(is_upright(model_, element, geometry_.back()));
    const double e = model_.materials.find(element.material)->e;
    const auto& [iyy, izz] = inertias[model_.sections.position(element.section)];
    stiffness_.push_back({e * iyy, e * izz});
  }
}

void MemberSegments::add(const model::Member* member, std::vector<std::size_t> elements) {
  MemberSegment segment{.member = member, .elements = std::move(elements)};
  model::Number node = start_of(model_, segment.elements);
  segment.nodes[0] = node;
  for (const std::size_t place : segment.elements) {
    const model::Element& element = model_.elements[place];
    const std::size_t near = end_at(element, node);
    const model::Element& first = model_.elements[segment.elements.front()];
    if (place == segment.elements.front()) segment.ends[0] = {place, near};
    segment.has_one_section = segment.has_one_section && element.section == first.section &&
                              element.material == first.material;
    const double length = geometry_[place].length;
    const std::array<double, 2>& stiffness = stiffness_[place];
    for (std::size_t axis = 0; axis < 2; ++axis)
      segment.stiffness[axis] += length * stiffness[axis];
    Place& where = places_[place];
    where.segment = all_.size();
    where.along[near] = segment.length;
    segment.length += length;
    where.along[1 - near] = segment.length;
    node = element.nodes[1 - near];
    segment.ends[1] = {place, 1 - near};
  }
  segment.nodes[1] = node;
  for (double& stiffness : segment.stiffness) stiffness /= segment.length;
  all_.push_back(std::move(segment));
}

MemberSegments::Arm MemberSegments::arm(const ElementEnd& at) const {
  const Place& place = places_[at.element];
  const MemberSegment& segment = all_[place.segment];
  const double from = place.along[at.end];
  if (place.along[1 - at.end] > from) return {&segment, segment.length - from};
  return {&segment, from};
}

Eigen::Vector3d MemberSegments::direction(std::size_t element, Axis axis) const {
  return geometry_[element].axes.row(axis == Axis::y ? 1 : 2).transpose();
}

}  // namespace aluframe::members

#include "aluframe/io/model_changes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

namespace aluframe::io {

namespace {

/// Well above what writing and reading round (2⁻⁵² of a value, a few times over for a dimension
/// that follows from others) and below what a user could mean by a change.
constexpr double rounding = 1e-14;

/// Makes a number the other one when rounding alone is between them.
void align(double& value, double other) {
  const double size = std::max(std::abs(value), std::abs(other));
  if (std::abs(value - other) <= rounding * size) value = other;
}

template <std::size_t Size>
void align(std::array<double, Size>& values, const std::array<double, Size>& others) {
  for (std::size_t i = 0; i < Size; ++i) align(values[i], others[i]);
}

template <class Value>
void align(std::optional<Value>& value, const std::optional<Value>& other) {
  if (value && other) align(*value, *other);
}

void align(model::GivenProperties& given, const model::GivenProperties& other) {
  using Given = model::GivenProperties;
  for (const auto property : {&Given::area, &Given::it, &Given::iyy, &Given::izz, &Given::qyb,
                              &Given::qzb, &Given::iw, &Given::shear_centre_z}) {
    align(given.*property, other.*property);
  }
  align(given.point_y, other.point_y);
  align(given.point_z, other.point_z);
}

/// Appends those that the file holds otherwise, or not at all; `part` gives what of an entity is
/// in question.
template <class Part, class Entity, class PartOf>
void add_changed(const model::Table<Part>& saved, const model::Table<Entity>& now, PartOf part_of,
                 std::vector<Part>& changed) {
  for (const Entity& entity : now) {
    const Part& part = part_of(entity);
    const Part* before = saved.find(part.number);
    if (before == nullptr || !same_in_file(*before, part)) changed.push_back(part);
  }
}

}  // namespace

bool same_in_file(const model::Material& a, const model::Material& b) {
  return a == b;
}

bool same_in_file(const model::Section& a, const model::Section& b) {
  if (a == b) return true;
  model::Section aligned = a;
  align(aligned.dimensions, b.dimensions);
  align(aligned.given, b.given);
  return aligned == b;
}

bool same_in_file(const model::ElementDesign& a, const model::ElementDesign& b) {
  if (a == b) return true;
  model::ElementDesign aligned = a;
  align(aligned.haz_width, b.haz_width);
  return aligned == b;
}

bool same_in_file(const ElementAttributes& a, const ElementAttributes& b) {
  return a.number == b.number && a.member_type == b.member_type && same_in_file(a.design, b.design);
}

bool same_in_file(const MemberFactors& a, const MemberFactors& b) {
  return a == b;
}

ElementAttributes attributes_of(const model::Element& element) {
  return {element.number, element.design, element.member_type};
}

MemberFactors factors_of(const model::Member& member) {
  return {member.number, member.length_factors};
}

Editable editable_of(const model::Model& model) {
  Editable editable{.settings = model.design,
                    .materials = model.materials,
                    .sections = model.sections,
                    .elements = {},
                    .members = {}};
  for (const model::Element& element : model.elements) {
    editable.elements.add(attributes_of(element));
  }
  if (model.finds_members) return editable;
  for (const model::Member& member : model.members) editable.members.add(factors_of(member));
  return editable;
}

ModelChanges changes_since(const Editable& saved, const model::Model& now) {
  const auto whole = [](const auto& entity) -> const auto& { return entity; };
  ModelChanges changes;
  const model::DesignSettings settings = now.design.value_or(model::DesignSettings());
  const bool are_changed =
      now.design ? saved.settings != settings : saved.settings.value_or(settings) != settings;
  if (are_changed) changes.settings = settings;
  add_changed(saved.materials, now.materials, whole, changes.materials);
  add_changed(saved.sections, now.sections, whole, changes.sections);
  add_changed(saved.elements, now.elements, attributes_of, changes.elements);
  if (!now.finds_members) add_changed(saved.members, now.members, factors_of, changes.members);
  return changes;
}

void apply_changes(const ModelChanges& changes, model::Model& model) {
  if (changes.settings) model.design = changes.settings;
  for (const model::Material& material : changes.materials) model.materials.replace(material);
  for (const model::Section& section : changes.sections) model.sections.replace(section);
  for (const ElementAttributes& wanted : changes.elements) {
    const model::Element* found = model.elements.find(wanted.number);
    if (found == nullptr) continue;
    model::Element element = *found;
    element.design = wanted.design;
    element.member_type = wanted.member_type;
    model.elements.replace(std::move(element));
  }
  for (const MemberFactors& wanted : changes.members) {
    const model::Member* found = model.members.find(wanted.number);
    if (found == nullptr) continue;
    model::Member member = *found;
    member.length_factors = wanted.length_factors;
    model.members.replace(std::move(member));
  }
}

}  // namespace aluframe::io

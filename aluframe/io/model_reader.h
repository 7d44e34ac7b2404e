#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "aluframe/catalogue/profiles.h"
#include "aluframe/io/json_value.h"
#include "aluframe/io/model_file.h"
#include "aluframe/io/scales.h"
#include "aluframe/model/model.h"
#include "aluframe/texts/text.h"

/// Readers of the parts of a model file, one function a topic. Each takes the file's root object,
/// converts to N and mm, and checks what it can check with the parts read before it. Faults are
/// gathered where they do not hang on one another (io/faults.h); others, and all of them where the
/// document gathers none, are thrown as Failure. Order: units, settings, materials, catalogues,
/// sections, nodes, supports, elements, members, load cases, combinations, serviceability,
/// forces.
namespace aluframe::io {

model::Units read_units(const JsonObject& root);
model::Project read_project(const JsonObject& root);
void read_settings(const JsonObject& root, model::Model& model);
/// Fails when the amplitude of a mode is no small displacement of the frame, whose nodes are known.
void require_imperfections_of_size(const JsonObject& root, const Scales& scales,
                                   const model::Model& model);
/// Fields of "settings" that the file gives.
std::vector<std::string> given_settings(const JsonObject& root);
void read_materials(const JsonObject& root, model::Model& model);
/// Profiles of the user's catalogues, which lie in the model's folder or on paths from there. Who
/// is given a model by somebody else is not to read whatever file it names: those outside of the
/// folder are read when that is allowed.
/// @param folder null for a model that is in no file
std::vector<catalogue::Profile> read_catalogues(const JsonObject& root, const ModelFolder* folder);
/// `own`: the user's profiles, which sections may name.
void read_sections(const JsonObject& root, const Scales& scales,
                   const std::vector<catalogue::Profile>& own, model::Model& model);
void read_nodes(const JsonObject& root, const Scales& scales, model::Model& model);
/// Needs nodes.
void read_supports(const JsonObject& root, const Scales& scales, model::Model& model);
/// Needs materials, sections and nodes.
void read_elements(const JsonObject& root, const Scales& scales, model::Model& model);
void read_members(const JsonObject& root, const Scales& scales, model::Model& model);
/// What holds a member, whose elements are known. Fails at a place outside of it, at a second
/// restraint of the same at one place, and at a flange that a section there does not have.
std::vector<model::Restraint> read_restraints(const JsonValue& list, const Scales& scales,
                                              const model::Model& model,
                                              const model::Member& member);
/// Needs nodes, supports and elements.
void read_load_cases(const JsonObject& root, const Scales& scales, model::Model& model);
/// What a load case stands for among the actions, where it says so.
std::optional<model::Action> read_action(const JsonObject& load_case);
/// Reads those that are written, and makes those of the rule that the file names.
void read_combinations(const JsonObject& root, model::Model& model);
/// Reads the object that names a rule. @return the list of combinations that it has besides
std::optional<JsonValue> read_combination_rule(const JsonValue& value, model::Model& model);
/// Throws Failure with the place of what does not fit the rule.
void make_combinations_by_rule(model::Model& model);
/// Limits of deflections and displacements. Needs nodes, members and combinations: without one for
/// serviceability a limit would limit nothing.
void read_serviceability(const JsonObject& root, const Scales& scales, model::Model& model);
model::DeflectionLimit read_deflection_limit(const JsonValue& value, const Scales& scales);
/// Needs elements and load cases. The table keeps its size 0 when the file has no forces.
void read_forces(const JsonObject& root, const Scales& scales, model::Model& model);

/// Design attributes of an element from its `design` object.
model::ElementDesign read_element_design(const JsonValue& design, const Scales& scales);
/// The loads that a load case has among its fields.
model::CaseLoads read_case_loads(const JsonObject& load_case, const Scales& scales,
                                 const model::Model& model);
/// Switches on the places that a list of names, each given once, stands for. `flags` starts at the
/// first of the six.
void read_flags(const JsonValue& list, std::span<const NamedValue<std::size_t>> names,
                std::span<bool> flags);
/// `length_factors` {y, z} when the object has them.
std::optional<model::ElementDesign::AxisPair> read_length_factors(const JsonObject& object);

/// The number of an entity with faults, as far as it has one.
std::optional<model::Number> number_that_can_be_read(const JsonValue& entity,
                                                     std::string_view field);
/// Whether a number that `value` names may be that of an entity with a fault, which is told.
inline bool may_be_lost(const JsonValue& value, const void* table, model::Number number) {
  return value.faults() != nullptr && value.faults()->may_be_lost(table, number);
}
/// Whether entities of a table have faults, so that it is not whole.
inline bool any_lost(const JsonValue& value, const void* table) {
  return value.faults() != nullptr && value.faults()->any_lost(table);
}

/// Reads the values of a list one by one, also behind one that has a fault.
template <class Read>
void read_items(const JsonValue& list, Read read) {
  for (const JsonValue value : list.list()) gather(value.faults(), [&] { read(value); });
}

/// The same of entities, which are lost when they have a fault.
/// @param table that they are read into
/// @param number_field what they are found by
template <class Read>
void read_entities(const JsonValue& list, const void* table, Read read,
                   std::string_view number_field = "number") {
  Faults* faults = list.faults();
  std::size_t position = 0;
  for (const JsonValue value : list.list()) {
    const std::size_t before = faults == nullptr ? 0 : faults->count();
    gather(faults, [&] { read(value); });
    if (faults != nullptr && faults->count() != before) {
      faults->lose(table, position, number_that_can_be_read(value, number_field));
    }
    ++position;
  }
}

/// The number of an entity that must be in the table; `what` names its kind in the message.
template <class Entity>
model::Number read_reference(const JsonValue& value, const model::Table<Entity>& table,
                             std::string_view what) {
  const model::Number number = value.entity_number();
  if (table.find(number) == nullptr) {
    if (may_be_lost(value, &table, number)) throw FollowsFromFault{};
    value.fail(texts::translated("{} {} does not exist", what, number));
  }
  return number;
}

/// Appends an entity read from `object`, whose number must be new, unless it has a fault.
template <class Entity>
void add_entity(const JsonObject& object, model::Table<Entity>& table, Entity entity,
                std::string_view list) {
  Faults* faults = object.value().faults();
  const model::Number number = entity.number;
  const auto refuse = [&](std::size_t position) {
    if (faults != nullptr) faults->lose_a_number(&table);
    object.required("number").fail(
        texts::translated("number {} is taken by /{}/{}", number, list, position));
  };
  const auto lost = faults == nullptr ? std::nullopt : faults->lost_position(&table, number);
  if (number != 0 && lost) refuse(*lost);
  const auto in_list = [&](std::size_t position) {
    return faults == nullptr ? position : faults->position_in_list(&table, position);
  };
  if (number != 0 && table.find(number) != nullptr) refuse(in_list(table.position(number)));
  if (object.is_sound()) table.add(std::move(entity));
}

}  // namespace aluframe::io

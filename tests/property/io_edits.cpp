// Changes in a model's file: what comes out is the file that would be written of the changed model.
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <string>

#include "aluframe/io/model_edit.h"
#include "aluframe/io/model_file.h"
#include "tests/property/io_any_model.h"
#include "tests/property/io_any_values.h"

namespace aluframe::io {
namespace {

using namespace aluframe::model;

/// Settings of any content, as some model has them.
DesignSettings any_settings() {
  return any_model().design.value_or(DesignSettings());
}

/// Puts others of any content in the place of some entities, under the same numbers.
template <class Entity>
void change_some(Table<Entity>& table, const Table<Entity>& others) {
  for (std::size_t i = 0; i < table.size(); ++i) {
    if (any_flag()) continue;
    Entity entity = others[i % others.size()];
    entity.number = table[i].number;
    table.replace(entity);
  }
}

/// The model with other settings, materials and sections.
Model with_changes(Model model) {
  if (any_flag()) model.design = any_settings();
  const Model other = any_model();
  change_some(model.materials, other.materials);
  change_some(model.sections, other.sections);
  return model;
}

/// The model with other design attributes of some of its elements and members, none perhaps.
Model with_attributes(Model model) {
  const Model other = any_model();
  for (std::size_t i = 0; i < model.elements.size(); ++i) {
    Element element = model.elements[i];
    const Element& from = other.elements[i % other.elements.size()];
    if (any_flag()) element.design = any_flag() ? from.design : ElementDesign();
    if (any_flag()) element.member_type = from.member_type;
    model.elements.replace(element);
  }
  for (std::size_t i = 0; !model.finds_members && i < model.members.size(); ++i) {
    Member member = model.members[i];
    member.length_factors = any_optional(
        [] { return ElementDesign::AxisPair{any_between(0.1, 3), any_between(0.1, 3)}; });
    model.members.replace(member);
  }
  return model;
}

/// The text of a model with its fields on one line, on lines of their own, or without any blank
/// between them. No name of a random model has these separators in it.
std::string in_any_layout(std::string text) {
  const std::string_view separator = ", \"";
  const auto other = any_of<std::string>({", \"", ",\r\n\t  \"", ",\"", "\n , \""});
  for (std::size_t at = 0; (at = text.find(separator, at)) != std::string::npos;) {
    text.replace(at, separator.size(), other);
    at += other.size();
  }
  return text;
}

/// The text after the user turned its model from one into another.
std::string edited(const std::string& text, const Model& before, const Model& after) {
  const ModelChanges changes = changes_since(editable_of(before), after);
  const Result<std::string> result = edit_model_text(text, "model.json", changes);
  if (const Problem* problem = std::get_if<Problem>(&result)) RC_FAIL(problem->message());
  return std::get<std::string>(result);
}

/// What a file holds, in the layout of written models.
std::string as_written(const std::string& text) {
  const Result<Model> model = parse_model(text, "model.json");
  if (const Problem* problem = std::get_if<Problem>(&model)) RC_FAIL(problem->message());
  return write_model(std::get<Model>(model));
}

RC_GTEST_PROP(EditedModel, IsTheChangedModelAsItWouldBeWritten, ()) {
  const Model before = any_model();
  Model after = with_changes(before);
  // Settings that are in a file keep the fields that they have, and their order.
  if (before.design) after.design = before.design;
  RC_ASSERT(edited(write_model(before), before, after) == write_model(after));
}

RC_GTEST_PROP(EditedModel, ReadsAsTheChangedModelInAnyLayout, ()) {
  const Model before = any_model();
  const Model after = with_attributes(with_changes(before));
  const std::string text = in_any_layout(write_model(before));
  RC_ASSERT(as_written(edited(text, before, after)) == write_model(after));
}

RC_GTEST_PROP(EditedModel, ReadsAsItDidOnceItsChangesAreTakenBack, ()) {
  const Model before = any_model();
  Model after = with_attributes(with_changes(before));
  after.design = before.design;  // settings that came into a file do not leave it
  const std::string text = in_any_layout(write_model(before));
  const std::string changed = edited(text, before, after);
  RC_ASSERT(as_written(edited(changed, after, before)) == write_model(before));
}

RC_GTEST_PROP(EditedModel, OfADamagedTextIsAProblemOrAModel, ()) {
  std::string text = write_model(any_model());
  const int damages = *rc::gen::inRange(1, 4);
  for (int i = 0; i < damages; ++i) {
    const auto place = *rc::gen::inRange<std::size_t>(0, text.size());
    text.replace(place, *rc::gen::inRange<std::size_t>(0, 8),
                 any_of<std::string>({"", "{", "]", ",", "\"", "\\", " ", "7"}));
    if (text.empty()) text = " ";
  }
  const ModelChanges changes{.settings = any_settings()};
  const Result<std::string> edited = edit_model_text(text, "model.json", changes);
  if (const auto* new_text = std::get_if<std::string>(&edited)) {
    const Result<Model> model = parse_model(*new_text, "model.json");
    RC_ASSERT(std::get<Model>(model).design == changes.settings);
  }
}

}  // namespace
}  // namespace aluframe::io

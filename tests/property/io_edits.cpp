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

/// The model with other settings and, for some of its materials, others under the same numbers.
Model with_changes(Model model) {
  if (*rc::gen::arbitrary<bool>()) model.design = any_settings();
  const Model other = any_model();
  for (std::size_t i = 0; i < model.materials.size(); ++i) {
    if (*rc::gen::arbitrary<bool>()) continue;
    Material material = other.materials[i % other.materials.size()];
    material.number = model.materials[i].number;
    model.materials.replace(material);
  }
  return model;
}

RC_GTEST_PROP(EditedModel, IsTheChangedModelAsItWouldBeWritten, ()) {
  const Model before = any_model();
  const Model after = with_changes(before);
  const ModelChanges changes = changes_since(before.design, before.materials, after);
  const Result<std::string> edited = edit_model_text(write_model(before), "model.json", changes);
  if (const Problem* problem = std::get_if<Problem>(&edited)) RC_FAIL(problem->message());
  RC_ASSERT(std::get<std::string>(edited) == write_model(after));
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
  const ModelChanges changes{.settings = any_settings(), .materials = {}};
  const Result<std::string> edited = edit_model_text(text, "model.json", changes);
  if (const auto* new_text = std::get_if<std::string>(&edited)) {
    const Result<Model> model = parse_model(*new_text, "model.json");
    RC_ASSERT(std::get<Model>(model).design == changes.settings);
  }
}

}  // namespace
}  // namespace aluframe::io

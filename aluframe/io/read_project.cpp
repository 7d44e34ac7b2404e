#include <array>

#include "aluframe/io/model_reader.h"

namespace aluframe::io {

namespace {

constexpr auto field_names = [] {
  std::array<std::string_view, model::project_fields.size()> names;
  for (std::size_t i = 0; i < names.size(); ++i) names[i] = model::project_fields[i].name;
  return names;
}();

}  // namespace

model::Project read_project(const JsonObject& root) {
  model::Project project;
  const std::optional<JsonValue> value = root.optional("project");
  if (!value) return project;
  const JsonObject object(*value, field_names);
  for (const auto& [name, text] : model::project_fields) {
    object.part([&] { project.*text = object.plain_text_or(name, ""); });
  }
  return project;
}

}  // namespace aluframe::io

#include <array>
#include <utility>

#include "aluframe/io/failure.h"
#include "aluframe/io/format_names.h"
#include "aluframe/io/model_file.h"
#include "aluframe/io/model_reader.h"
#include "aluframe/io/problem_of_faults.h"
#include "aluframe/io/text_file.h"
#include "aluframe/texts/text.h"

namespace aluframe::io {

namespace {

constexpr auto top_level_fields = std::to_array<std::string_view>({"$schema",
                                                                   "format",
                                                                   "version",
                                                                   "title",
                                                                   "description",
                                                                   "project",
                                                                   "units",
                                                                   "settings",
                                                                   "frame",
                                                                   "analysis",
                                                                   "envelopes",
                                                                   "catalogues",
                                                                   "materials",
                                                                   "sections",
                                                                   "nodes",
                                                                   "supports",
                                                                   "elements",
                                                                   "members",
                                                                   "deflection_limit",
                                                                   "drift_limits",
                                                                   "displacement_limits",
                                                                   "moving_load_code",
                                                                   "load_cases",
                                                                   "combinations",
                                                                   "forces"});

/// First of all: a file of another kind or of a later version has fields of its own, and calling
/// those unknown would mislead.
void require_format(const JsonValue& root) {
  const std::optional<JsonValue> format = root.field("format");
  const std::optional<JsonValue> version = root.field("version");
  if (root.kind() != JsonValue::Kind::object)
    root.fail_with(texts::translated("must be an object"));
  if (!format) root.fail(texts::translated("missing field \"format\""));
  format->require_text(format_name);
  if (!version) root.fail(texts::translated("missing field \"version\""));
  if (version->kind() != JsonValue::Kind::number || version->number() != format_version) {
    version->fail_with(texts::translated("must be 1"));
  }
}

/// Reads a list of entities; all of them are lost when it is no list, is missing or misspelt.
template <class Read>
void read_table(const JsonObject& root, std::string_view name, const void* list, Read read) {
  if (!root.part(read) || root.may_have_misspelt(name)) root.value().faults()->lose_all(list);
}

void read_structure(const JsonObject& root, const Scales& scales, const ModelFolder* folder,
                    model::Model& model) {
  std::vector<catalogue::Profile> own;
  read_table(root, "catalogues", &own, [&] { own = read_catalogues(root, folder); });
  read_table(root, "sections", &model.sections, [&] { read_sections(root, scales, own, model); });
  read_table(root, "nodes", &model.nodes, [&] { read_nodes(root, scales, model); });
  root.part([&] { require_imperfections_of_size(root, scales, model); });
  read_table(root, "supports", &model.supports, [&] { read_supports(root, scales, model); });
  read_table(root, "elements", &model.elements, [&] { read_elements(root, scales, model); });
  root.part([&] { read_members(root, scales, model); });
}

/// Faults are gathered. Without units nothing that has one can be judged.
model::Model read_document(const JsonValue& value, const ModelFolder* folder, FileNotes* notes) {
  require_format(value);
  const JsonObject root(value, top_level_fields);
  model::Model model;
  root.part([&] { model.title = root.plain_text_or("title", ""); });
  root.part([&] { model.description = root.string_or("description", ""); });
  root.part([&] { model.project = read_project(root); });
  const bool has_units = root.part([&] { model.units = read_units(root); });
  read_settings(root, model);
  if (notes != nullptr) notes->given_settings = given_settings(root);
  read_table(root, "materials", &model.materials, [&] { read_materials(root, model); });
  if (!has_units) return model;
  const Scales scales(model.units);
  read_structure(root, scales, folder, model);
  read_table(root, "load_cases", &model.load_cases, [&] { read_load_cases(root, scales, model); });
  read_table(root, "combinations", &model.combinations, [&] { read_combinations(root, model); });
  root.part([&] { read_serviceability(root, scales, model); });
  root.part([&] { read_forces(root, scales, model); });
  return model;
}

/// Throws Failure where the text as a whole is no JSON.
Result<model::Model> read_text(std::string_view with_mark, const std::string& name,
                               const ModelFolder* folder, FileNotes* notes) {
  const std::string_view text = without_byte_order_mark(with_mark);
  if (text.find_first_not_of(" \t\r\n") == std::string_view::npos) {
    throw Failure{"", texts::translated("is empty, expected a model")};
  }
  require_utf8(text);
  Faults faults;
  const JsonDocument document(text, &faults);
  model::Model model;
  try {
    gather(&faults,
           [&] { model = read_document(JsonValue(document, JsonDocument::root), folder, notes); });
  } catch (const Faults::TooMany&) {  // those met so far are told
  }
  if (!faults.told().empty()) return problem_of(faults, document, text, name);
  return model;
}

}  // namespace

std::optional<model::Number> number_that_can_be_read(const JsonValue& entity,
                                                     std::string_view field) {
  const auto value = entity.field(field);
  if (!value) return std::nullopt;
  try {
    return value->entity_number();
  } catch (const Failure&) {  // the entity's fault, which is gathered
    return std::nullopt;
  }
}

Result<model::Model> parse_model(std::string_view text, const std::string& name,
                                 const ModelFolder* folder) {
  try {
    return read_text(text, name, folder, nullptr);
  } catch (const Failure& failure) {
    return Problem{name, failure.place, failure.text};
  }
}

Result<model::Model> read_model(const std::filesystem::path& path, FileNotes* notes,
                                bool allow_outside) {
  try {
    const ModelFolder folder{path.parent_path(), allow_outside};
    return read_text(load_file(path), path.string(), &folder, notes);
  } catch (const Failure& failure) {
    return Problem{path.string(), failure.place, failure.text};
  }
}

}  // namespace aluframe::io

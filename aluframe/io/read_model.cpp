#include <array>
#include <utility>

#include "aluframe/io/failure.h"
#include "aluframe/io/format_names.h"
#include "aluframe/io/model_file.h"
#include "aluframe/io/model_reader.h"
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

model::Model read_document(const JsonValue& value, const ModelFolder* folder, FileNotes* notes) {
  require_format(value);
  const JsonObject root(value, top_level_fields);
  model::Model model;
  model.title = root.plain_text_or("title", "");
  model.description = root.string_or("description", "");
  model.project = read_project(root);
  model.units = read_units(root);
  const Scales scales(model.units);
  read_settings(root, model);
  if (notes != nullptr) notes->given_settings = given_settings(root);
  read_materials(root, model);
  read_sections(root, scales, read_catalogues(root, folder), model);
  read_nodes(root, scales, model);
  require_imperfections_of_size(root, scales, model);
  read_supports(root, scales, model);
  read_elements(root, scales, model);
  read_members(root, model);
  read_load_cases(root, scales, model);
  read_combinations(root, model);
  read_forces(root, scales, model);
  return model;
}

model::Model read_text(std::string_view with_mark, const ModelFolder* folder, FileNotes* notes) {
  const std::string_view text = without_byte_order_mark(with_mark);
  if (text.find_first_not_of(" \t\r\n") == std::string_view::npos) {
    throw Failure{"", texts::translated("is empty, expected a model")};
  }
  require_utf8(text);
  const JsonDocument document(text);
  return read_document(JsonValue(document, JsonDocument::root), folder, notes);
}

}  // namespace

Result<model::Model> parse_model(std::string_view text, const std::string& name,
                                 const ModelFolder* folder) {
  try {
    return read_text(text, folder, nullptr);
  } catch (const Failure& failure) {
    return Problem{name, failure.place, failure.text};
  }
}

Result<model::Model> read_model(const std::filesystem::path& path, FileNotes* notes,
                                bool allow_outside) {
  try {
    const ModelFolder folder{path.parent_path(), allow_outside};
    return read_text(load_file(path), &folder, notes);
  } catch (const Failure& failure) {
    return Problem{path.string(), failure.place, failure.text};
  }
}

}  // namespace aluframe::io

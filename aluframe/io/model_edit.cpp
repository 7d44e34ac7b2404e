#include "aluframe/io/model_edit.h"

#include <algorithm>
#include <array>
#include <exception>
#include <utility>

#include "aluframe/files/publication.h"
#include "aluframe/io/failure.h"
#include "aluframe/io/json_document.h"
#include "aluframe/io/json_spans.h"
#include "aluframe/io/model_file.h"
#include "aluframe/io/model_lines.h"
#include "aluframe/io/text_file.h"
#include "aluframe/texts/text.h"

namespace aluframe::io {

namespace {

/// Fields that settings come behind, the last of them that a file has. A file has "format".
constexpr std::array<std::string_view, 6> fields_before_settings{"units", "project", "description",
                                                                 "title", "version", "format"};

/// Text that takes the place of a part of another.
struct Replacement {
  JsonSpan span;
  std::string text;
};

/// The name of a field, which the file may write with escapes.
std::string decoded(std::string_view name) {
  const JsonDocument document(name);
  return std::string(document.string(JsonDocument::root));
}

/// The field of this name, or null.
const JsonMember* find_member(std::string_view text, const std::vector<JsonMember>& members,
                              std::string_view name) {
  const auto found = std::ranges::find_if(
      members, [&](const JsonMember& member) { return decoded(member.name.of(text)) == name; });
  return found == members.end() ? nullptr : &*found;
}

Replacement settings_replacement(std::string_view text, const std::vector<JsonMember>& members,
                                 const model::DesignSettings& settings) {
  if (const JsonMember* present = find_member(text, members, "settings")) {
    return {present->value, settings_line(settings)};
  }
  const JsonMember* before = nullptr;
  for (const std::string_view name : fields_before_settings) {
    if (before == nullptr) before = find_member(text, members, name);
  }
  // The new field is set off as the one before it.
  const std::size_t gap = text.find_last_not_of(json_blanks, before->name.begin - 1) + 1;
  const std::string blanks(text.substr(gap, before->name.begin - gap));
  const std::size_t place = before->value.end;
  return {{place, place}, "," + blanks + "\"settings\": " + settings_line(settings)};
}

void add_material_replacements(std::string_view text, const std::vector<JsonMember>& members,
                               const model::Model& model, const ModelChanges& changes,
                               std::vector<Replacement>& out) {
  if (changes.materials.empty()) return;
  const auto items = json_items(text, find_member(text, members, "materials")->value);
  for (const model::Material& material : changes.materials) {
    if (model.materials.find(material.number) == nullptr) {
      throw Failure{"/materials", texts::translated("material {} does not exist", material.number)};
    }
    out.push_back({items[model.materials.position(material.number)], material_line(material)});
  }
}

std::string replaced(std::string_view text, std::vector<Replacement> replacements) {
  std::ranges::sort(replacements, {}, [](const Replacement& each) { return each.span.begin; });
  std::string result;
  std::size_t kept = 0;
  for (const Replacement& replacement : replacements) {
    result += text.substr(kept, replacement.span.begin - kept);
    result += replacement.text;
    kept = replacement.span.end;
  }
  return result += text.substr(kept);
}

/// A file has names for some values only, and its texts are UTF-8.
void require_changes(const model::Model& edited, const ModelChanges& changes) {
  if (changes.settings && edited.design != changes.settings) {
    throw Failure{"/settings", texts::translated("a model file cannot hold these settings")};
  }
  for (const model::Material& material : changes.materials) {
    if (*edited.materials.find(material.number) != material) {
      throw Failure{"/materials/" + std::to_string(edited.materials.position(material.number)),
                    texts::translated("a model file cannot hold this material")};
    }
  }
}

/// The model of a text. Throws Failure.
model::Model read_or_throw(std::string_view text, const ModelFolder* folder) {
  auto read = parse_model(text, {}, folder);
  if (auto* problem = std::get_if<Problem>(&read)) throw Failure{problem->place, problem->text};
  return std::get<model::Model>(std::move(read));
}

std::string edit_text(std::string_view text, const ModelChanges& changes,
                      const ModelFolder* folder) {
  const model::Model model = read_or_throw(text, folder);
  const std::size_t begin = text.size() - without_byte_order_mark(text).size();
  const auto members = json_members(text, json_value_at(text, begin));
  std::vector<Replacement> replacements;
  if (changes.settings) {
    replacements.push_back(settings_replacement(text, members, *changes.settings));
  }
  add_material_replacements(text, members, model, changes, replacements);
  std::string edited = replaced(text, std::move(replacements));
  require_changes(read_or_throw(edited, folder), changes);
  return edited;
}

/// A program that knows of no lock may have saved the file since it was read.
void require_unchanged(const std::filesystem::path& path, std::string_view text) {
  if (load_file(path) == text) return;
  throw std::runtime_error(
      texts::translated("another program has changed it meanwhile; try again"));
}

std::optional<Problem> change(const std::filesystem::path& path, const ChooseChanges& choose,
                              bool allow_outside) {
  const ModelFolder folder{path.parent_path(), allow_outside};
  const std::string looked_at = load_file(path);
  const auto wanted = choose(read_or_throw(looked_at, &folder));
  if (const auto* problem = std::get_if<Problem>(&wanted)) return *problem;
  if (std::get<ModelChanges>(wanted).empty()) return std::nullopt;
  files::Publication file(path, files::WhenBusy::wait);
  const std::string text = load_file(path);
  const auto changes = choose(read_or_throw(text, &folder));
  if (const auto* problem = std::get_if<Problem>(&changes)) return *problem;
  file.write(edit_text(text, std::get<ModelChanges>(changes), &folder));
  require_unchanged(path, text);
  file.publish();
  return std::nullopt;
}

}  // namespace

ModelChanges changes_since(const std::optional<model::DesignSettings>& settings,
                           const model::Table<model::Material>& materials,
                           const model::Model& now) {
  ModelChanges changes;
  if (now.design != settings) changes.settings = now.design;
  for (const model::Material& material : now.materials) {
    const model::Material* before = materials.find(material.number);
    if (before == nullptr || *before != material) changes.materials.push_back(material);
  }
  return changes;
}

Result<std::string> edit_model_text(std::string_view text, const std::string& name,
                                    const ModelChanges& changes, const ModelFolder* folder) {
  try {
    return edit_text(text, changes, folder);
  } catch (const Failure& failure) {
    return Problem{name, failure.place, failure.text};
  }
}

std::optional<Problem> change_model_file(const std::filesystem::path& path,
                                         const ChooseChanges& choose, bool allow_outside) {
  try {
    return change(path, choose, allow_outside);
  } catch (const Failure& failure) {
    return Problem{path.string(), failure.place, failure.text};
  } catch (const std::exception& error) {
    return Problem{path.string(), "", texts::translated("cannot be saved: {}", error.what()),
                   Problem::Kind::failure};
  }
}

std::optional<Problem> save_changes(const std::filesystem::path& path,
                                    const ModelChanges& changes) {
  if (changes.empty()) return std::nullopt;
  return change_model_file(path, [&](const model::Model&) { return changes; });
}

}  // namespace aluframe::io

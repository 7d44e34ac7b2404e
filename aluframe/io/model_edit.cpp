#include "aluframe/io/model_edit.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "aluframe/io/failure.h"
#include "aluframe/io/json_document.h"
#include "aluframe/io/json_edit.h"
#include "aluframe/io/model_lines.h"
#include "aluframe/io/named_values.h"
#include "aluframe/io/text_file.h"
#include "aluframe/texts/text.h"

namespace aluframe::io {

namespace {

/// Fields that settings come behind, the last of them that a file has. A file has "format".
constexpr std::array<std::string_view, 6> fields_before_settings{"units", "project", "description",
                                                                 "title", "version", "format"};

/// A list of the file whose entities can be changed, and what is said about those that cannot.
struct List {
  std::string_view name;
  std::string (*missing)(model::Number number);
  std::string (*not_held)();

  std::string path() const { return '/' + std::string(name); }
  std::string path(std::size_t place) const { return path() + '/' + std::to_string(place); }
};

constexpr List materials{
    "materials",
    [](model::Number number) { return texts::translated("material {} does not exist", number); },
    [] { return texts::translated("a model file cannot hold this material"); }};
constexpr List sections{
    "sections",
    [](model::Number number) { return texts::translated("section {} does not exist", number); },
    [] { return texts::translated("a model file cannot hold this section"); }};
constexpr List elements{
    "elements",
    [](model::Number number) { return texts::translated("element {} does not exist", number); },
    [] { return texts::translated("a model file cannot hold these design attributes"); }};
constexpr List members{
    "members",
    [](model::Number number) { return texts::translated("member {} does not exist", number); },
    [] { return texts::translated("a model file cannot hold these length factors"); }};

std::string combinations_not_held() {
  return texts::translated("a model file cannot hold these combinations");
}
std::string settings_not_held() {
  return texts::translated("a model file cannot hold these settings");
}

/// JSON of changed values. Numbers that are none have no place in it.
std::string checked(std::string json, const std::string& path, std::string (*not_held)()) {
  try {
    const JsonDocument document(json);
  } catch (const Failure&) {
    throw Failure{path, not_held()};
  }
  return json;
}

/// Places the changes of a model in its text.
class ModelTextEdit {
 public:
  ModelTextEdit(std::string_view text, const model::Model& model)
      : text_(text), model_(model), scales_(model.units), edit_(text) {
    const std::size_t begin = text.size() - without_byte_order_mark(text).size();
    fields_ = json_members(text, json_value_at(text, begin));
  }

  void change(const ModelChanges& changes) {
    if (changes.settings) change_settings(*changes.settings);
    replace(materials, model_.materials, changes.materials, material_line);
    replace(sections, model_.sections, changes.sections,
            [this](const model::Section& section) { return section_line(section, scales_); });
    change_elements(changes.elements);
    change_members(changes.members);
    if (changes.combinations) change_combinations(*changes.combinations);
  }
  std::string result() const { return edit_.result(); }

 private:
  void change_settings(const model::DesignSettings& settings) {
    const std::string json = checked(settings_line(settings), "/settings", settings_not_held);
    if (const JsonMember* present = find_member(text_, fields_, "settings")) {
      const bool has_fields = !json_members(text_, present->value).empty();
      return has_fields ? change_present_settings(present->value, settings)
                        : edit_.replace(present->value, json);
    }
    const JsonMember* before = nullptr;
    for (const std::string_view name : fields_before_settings) {
      if (before == nullptr) before = find_member(text_, fields_, name);
    }
    edit_.insert_behind(fields_, *before, "settings", json);
  }

  /// Only the fields that differ, so that one which says a default goes on to say it.
  void change_present_settings(JsonSpan object, const model::DesignSettings& settings) {
    const std::string before = whole_settings_line(model_.design.value_or(model::DesignSettings()));
    const std::string after =
        checked(whole_settings_line(settings), "/settings", settings_not_held);
    const auto fields_before = json_members(before, json_value_at(before, 0));
    const auto fields_after = json_members(after, json_value_at(after, 0));
    std::vector<JsonField> fields;
    for (std::size_t i = 0; i < fields_after.size(); ++i) {
      const std::string_view json = fields_after[i].value.of(after);
      if (json == fields_before[i].value.of(before)) continue;
      const std::string_view name = fields_after[i].name.of(after);
      fields.push_back({name.substr(1, name.size() - 2), std::string(json)});
    }
    edit_.set_fields(object, fields);
  }

  /// Combinations name load cases, so a file that gets its first ones has these.
  void change_combinations(const std::vector<model::Combination>& combinations) {
    std::string json = "[";
    for (const model::Combination& combination : combinations) {
      json += json.size() > 1 ? ",\n    " : "\n    ";
      json += combination_line(combination);
    }
    json += json.size() > 1 ? "\n  ]" : "]";
    json = checked(json, "/combinations", combinations_not_held);
    if (const JsonMember* present = find_member(text_, fields_, "combinations")) {
      return edit_.replace(present->value, json);
    }
    const JsonMember* before = find_member(text_, fields_, "load_cases");
    if (before == nullptr) throw Failure{"/combinations", combinations_not_held()};
    edit_.insert_behind(fields_, *before, "combinations", json);
  }

  /// Calls `take` with every change, the entity that it is about, where that stands in the text and
  /// its path.
  template <class Entity, class Change, class Take>
  void for_each_changed(const List& list, const model::Table<Entity>& table,
                        const std::vector<Change>& changes, Take take) const {
    if (changes.empty()) return;
    const auto items = json_items(text_, find_member(text_, fields_, list.name)->value);
    std::vector<bool> is_changed(items.size());
    for (const Change& change : changes) {
      const Entity* entity = table.find(change.number);
      if (entity == nullptr) throw Failure{list.path(), list.missing(change.number)};
      const std::size_t place = table.position(change.number);
      if (is_changed[place]) {
        throw Failure{list.path(place), texts::translated("found two changes, one is allowed")};
      }
      is_changed[place] = true;
      take(change, *entity, items[place], list.path(place));
    }
  }

  template <class Entity, class Line>
  void replace(const List& list, const model::Table<Entity>& table,
               const std::vector<Entity>& changes, Line line) {
    for_each_changed(
        list, table, changes,
        [&](const Entity& entity, const Entity&, JsonSpan span, const std::string& path) {
          edit_.replace(span, checked(line(entity), path, list.not_held));
        });
  }

  void change_elements(const std::vector<ElementAttributes>& changes) {
    const auto change = [this](const ElementAttributes& wanted, const model::Element& element,
                               JsonSpan span, const std::string& path) {
      std::vector<JsonField> fields;
      if (wanted.member_type != element.member_type) {
        fields.push_back({"member_type"});
        if (const auto type = wanted.member_type) {
          fields.back().json = json_string(name_in(member_types, *type));
        }
      }
      if (!same_in_file(wanted.design, element.design)) {
        fields.push_back({"design"});
        if (wanted.design != model::ElementDesign{}) {
          fields.back().json =
              checked(design_line(wanted.design, scales_), path + "/design", elements.not_held);
        }
      }
      edit_.set_fields(span, fields);
    };
    for_each_changed(elements, model_.elements, changes, change);
  }

  void change_members(const std::vector<MemberFactors>& changes) {
    if (!changes.empty() && model_.finds_members) {
      throw Failure{members.path(),
                    texts::translated("the file names no members, and those that are found in the "
                                      "frame have no length factors of their own")};
    }
    const auto change = [this](const MemberFactors& wanted, const model::Member& member,
                               JsonSpan span, const std::string& path) {
      if (wanted.length_factors == member.length_factors) return;
      JsonField field{"length_factors"};
      if (const auto& factors = wanted.length_factors) {
        field.json = checked(axis_pair_line(*factors), path + "/length_factors", members.not_held);
      }
      edit_.set_fields(span, {&field, 1});
    };
    for_each_changed(members, model_.members, changes, change);
  }

  std::string_view text_;
  const model::Model& model_;
  Scales scales_;
  std::vector<JsonMember> fields_;
  JsonEdit edit_;
};

template <class Entity, class Change, class PartOf>
void require_held(const List& list, const model::Table<Entity>& edited,
                  const std::vector<Change>& changes, PartOf part_of) {
  for (const Change& change : changes) {
    if (same_in_file(part_of(*edited.find(change.number)), change)) continue;
    throw Failure{list.path(edited.position(change.number)), list.not_held()};
  }
}

/// A file has names for some values only, and its texts are UTF-8.
void require_changes(const model::Model& edited, const ModelChanges& changes) {
  if (changes.settings && edited.design != changes.settings) {
    throw Failure{"/settings", settings_not_held()};
  }
  if (changes.combinations && !std::ranges::equal(edited.combinations, *changes.combinations)) {
    throw Failure{"/combinations", combinations_not_held()};
  }
  const auto whole = [](const auto& entity) -> const auto& { return entity; };
  require_held(materials, edited.materials, changes.materials, whole);
  require_held(sections, edited.sections, changes.sections, whole);
  require_held(elements, edited.elements, changes.elements, attributes_of);
  require_held(members, edited.members, changes.members, factors_of);
}

/// The model of a text. Throws Problem, with all faults of the text.
model::Model read_or_throw(std::string_view text, const ModelFolder* folder) {
  auto read = parse_model(text, {}, folder);
  if (auto* problem = std::get_if<Problem>(&read)) throw std::move(*problem);
  return std::get<model::Model>(std::move(read));
}

std::string edit_text(std::string_view text, const ModelChanges& changes,
                      const ModelFolder* folder) {
  const model::Model model = read_or_throw(text, folder);
  ModelTextEdit edit(text, model);
  edit.change(changes);
  std::string edited = edit.result();
  require_changes(read_or_throw(edited, folder), changes);
  return edited;
}

}  // namespace

Result<std::string> edit_model_text(std::string_view text, const std::string& name,
                                    const ModelChanges& changes, const ModelFolder* folder) {
  try {
    return edit_text(text, changes, folder);
  } catch (const Failure& failure) {
    return Problem{name, failure.place, failure.text};
  } catch (Problem& problem) {
    problem.file = name;
    return std::move(problem);
  }
}

}  // namespace aluframe::io

#include "aluframe/io/model_merge.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "aluframe/io/json_writer.h"
#include "aluframe/io/merged_fields.h"
#include "aluframe/io/model_lines.h"
#include "aluframe/io/named_values.h"
#include "aluframe/texts/text.h"

namespace aluframe::io {

namespace {

template <class Value>
concept Record = requires(const Scales& scales) {
  FieldsOf<Value>::each([](std::string_view, auto, double = 1.0) {}, scales);
};

// --- whether two values are the same in a file ---

template <class Value>
bool same(const Value& a, const Value& b) {
  return a == b;
}

/// Lengths are rounded by the units of the two files.
bool same(double a, double b) {
  constexpr double rounding = 1e-14;
  return std::abs(a - b) <= rounding * std::max(std::abs(a), std::abs(b));
}

bool same(const std::optional<double>& a, const std::optional<double>& b) {
  return a.has_value() == b.has_value() && (!a || same(*a, *b));
}

template <std::size_t Size>
bool same(const std::array<double, Size>& a, const std::array<double, Size>& b) {
  for (std::size_t i = 0; i < Size; ++i) {
    if (!same(a[i], b[i])) return false;
  }
  return true;
}

template <std::size_t Size>
bool same(const std::optional<std::array<double, Size>>& a,
          const std::optional<std::array<double, Size>>& b) {
  return a.has_value() == b.has_value() && (!a || same(*a, *b));
}

// --- values as JSON ---

std::string json_of(bool value, double, const Scales&) {
  return value ? "true" : "false";
}
std::string json_of(int value, double, const Scales&) {
  return std::to_string(value);
}
std::string json_of(double value, double scale, const Scales&) {
  return std::isfinite(value) ? number_text(value, scale) : std::to_string(value);
}
std::string json_of(const std::string& value, double, const Scales&) {
  return json_string(value);
}
std::string json_of(model::MemberType value, double, const Scales&) {
  return json_string(name_in(member_types, value));
}
std::string json_of(const std::array<double, 4>& values, double scale, const Scales& scales) {
  std::vector<std::string> texts;
  for (const double value : values) texts.push_back(json_of(value, scale, scales));
  return json_list(texts);
}
std::string json_of(const model::MomentFactor& factor, double, const Scales&) {
  if (factor.value) return JsonLine().number("value", *factor.value).str();
  return JsonLine().number("loading", factor.loading).str();
}

template <Record Value>
std::string json_of(const Value& value, double, const Scales& scales);

template <class Value>
std::string json_of(const std::optional<Value>& value, double scale, const Scales& scales) {
  return value ? json_of(*value, scale, scales) : std::string();
}

template <Record Value>
std::string json_of(const Value& value, double, const Scales& scales) {
  JsonLine line;
  FieldsOf<Value>::each(
      [&](std::string_view name, auto member, double scale = 1.0) {
        line.json(name, json_of(value.*member, scale, scales));
      },
      scales);
  return line.str();
}

// --- the merge ---

/// A value as it is on the three sides; `theirs` becomes the merged one.
template <class Value>
struct Sides {
  const Value& opened;
  const Value& mine;
  Value& theirs;

  template <class Part, class Owner>
  Sides<Part> of(Part Owner::* member) const {
    return {opened.*member, mine.*member, theirs.*member};
  }
};

/// Whether values that only differ between the sides are conflicts, or those that both changed.
enum class Apart { when_both_changed, when_different };

class Merger {
 public:
  Merger(const model::Units& units, Keep keep) : scales_(units), keep_(keep) {}

  const Scales& scales() const { return scales_; }
  std::vector<Conflict> take_conflicts() { return std::move(conflicts_); }

  /// Merges a value that is taken or left as a whole.
  template <class Value, class Json>
  void merge_whole(const std::string& path, const Sides<Value>& sides, Apart apart,
                   const Json& json) {
    if (same(sides.mine, sides.theirs)) return;
    const bool is_mine_changed = !same(sides.mine, sides.opened);
    const bool is_theirs_changed = !same(sides.theirs, sides.opened);
    if (apart == Apart::when_both_changed) {
      if (!is_mine_changed) return;
      if (!is_theirs_changed) {
        sides.theirs = sides.mine;
        return;
      }
    }
    conflicts_.push_back({path, json(sides.opened), json(sides.mine), json(sides.theirs)});
    if (keep_ == Keep::mine) sides.theirs = sides.mine;
  }

  template <class Value>
  void merge(const std::string& path, const Sides<Value>& sides, double scale = 1.0,
             Apart apart = Apart::when_both_changed) {
    merge_whole(path, sides, apart,
                [&](const Value& value) { return json_of(value, scale, scales_); });
  }

  template <Record Value>
  void merge(const std::string& path, const Sides<Value>& sides, double = 1.0,
             Apart apart = Apart::when_both_changed) {
    FieldsOf<Value>::each(
        [&](std::string_view name, auto member, double scale = 1.0) {
          merge(path + '/' + std::string(name), sides.of(member), scale, apart);
        },
        scales_);
  }

  /// Value by value where every side has it.
  template <Record Value>
  void merge(const std::string& path, const Sides<std::optional<Value>>& sides, double = 1.0,
             Apart apart = Apart::when_both_changed) {
    if (sides.opened && sides.mine && sides.theirs) {
      merge(path, Sides<Value>{*sides.opened, *sides.mine, *sides.theirs}, 1.0, apart);
    } else {
      merge_whole(path, sides, apart,
                  [&](const std::optional<Value>& value) { return json_of(value, 1.0, scales_); });
    }
  }

  /// An entity that the user has changed is in the file no more.
  void add_gone(const std::string& list, model::Number number) {
    const std::string mine = JsonLine().number("number", number).str();
    conflicts_.push_back({list, mine, mine, ""});
  }
  bool keeps_mine() const { return keep_ == Keep::mine; }

 private:
  Scales scales_;
  Keep keep_;
  std::vector<Conflict> conflicts_;
};

/// Values of the one alloy do not go with the name of another.
void merge_entity(Merger& merger, const std::string& path, const Sides<model::Material>& sides) {
  const auto alloy = [](const model::Material& material) {
    return std::pair(material.grade, material.standard);
  };
  const bool both_chose = alloy(sides.mine) != alloy(sides.opened) &&
                          alloy(sides.theirs) != alloy(sides.opened) &&
                          alloy(sides.mine) != alloy(sides.theirs);
  merger.merge(path + "/name", sides.of(&model::Material::name));
  merger.merge(path, sides, 1.0, both_chose ? Apart::when_different : Apart::when_both_changed);
}

/// The shape of a section with its dimensions.
struct Outline {
  model::Shape shape;
  std::array<double, 8> dimensions;

  friend bool same(const Outline& a, const Outline& b) {
    return a.shape == b.shape && io::same(a.dimensions, b.dimensions);
  }
};

void merge_outline(Merger& merger, const std::string& path, const Sides<model::Section>& sides) {
  const auto outline = [](const model::Section& section) {
    return Outline{section.shape, section.dimensions};
  };
  const Outline opened = outline(sides.opened), mine = outline(sides.mine);
  Outline theirs = outline(sides.theirs);
  const auto json = [&merger](const Outline& whole) {
    model::Section section;
    section.shape = whole.shape;
    section.dimensions = whole.dimensions;
    return section_line(section, merger.scales());
  };
  merger.merge_whole(path, Sides<Outline>{opened, mine, theirs}, Apart::when_both_changed, json);
  sides.theirs.shape = theirs.shape;
  sides.theirs.dimensions = theirs.dimensions;
}

void merge_entity(Merger& merger, const std::string& path, const Sides<model::Section>& sides) {
  using model::Section;
  merger.merge(path + "/name", sides.of(&Section::name));
  if (sides.opened.shape == sides.mine.shape && sides.mine.shape == sides.theirs.shape) {
    const auto names = model::dimension_names(sides.mine.shape);
    for (std::size_t i = 0; i < names.size(); ++i) {
      merger.merge(path + "/dimensions/" + std::string(names[i]),
                   Sides<double>{sides.opened.dimensions[i], sides.mine.dimensions[i],
                                 sides.theirs.dimensions[i]},
                   merger.scales().section);
    }
  } else {
    merge_outline(merger, path, sides);
  }
  merger.merge(path + "/welded", sides.of(&Section::welded));
  merger.merge(path + "/properties", sides.of(&Section::given));
}

void merge_entity(Merger& merger, const std::string& path, const Sides<ElementAttributes>& sides) {
  merger.merge(path + "/member_type", sides.of(&ElementAttributes::member_type));
  merger.merge(path + "/design", sides.of(&ElementAttributes::design));
}

void merge_entity(Merger& merger, const std::string& path, const Sides<MemberFactors>& sides) {
  merger.merge(path + "/length_factors", sides.of(&MemberFactors::length_factors));
}

template <class Part>
std::vector<Part> merge_table(Merger& merger, const std::string& list,
                              const model::Table<Part>& opened, const std::vector<Part>& mine,
                              const model::Table<Part>& theirs) {
  std::vector<Part> changes;
  for (const Part& part : mine) {
    const Part *before = opened.find(part.number), *now = theirs.find(part.number);
    if (now == nullptr || before == nullptr) {
      merger.add_gone(list, part.number);
      if (merger.keeps_mine()) changes.push_back(part);
      continue;
    }
    Part merged = *now;
    const std::string path = list + '/' + std::to_string(theirs.position(part.number));
    merge_entity(merger, path, Sides<Part>{*before, part, merged});
    if (!same_in_file(merged, *now)) changes.push_back(std::move(merged));
  }
  return changes;
}

std::optional<model::DesignSettings> merge_settings(
    Merger& merger, const std::optional<model::DesignSettings>& opened,
    const model::DesignSettings& mine, const std::optional<model::DesignSettings>& theirs) {
  const model::DesignSettings before = opened.value_or(model::DesignSettings());
  model::DesignSettings merged = theirs.value_or(model::DesignSettings());
  merger.merge("/settings", Sides<model::DesignSettings>{before, mine, merged});
  return merged == theirs ? std::nullopt : std::optional(merged);
}

}  // namespace

Merge merge_changes(const Editable& opened, const model::Model& mine, const model::Model& theirs,
                    Keep keep) {
  const ModelChanges changed = changes_since(opened, mine);
  const Editable now = editable_of(theirs);
  Merger merger(theirs.units, keep);
  Merge merge;
  if (changed.settings) {
    merge.changes.settings =
        merge_settings(merger, opened.settings, *changed.settings, theirs.design);
  }
  merge.changes.materials =
      merge_table(merger, "/materials", opened.materials, changed.materials, now.materials);
  merge.changes.sections =
      merge_table(merger, "/sections", opened.sections, changed.sections, now.sections);
  merge.changes.elements =
      merge_table(merger, "/elements", opened.elements, changed.elements, now.elements);
  merge.changes.members =
      merge_table(merger, "/members", opened.members, changed.members, now.members);
  merge.conflicts = merger.take_conflicts();
  return merge;
}

std::string conflicts_text(const std::vector<Conflict>& conflicts) {
  constexpr std::size_t most = 12;
  const auto shown = [](const std::string& json) { return json.empty() ? "–" : json; };
  std::string text;
  for (std::size_t i = 0; i < conflicts.size() && i < most; ++i) {
    const Conflict& conflict = conflicts[i];
    if (i > 0) text += '\n';
    text += texts::translated("{}: {} when it was opened, {} here, {} in the file", conflict.path,
                              shown(conflict.opened), shown(conflict.mine), shown(conflict.theirs));
  }
  if (conflicts.size() > most) {
    text += '\n' + texts::translated("and {} more", conflicts.size() - most);
  }
  return text;
}

Saved save_merged(const std::filesystem::path& path, const Editable& opened,
                  const model::Model& mine, const AskKeep& ask, bool allow_outside) {
  std::vector<Conflict> answered;
  Keep keep = Keep::theirs;
  while (true) {
    // The file is locked while it is written, which must not wait for an answer.
    std::vector<Conflict> open;
    const auto choose = [&](const model::Model& theirs) -> Result<ModelChanges> {
      Merge merge = merge_changes(opened, mine, theirs, keep);
      if (merge.conflicts == answered) return std::move(merge.changes);
      open = std::move(merge.conflicts);
      return Problem{path.string(), "",
                     texts::translated("another program has changed the same values; nothing was "
                                       "saved") +
                         '\n' + conflicts_text(open),
                     Problem::Kind::failure};
    };
    if (changes_since(opened, mine).empty()) return {};
    const auto problem = change_model_file(path, choose, allow_outside);
    if (open.empty()) return {problem};
    if (!ask) return {problem};
    const std::optional<Keep> answer = ask(open);
    if (!answer) return {std::nullopt, true};
    keep = *answer;
    answered = std::move(open);
  }
}

}  // namespace aluframe::io

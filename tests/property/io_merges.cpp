// Changes of two sides in one model: what the merge must be, whatever they changed.
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <array>
#include <string>

#include "aluframe/io/model_merge.h"
#include "tests/property/io_any_model.h"
#include "tests/property/io_any_values.h"

namespace aluframe::io {
namespace {

using namespace aluframe::model;

/// The settings that a merge takes one by one, as numbers.
struct SettingField {
  const char* path;
  double (*get)(const DesignSettings&);
  void (*set)(DesignSettings&, double);
};

template <auto Member>
constexpr SettingField field(const char* path) {
  return {path, [](const DesignSettings& s) { return static_cast<double>(s.*Member); },
          [](DesignSettings& s, double value) {
            s.*Member = static_cast<std::remove_reference_t<decltype(s.*Member)>>(value);
          }};
}

constexpr std::array setting_fields{
    field<&DesignSettings::rib>("/settings/rib"),
    field<&DesignSettings::rib_ratio>("/settings/rib_ratio"),
    field<&DesignSettings::safety_class>("/settings/safety_class"),
    field<&DesignSettings::strength_ratio>("/settings/strength_ratio"),
    field<&DesignSettings::seismic>("/settings/seismic"),
    field<&DesignSettings::gamma_re_strength>("/settings/gamma_re_strength"),
    field<&DesignSettings::gamma_re_stability>("/settings/gamma_re_stability")};

/// Settings of few values, so that sides often agree.
DesignSettings few_settings() {
  DesignSettings settings;
  settings.rib = any_flag();
  settings.seismic = any_flag();
  settings.safety_class = *rc::gen::inRange(1, 4);
  for (double DesignSettings::* number :
       {&DesignSettings::rib_ratio, &DesignSettings::strength_ratio,
        &DesignSettings::gamma_re_strength, &DesignSettings::gamma_re_stability}) {
    settings.*number = any_of<double>({0.7, 0.8, 0.9});
  }
  return settings;
}

RC_GTEST_PROP(MergedSettings, ConflictWhereBothChangedAValueDifferentlyAndNowhereElse, ()) {
  Model opened = any_model();
  opened.design = few_settings();
  Model mine = opened, theirs = opened;
  mine.design = few_settings();
  theirs.design = few_settings();
  const Keep keep = any_of({Keep::mine, Keep::theirs});
  DesignSettings expected = *theirs.design;
  std::vector<std::string> paths;
  for (const SettingField& each : setting_fields) {
    const double o = each.get(*opened.design), m = each.get(*mine.design),
                 t = each.get(*theirs.design);
    if (m != o && t != o && m != t) paths.emplace_back(each.path);
    if (m != o && (t == o || keep == Keep::mine)) each.set(expected, m);
  }
  const Merge merge = merge_changes(editable_of(opened), mine, theirs, keep);
  std::vector<std::string> found;
  for (const Conflict& conflict : merge.conflicts) found.push_back(conflict.path);
  RC_ASSERT(found == paths);
  Model merged = theirs;
  apply_changes(merge.changes, merged);
  RC_ASSERT(*merged.design == expected);
}

/// Which side changes something.
enum class Who { nobody, me, them };

/// Puts others of any content in the place of entities, each on one side at most, and on both in
/// `both`.
template <class Entity>
void change_apart(Table<Entity>& mine, Table<Entity>& theirs, Table<Entity>& both,
                  const Table<Entity>& others, void (*take)(Entity&, const Entity&)) {
  for (std::size_t i = 0; i < both.size(); ++i) {
    const Who who = any_of({Who::nobody, Who::me, Who::them});
    if (who == Who::nobody) continue;
    Entity entity = both[i];
    take(entity, others[i % others.size()]);
    both.replace(entity);
    (who == Who::me ? mine : theirs).replace(entity);
  }
}

template <class Entity>
void take_whole(Entity& entity, const Entity& other) {
  const Number number = entity.number;
  entity = other;
  entity.number = number;
}

void take_attributes(Element& element, const Element& other) {
  element.design = other.design;
  element.member_type = other.member_type;
}

bool same_editable(const Model& a, const Model& b) {
  return changes_since(editable_of(a), b).empty() && changes_since(editable_of(b), a).empty();
}

RC_GTEST_PROP(MergedModel, HasBothSidesChangesOfDifferentThings, ()) {
  const Model opened = any_model(), other = any_model();
  Model mine = opened, theirs = opened, both = opened;
  change_apart(mine.materials, theirs.materials, both.materials, other.materials,
               take_whole<Material>);
  change_apart(mine.sections, theirs.sections, both.sections, other.sections, take_whole<Section>);
  change_apart(mine.elements, theirs.elements, both.elements, other.elements, take_attributes);
  const Merge merge = merge_changes(editable_of(opened), mine, theirs, Keep::theirs);
  RC_ASSERT(merge.conflicts.empty());
  Model merged = theirs;
  apply_changes(merge.changes, merged);
  RC_ASSERT(same_editable(merged, both));
}

/// The model with others of any content in the place of some entities.
Model with_changes(Model model, const Model& other) {
  Model unused = model, both = model;
  change_apart(model.materials, unused.materials, both.materials, other.materials,
               take_whole<Material>);
  change_apart(model.sections, unused.sections, both.sections, other.sections, take_whole<Section>);
  change_apart(model.elements, unused.elements, both.elements, other.elements, take_attributes);
  if (any_flag()) model.design = other.design.value_or(DesignSettings());
  return model;
}

RC_GTEST_PROP(MergedModel, IsTheSameWhicheverSideIsMine, ()) {
  const Model opened = any_model();
  const Model a = with_changes(opened, any_model()), b = with_changes(opened, any_model());
  const Merge in_b = merge_changes(editable_of(opened), a, b, Keep::mine);
  const Merge in_a = merge_changes(editable_of(opened), b, a, Keep::theirs);
  RC_ASSERT(in_a.conflicts.size() == in_b.conflicts.size());
  Model from_b = b, from_a = a;
  apply_changes(in_b.changes, from_b);
  apply_changes(in_a.changes, from_a);
  RC_ASSERT(same_editable(from_a, from_b));
}

RC_GTEST_PROP(MergedModel, OfASideThatChangedNothingIsTheOther, ()) {
  const Model opened = any_model();
  const Model changed = with_changes(opened, any_model());
  RC_ASSERT(merge_changes(editable_of(opened), opened, changed, Keep::mine).changes.empty());
  const Merge merge = merge_changes(editable_of(opened), changed, opened, Keep::theirs);
  RC_ASSERT(merge.conflicts.empty());
  Model merged = opened;
  apply_changes(merge.changes, merged);
  RC_ASSERT(same_editable(merged, changed));
}

}  // namespace
}  // namespace aluframe::io

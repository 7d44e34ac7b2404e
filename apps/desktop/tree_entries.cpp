#include "apps/desktop/tree_entries.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>

#include "aluframe/model/members.h"
#include "aluframe/tables/names.h"
#include "aluframe/texts/text.h"
#include "apps/desktop/ui_texts.h"
#include "apps/desktop/workspace.h"

namespace aluframe::desktop {

namespace {

using model::Number;
using texts::translatable;

using Numbers = std::vector<Number>;

/// "3 Column H 240x130", "3" without a name.
QString numbered(Number number, const std::string& name) {
  return QStringLiteral("%1 %2").arg(number).arg(QString::fromStdString(name)).trimmed();
}

/// Grows the tree from its top.
class Tree {
 public:
  explicit Tree(const Workspace& workspace) : workspace_(workspace), model_(workspace.model()) {}

  std::vector<TreeEntry> entries() {
    TreeEntry top;
    top.text = title();
    top.has_elements = true;
    top.elements = all_elements();
    top.count = top.elements.size();
    entries_.push_back(std::move(top));
    add_sections();
    add_materials();
    add_members();
    add_types();
    add_loads();
    add_results();
    return std::move(entries_);
  }

 private:
  QString title() const {
    if (!model_.title.empty()) return QString::fromStdString(model_.title);
    return QString::fromStdString(workspace_.document()->path().filename().string());
  }

  Numbers all_elements() const {
    Numbers numbers;
    for (const model::Element& element : model_.elements) numbers.push_back(element.number);
    std::ranges::sort(numbers);
    return numbers;
  }

  std::size_t add(std::size_t parent, QString text, std::optional<std::size_t> count = {}) {
    TreeEntry entry;
    entry.text = std::move(text);
    entry.parent = parent;
    entry.row = entries_[parent].children.size();
    entry.count = count;
    entries_[parent].children.push_back(entries_.size());
    entries_.push_back(std::move(entry));
    return entries_.size() - 1;
  }

  void add_elements(std::size_t parent, QString text, Numbers elements) {
    std::ranges::sort(elements);
    TreeEntry& entry = entries_[add(parent, std::move(text), elements.size())];
    entry.has_elements = true;
    entry.elements = std::move(elements);
  }

  /// Elements by what they name.
  std::unordered_map<Number, Numbers> elements_by(Number model::Element::* what) const {
    std::unordered_map<Number, Numbers> found;
    for (const model::Element& element : model_.elements) {
      found[element.*what].push_back(element.number);
    }
    return found;
  }

  void add_sections() {
    const std::size_t group = add(0, ui_text(translatable("Sections")), model_.sections.size());
    auto elements = elements_by(&model::Element::section);
    for (const model::Section& section : model_.sections) {
      add_elements(group, numbered(section.number, section.name),
                   std::move(elements[section.number]));
    }
  }

  void add_materials() {
    const std::size_t group = add(0, ui_text(translatable("Materials")), model_.materials.size());
    auto elements = elements_by(&model::Element::material);
    for (const model::Material& material : model_.materials) {
      add_elements(
          group, numbered(material.number, material.name.empty() ? material.grade : material.name),
          std::move(elements[material.number]));
    }
  }

  void add_members() {
    const std::size_t group = add(0, ui_text(translatable("Members")), model_.members.size());
    for (const model::Member& member : model_.members) {
      add_elements(group, numbered(member.number, member.name), member.elements);
    }
  }

  void add_types() {
    constexpr std::array types{model::MemberType::column, model::MemberType::beam,
                               model::MemberType::brace, model::MemberType::truss};
    std::map<model::MemberType, Numbers> elements;
    for (const model::Element& element : model_.elements) {
      elements[model::member_type(model_, element)].push_back(element.number);
    }
    const std::size_t group = add(0, ui_text(translatable("Member types")), elements.size());
    for (const model::MemberType type : types) {
      const auto found = elements.find(type);
      if (found == elements.end()) continue;
      add_elements(group, ui_text(tables::member_type_name(type)), std::move(found->second));
    }
  }

  void add_loads() {
    const std::size_t cases = add(0, ui_text(translatable("Load cases")), model_.load_cases.size());
    for (const auto& load_case : model_.load_cases) {
      add(cases, numbered(load_case.number, load_case.name));
    }
    const std::size_t combinations = add(0, ui_text(translatable("Combinations")));
    for (const auto& combination : model_.combinations) {
      if (combination.state_of) continue;
      add(combinations, numbered(combination.number, combination.name));
    }
    entries_[combinations].count = entries_[combinations].children.size();
  }

  /// Those of some elements that the model still has.
  Numbers existing(const std::set<Number>& elements) const {
    Numbers numbers;
    for (const Number element : elements) {
      if (model_.elements.find(element) != nullptr) numbers.push_back(element);
    }
    return numbers;
  }

  void add_results() {
    const run::ShownResults* results = workspace_.results();
    if (results == nullptr) return;
    const std::size_t group = add(0, ui_text(translatable("Results")));
    std::set<Number> failing, not_checked, with_remarks;
    for (const auto& [number, element] : results->elements) {
      if (run::fails(element.worst())) failing.insert(number);
    }
    for (const store::NotChecked& item : results->told.not_checked) {
      not_checked.insert(item.element);
    }
    for (const store::RemarkRow& remark : results->told.remarks) {
      if (remark.elements.empty()) continue;  // about none
      const run::ConcernedElements concerned(remark);
      for (const model::Element& element : model_.elements) {
        if (concerned.contains(element.number)) with_remarks.insert(element.number);
      }
    }
    add_elements(group, ui_text(translatable("Fails")), existing(failing));
    add_elements(group, ui_text(translatable("Not checked")), existing(not_checked));
    add_elements(group, ui_text(translatable("Has remarks")), existing(with_remarks));
  }

  const Workspace& workspace_;
  const model::Model& model_;
  std::vector<TreeEntry> entries_;
};

}  // namespace

std::vector<TreeEntry> tree_entries(const Workspace& workspace) {
  if (workspace.document() == nullptr) return {};
  return Tree(workspace).entries();
}

}  // namespace aluframe::desktop

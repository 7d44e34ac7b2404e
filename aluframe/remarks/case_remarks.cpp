#include <algorithm>
#include <set>

#include "aluframe/model/number_ranges.h"

#include <fmt/format.h>
#include "aluframe/remarks/concerned.h"
#include "aluframe/remarks/kinds.h"
#include "aluframe/texts/text.h"

namespace aluframe::remarks {

namespace {

bool is_checked(const model::Combination& combination) {
  return combination.design || !combination.states.empty();
}

/// Load cases that a checked combination names, or one that it contains.
class NamedCases {
 public:
  explicit NamedCases(const model::Table<model::Combination>& combinations) {
    std::vector<const model::Combination*> open;
    for (const model::Combination& combination : combinations) {
      if (is_checked(combination) && seen_.insert(combination.number).second) {
        open.push_back(&combination);
      }
    }
    has_any_ = !open.empty();
    while (!open.empty()) {
      const model::Combination& combination = *open.back();
      open.pop_back();
      for (const model::CombinationTerm& term : combination.terms) {
        if (term.source == model::CombinationTerm::Source::load_case) {
          cases_.insert(term.number);
        } else if (seen_.insert(term.number).second) {
          open.push_back(combinations.find(term.number));
        }
      }
    }
  }

  /// Whether anything is checked at all.
  bool has_any() const { return has_any_; }
  bool contains(model::Number load_case) const { return cases_.contains(load_case); }

 private:
  std::set<model::Number> seen_, cases_;
  bool has_any_ = false;
};

bool has_forces(const model::Model& model, std::size_t load_case) {
  const auto is_loaded = [](const model::SectionForces& forces) {
    return std::ranges::any_of(forces, [](float force) { return force != 0.0F; });
  };
  for (std::size_t element = 0; element < model.elements.size(); ++element) {
    const model::CaseForces* forces = model.forces.find(element, load_case);
    if (forces != nullptr && std::ranges::any_of(forces->at, is_loaded)) return true;
  }
  return false;
}

}  // namespace

std::optional<Remark> unused_cases(Subject& subject) {
  const model::Model& model = subject.model;
  const NamedCases named(model.combinations);
  // A model without combinations has no checks, which is told apart.
  if (!named.has_any()) return std::nullopt;
  std::vector<model::Number> unused;
  for (std::size_t place = 0; place < model.load_cases.size(); ++place) {
    const model::LoadCase& load_case = model.load_cases[place];
    if (named.contains(load_case.number)) continue;
    const bool has_loads = !(load_case.loads == model::CaseLoads());
    if (has_loads || has_forces(model, place)) unused.push_back(load_case.number);
  }
  if (unused.empty()) return std::nullopt;
  std::ranges::sort(unused);
  Remark remark;
  remark.rule = texts::translatable("cases");
  const std::string cases = model::join_as_ranges(unused, most_ranges);
  remark.text =
      unused.size() == 1
          ? fmt::format(texts::translatable("no checked combination contains load case {}: its "
                                            "loads and forces have no part in any ratio; add it "
                                            "to the combinations"),
                        cases)
          : fmt::format(texts::translatable("no checked combination contains load case {}: their "
                                            "loads and forces have no part in any ratio; add them "
                                            "to the combinations"),
                        cases);
  return remark;
}

}  // namespace aluframe::remarks

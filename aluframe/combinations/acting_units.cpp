#include "aluframe/combinations/acting_units.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>

#include "aluframe/model/action_names.h"
#include "aluframe/texts/text.h"

namespace aluframe::combinations {

namespace {

using Kind = model::ActionKind;
using model::LoadCase;
using model::Number;

/// Choices of signs of one unit double with every reversible case that acts with another.
constexpr std::size_t most_choices = 64;

bool always_acts(Kind kind) {
  return kind == Kind::permanent || kind == Kind::prestress;
}

bool is_roof_load(const ActingUnit& unit) {
  return unit.action.kind == Kind::live && unit.action.category == "roof";
}

/// Gathers the units and looks for what is wrong with the actions, case by case in the order of the
/// file.
class Gatherer {
 public:
  Gatherer(const model::Model& model, const Rule& rule, const model::CombinationRule& wanted)
      : cases_(model.load_cases), rule_(rule), wanted_(wanted) {}

  std::variant<std::vector<ActingUnit>, Fault> run() {
    for (const LoadCase& load_case : cases_) {
      if (auto fault = fault_of(load_case)) return *fault;
    }
    for (const LoadCase& load_case : cases_) {
      if (auto fault = lone_member(load_case)) return *fault;
    }
    std::vector<ActingUnit> units;
    for (const LoadCase& load_case : cases_) {
      if (!takes_part(load_case) || load_case.action->together_with) continue;
      units.push_back(unit_of(load_case));
      if (units.back().choices.size() <= most_choices) continue;
      return fault_at(load_case, "",
                      texts::translated("more than {} choices of signs act with this case; make "
                                        "fewer of those reversible that act together with it",
                                        most_choices));
    }
    std::ranges::sort(units, {}, &ActingUnit::number);
    return units;
  }

 private:
  static bool takes_part(const LoadCase& load_case) {
    return load_case.action && load_case.action->kind != Kind::none;
  }

  Fault fault_at(const LoadCase& load_case, const std::string& field, std::string text) const {
    return {"/load_cases/" + std::to_string(cases_.position(load_case.number)) + "/action" + field,
            std::move(text)};
  }

  std::optional<Fault> fault_of(const LoadCase& load_case) const {
    if (!load_case.action) {
      return Fault{"/load_cases/" + std::to_string(cases_.position(load_case.number)),
                   texts::translated("missing field \"action\": combinations are made by rule, and "
                                     "load case {} does not name its kind",
                                     load_case.number)};
    }
    if (!takes_part(load_case)) return std::nullopt;
    if (auto fault = without_row(load_case)) return fault;
    if (auto fault = contradiction(load_case)) return fault;
    return load_case.action->together_with ? bad_company(load_case) : std::nullopt;
  }

  /// An earthquake is horizontal where nothing else is said.
  static std::string category_of(const model::Action& action) {
    if (action.kind == Kind::earthquake && action.category.empty()) return "horizontal";
    return action.category;
  }

  std::optional<model::FactorRow> row_of(const model::Action& action) const {
    return factors_of(rule_, wanted_.seismic, wanted_.table, action.kind, category_of(action));
  }

  std::optional<Fault> without_row(const LoadCase& load_case) const {
    const model::Action& action = *load_case.action;
    const std::string_view kind = model::name_of(action.kind);
    const std::string known = category_names(rule_, wanted_.table, action.kind);
    const std::optional<model::FactorRow> row = row_of(action);
    if (row && !(action.category.empty() && lacks_shares(*row))) return std::nullopt;
    if (known.empty() || (action.category.empty() && !row)) {
      return fault_at(load_case, action.category.empty() ? "/kind" : "/category",
                      texts::translated("the rule {} has no row for {}; give it one in the table "
                                        "of the combinations, or use the kind \"none\"",
                                        rule_.name, kind));
    }
    if (action.category.empty()) {
      return fault_at(
          load_case, "",
          texts::translated("missing field \"category\": {} is one of {}", kind, known));
    }
    return fault_at(load_case, "/category",
                    texts::translated("found \"{}\", must be one of {}, or have a row in the table "
                                      "of the combinations",
                                      action.category, known));
  }

  /// Kinds whose shares hang on the category.
  static bool lacks_shares(const model::FactorRow& row) {
    return (row.kind == Kind::live || row.kind == Kind::snow) && !row.psi_c;
  }

  std::optional<Fault> contradiction(const LoadCase& load_case) const {
    const model::Action& action = *load_case.action;
    const std::string_view kind = model::name_of(action.kind);
    if (always_acts(action.kind) && !action.exclusive.empty()) {
      return fault_at(load_case, "/exclusive",
                      texts::translated("a {} action always acts, and excludes none", kind));
    }
    if (always_acts(action.kind) && action.is_reversible()) {
      return fault_at(load_case, "/reversible",
                      texts::translated("a {} action always acts the same way", kind));
    }
    if (!always_acts(action.kind) && action.favourable == model::Favourable::only) {
      return fault_at(load_case, "/favourable",
                      texts::translated("a {} action that is always favourable never acts; use the "
                                        "kind \"none\"",
                                        kind));
    }
    return std::nullopt;
  }

  /// What is wrong with the case that another is to act with.
  std::optional<Fault> bad_company(const LoadCase& load_case) const {
    const auto fault = [&](std::string text) {
      return fault_at(load_case, "/together_with", std::move(text));
    };
    std::set<Number> met{load_case.number};
    std::string chain = std::to_string(load_case.number);
    const LoadCase* other = &load_case;
    while (other->action && other->action->together_with) {
      const Number next = *other->action->together_with;
      chain += " → " + std::to_string(next);
      other = cases_.find(next);
      if (other == nullptr) return fault(texts::translated("load case {} does not exist", next));
      if (!met.insert(next).second) {
        return fault(texts::translated("cases act together in a circle: {}", chain));
      }
    }
    const model::Action& action = *load_case.action;
    if (!other->action || other->action->kind != action.kind ||
        other->action->category != action.category) {
      return fault(texts::translated("load case {} is an action of another kind or category",
                                     other->number));
    }
    if (!action.exclusive.empty()) {
      return fault_at(load_case, "/exclusive",
                      texts::translated("not allowed beside \"together_with\": the group is that "
                                        "of load case {}",
                                        other->number));
    }
    return std::nullopt;
  }

  /// A group of one excludes nothing, and is probably misspelt.
  std::optional<Fault> lone_member(const LoadCase& load_case) const {
    if (!takes_part(load_case) || load_case.action->exclusive.empty()) return std::nullopt;
    const std::string& group = load_case.action->exclusive;
    const auto is_member = [&group](const LoadCase& other) {
      return takes_part(other) && other.action->exclusive == group;
    };
    if (std::ranges::count_if(cases_, is_member) > 1) return std::nullopt;
    return fault_at(load_case, "/exclusive",
                    texts::translated("the exclusive group \"{}\" has no other case", group));
  }

  ActingUnit unit_of(const LoadCase& root) const {
    ActingUnit unit{.number = root.number,
                    .action = *root.action,
                    .factors = *row_of(*root.action),
                    .choices = {}};
    unit.action.category = category_of(*root.action);
    const std::vector<double> signs =
        root.action->is_reversible() ? std::vector{1.0, -1.0} : std::vector{1.0};
    for (const double sign : signs) unit.choices.push_back({{root.number, sign}});
    for (const Number number : followers_of(root.number)) add_follower(number, unit);
    return unit;
  }

  /// Cases that act with this one, straight or through others, by number.
  std::set<Number> followers_of(Number root) const {
    std::set<Number> found{root};
    for (std::size_t before = 0; before != found.size();) {
      before = found.size();
      for (const LoadCase& other : cases_) {
        if (takes_part(other) && other.action->together_with &&
            found.contains(*other.action->together_with)) {
          found.insert(other.number);
        }
      }
    }
    found.erase(root);
    return found;
  }

  /// A follower has the sign of the case that leads it, and the other one too when it says that it
  /// is reversible.
  void add_follower(Number number, ActingUnit& unit) const {
    const bool is_free = cases_.find(number)->action->reversible.value_or(false);
    if (unit.choices.size() > most_choices) return;
    std::vector<std::vector<ActingUnit::SignedCase>> choices;
    for (const auto& choice : unit.choices) {
      const double sign = choice.front().sign;
      choices.push_back(choice);
      choices.back().push_back({number, sign});
      if (!is_free) continue;
      choices.push_back(choice);
      choices.back().push_back({number, -sign});
    }
    unit.choices = std::move(choices);
  }

  const model::Table<LoadCase>& cases_;
  const Rule& rule_;
  const model::CombinationRule& wanted_;
};

}  // namespace

bool exclude_each_other(const ActingUnit& a, const ActingUnit& b) {
  if (!a.action.exclusive.empty() && a.action.exclusive == b.action.exclusive) return true;
  if (a.action.kind == b.action.kind) {
    if (a.action.kind == Kind::accidental) return true;
    return a.action.kind == Kind::earthquake && a.action.category == b.action.category;
  }
  return (is_roof_load(a) && b.action.kind == Kind::snow) ||
         (is_roof_load(b) && a.action.kind == Kind::snow);
}

std::variant<std::vector<ActingUnit>, Fault> acting_units(const model::Model& model,
                                                          const Rule& rule,
                                                          const model::CombinationRule& wanted) {
  return Gatherer(model, rule, wanted).run();
}

}  // namespace aluframe::combinations

#include "aluframe/combinations/patterns.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>
#include <string>

#include "aluframe/model/action_names.h"
#include "aluframe/texts/text.h"

namespace aluframe::combinations {

namespace {

using Kind = model::ActionKind;
using Type = model::CombinationType;
using model::FactorRow;
using model::Favourable;
using Field = std::optional<double> FactorRow::*;

bool is_gravity(Kind kind) {
  return kind == Kind::permanent || kind == Kind::live || kind == Kind::snow;
}

bool is_variable(Kind kind) {
  return kind == Kind::live || kind == Kind::snow || kind == Kind::wind ||
         kind == Kind::temperature || kind == Kind::construction;
}

/// Builds the patterns of a type. Throws Fault where the table lacks a number.
class Builder {
 public:
  Builder(const std::vector<ActingUnit>& units, const Rule& rule,
          const model::CombinationRule& wanted, const model::Model& model)
      : units_(units), rule_(rule), wanted_(wanted), model_(model) {}

  std::vector<Pattern> run(Type type) const {
    switch (type) {
      case Type::fundamental:
        return fundamental();
      case Type::seismic:
        return seismic();
      case Type::accidental:
        return accidental();
      case Type::characteristic:
        return {service(nullptr, &FactorRow::psi_c)};
      case Type::frequent:
        return {service(&FactorRow::psi_f, &FactorRow::psi_q)};
      case Type::quasi_permanent:
        return {service(std::nullopt, &FactorRow::psi_q)};
    }
    return {};
  }

 private:
  double number(std::size_t unit, Field field, const char* name) const {
    const ActingUnit& of = units_[unit];
    if (of.factors.*field) return *(of.factors.*field);
    const std::string what =
        of.action.category.empty()
            ? std::string(model::name_of(of.action.kind))
            : fmt::format("{} \"{}\"", model::name_of(of.action.kind), of.action.category);
    throw Fault{fmt::format("/load_cases/{}/action", model_.load_cases.position(of.number)),
                texts::translated("the rule {} has no {} for {}; give it in the table of the "
                                  "combinations",
                                  rule_.name, name, what)};
  }
  double share(std::size_t unit, Field field) const {
    const char* name = field == &FactorRow::psi_c   ? "psi_c"
                       : field == &FactorRow::psi_f ? "psi_f"
                                                    : "psi_q";
    return number(unit, field, name);
  }

  bool has(Kind kind) const {
    return std::ranges::any_of(units_,
                               [kind](const ActingUnit& unit) { return unit.action.kind == kind; });
  }
  Kind kind(std::size_t unit) const { return units_[unit].action.kind; }
  bool must_act(std::size_t unit) const {
    return units_[unit].action.favourable == Favourable::never;
  }

  /// Both factors of a permanent action, or the one that its case allows.
  std::vector<Factor> both(std::size_t unit, double unfavourable, double favourable) const {
    const Factor high{.gamma = unfavourable, .role = Role::permanent};
    const Factor low{.gamma = favourable, .role = Role::favourable};
    const Favourable allowed = units_[unit].action.favourable;
    if (allowed == Favourable::only) return {low};
    if (allowed == Favourable::never || unfavourable == favourable) return {high};
    return {high, low};
  }

  double variable_gamma(std::size_t unit) const {
    const double gamma = number(unit, &FactorRow::gamma, "gamma");
    const bool is_imposed =
        kind(unit) == Kind::live && !units_[unit].action.category.starts_with("crane");
    return is_imposed ? gamma * live_factor(wanted_.design_life).value_or(1.0) : gamma;
  }

  std::vector<Pattern> fundamental() const {
    Pattern pattern;
    Pattern alone;
    for (std::size_t i = 0; i < units_.size(); ++i) {
      const FactorRow& row = units_[i].factors;
      if (kind(i) == Kind::permanent || kind(i) == Kind::prestress) {
        pattern.standing.push_back({i, both(i, number(i, &FactorRow::gamma, "gamma"),
                                            number(i, &FactorRow::favourable, "favourable"))});
        if (row.alone) alone.standing.push_back({i, both(i, *row.alone, *row.favourable)});
      } else if (kind(i) == Kind::settlement) {
        pattern.movable.push_back(settlement(i, number(i, &FactorRow::gamma, "gamma")));
      } else if (is_variable(kind(i))) {
        const double gamma = variable_gamma(i);
        pattern.movable.push_back(
            variable(i, Factor{1.0, gamma, Role::leading},
                     Factor{share(i, &FactorRow::psi_c), gamma, Role::accompanying}));
      }
    }
    if (alone.standing.empty()) return {pattern};
    return {pattern, alone};
  }

  Movable settlement(std::size_t unit, double gamma) const {
    return {.unit = unit,
            .leading = std::nullopt,
            .accompanying = Factor{1.0, gamma, Role::permanent},
            .needs_leader = false,
            .must_act = must_act(unit)};
  }

  Movable variable(std::size_t unit, std::optional<Factor> leading, Factor accompanying) const {
    return {.unit = unit,
            .leading = leading,
            .accompanying = accompanying,
            .needs_leader = leading.has_value(),
            .must_act = must_act(unit)};
  }

  void add_permanent_as_is(Pattern& pattern) const {
    for (std::size_t i = 0; i < units_.size(); ++i) {
      if (kind(i) == Kind::permanent || kind(i) == Kind::prestress) {
        pattern.standing.push_back({i, {Factor{}}});
      } else if (kind(i) == Kind::settlement) {
        pattern.movable.push_back(settlement(i, 1.0));
      }
    }
  }

  /// Without partial factors. `leading`: nothing when no action leads, null for its whole value.
  Pattern service(std::optional<Field> leading, Field accompanying) const {
    Pattern pattern;
    add_permanent_as_is(pattern);
    for (std::size_t i = 0; i < units_.size(); ++i) {
      if (!is_variable(kind(i))) continue;
      std::optional<Factor> first;
      if (leading) {
        first = Factor{*leading == nullptr ? 1.0 : share(i, *leading), 1.0, Role::leading};
      }
      pattern.movable.push_back(
          variable(i, first, Factor{share(i, accompanying), 1.0, Role::accompanying}));
    }
    return pattern;
  }

  std::vector<Pattern> accidental() const {
    std::vector<Pattern> patterns;
    for (std::size_t i = 0; i < units_.size(); ++i) {
      if (kind(i) != Kind::accidental) continue;
      patterns.push_back(service(&FactorRow::psi_f, &FactorRow::psi_q));
      const Factor whole{1.0, number(i, &FactorRow::gamma, "gamma"), Role::accidental};
      patterns.back().standing.push_back({i, {whole}});
      std::erase_if(patterns.back().movable, [&](const Movable& movable) {
        return exclude_each_other(units_[movable.unit], units_[i]);
      });
    }
    return patterns;
  }

  /// Gravity loads act as one: all with the factor of unfavourable gravity, or all with that of
  /// favourable gravity.
  std::vector<Pattern> seismic() const {
    if (!has(Kind::earthquake)) return {};
    std::vector<Pattern> patterns{seismic(true), seismic(false)};
    return patterns;
  }

  Pattern seismic(bool is_unfavourable) const {
    Pattern pattern{.standing = {}, .movable = {}, .must_lead = true};
    const Role role = is_unfavourable ? Role::permanent : Role::favourable;
    const double gravity = gravity_factor(is_unfavourable);
    for (std::size_t i = 0; i < units_.size(); ++i) {
      if (kind(i) == Kind::permanent) {
        const auto factors = both(i, gravity_factor(true), gravity_factor(false));
        const Factor own{1.0, gravity, role};
        pattern.standing.push_back({i, {factors.size() == 1 ? factors.front() : own}});
      } else if (kind(i) == Kind::prestress) {
        pattern.standing.push_back({i, both(i, number(i, &FactorRow::gamma_e, "gamma_e"),
                                            number(i, &FactorRow::favourable_e, "favourable_e"))});
      } else if (kind(i) == Kind::earthquake) {
        pattern.movable.push_back(earthquake(i));
      } else if (const auto beside = beside_earthquake(i, gravity)) {
        pattern.movable.push_back(*beside);
      }
    }
    return pattern;
  }

  double gravity_factor(bool is_unfavourable) const {
    const auto row = factors_of(rule_, wanted_.seismic, wanted_.table, Kind::permanent, "");
    return (is_unfavourable ? row->gamma_e : row->favourable_e).value_or(1.0);
  }

  Movable earthquake(std::size_t unit) const {
    const double gamma = number(unit, &FactorRow::gamma_e, "gamma_e");
    const Factor leading{number(unit, &FactorRow::psi_e, "psi_e"), gamma, Role::leading};
    const Factor second{1.0, number(unit, &FactorRow::second_e, "second_e"), Role::accompanying};
    return variable(unit, leading, second);
  }

  /// The share of gravity that live loads and snow are, and wind where it acts with earthquakes.
  std::optional<Movable> beside_earthquake(std::size_t unit, double gravity) const {
    if (!is_variable(kind(unit))) return std::nullopt;
    const double psi = units_[unit].factors.psi_e.value_or(0.0);
    if (psi == 0.0) return std::nullopt;
    if (is_gravity(kind(unit))) {
      return Movable{.unit = unit,
                     .leading = std::nullopt,
                     .accompanying = Factor{psi, gravity, Role::gravity},
                     .needs_leader = false,
                     .must_act = true};
    }
    const bool is_left_out =
        kind(unit) == Kind::wind && !wanted_.wind_with_earthquake && !rule_.wind_with_earthquake;
    if (is_left_out) return std::nullopt;
    const double gamma = number(unit, &FactorRow::gamma_e, "gamma_e");
    return variable(unit, std::nullopt, Factor{psi, gamma, Role::accompanying});
  }

  const std::vector<ActingUnit>& units_;
  const Rule& rule_;
  const model::CombinationRule& wanted_;
  const model::Model& model_;
};

}  // namespace

double Factor::value() const {
  return std::strtod(fmt::format("{:.12g}", psi * gamma).c_str(), nullptr);
}

std::variant<std::vector<Pattern>, Fault> patterns_of(Type type,
                                                      const std::vector<ActingUnit>& units,
                                                      const Rule& rule,
                                                      const model::CombinationRule& wanted,
                                                      const model::Model& model) {
  try {
    return Builder(units, rule, wanted, model).run(type);
  } catch (const Fault& fault) {
    return fault;
  }
}

}  // namespace aluframe::combinations

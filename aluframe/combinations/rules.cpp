#include "aluframe/combinations/rules.h"

#include <algorithm>

namespace aluframe::combinations {

namespace {

using Kind = model::ActionKind;
using Type = model::CombinationType;
using model::FactorRow;

/// A variable action of GB 50009-2012 with its share of the representative gravity load by GB
/// 50011-2010, 5.1.3 (GB 55002-2021 has the same shares).
FactorRow variable(Kind kind, const char* category, double psi_c, double psi_f, double psi_q,
                   std::optional<double> psi_e, const char* source) {
  FactorRow row{.kind = kind, .category = category, .source = source};
  row.psi_c = psi_c;
  row.psi_f = psi_f;
  row.psi_q = psi_q;
  row.psi_e = psi_e;
  return row;
}

FactorRow permanent(Kind kind, double gamma, double favourable, const char* source) {
  FactorRow row{.kind = kind, .category = {}, .source = source};
  row.gamma = gamma;
  row.favourable = favourable;
  return row;
}

FactorRow with_gamma(Kind kind, double gamma, const char* source) {
  FactorRow row{.kind = kind, .category = {}, .source = source};
  row.gamma = gamma;
  return row;
}

std::vector<FactorRow> load_code_rows() {
  const char* factors = "GB 50068-2018 8.2.9";
  std::vector<FactorRow> rows{
      permanent(Kind::permanent, 1.3, 1.0, factors),
      permanent(Kind::prestress, 1.3, 1.0, factors),
      permanent(Kind::settlement, 1.3, 0.0, factors),
      with_gamma(Kind::live, 1.5, factors),
      with_gamma(Kind::snow, 1.5, factors),
      with_gamma(Kind::wind, 1.5, factors),
      with_gamma(Kind::temperature, 1.5, factors),
      with_gamma(Kind::construction, 1.5, factors),
      with_gamma(Kind::accidental, 1.0, "GB 50068-2018 8.2.5"),
  };
  const char* floors = "GB 50009-2012 5.1.1";
  const char* roofs = "GB 50009-2012 5.3.1";
  const char* cranes = "GB 50009-2012 6.4.1";
  const char* snow = "GB 50009-2012 7.1.5";
  const std::vector<FactorRow> shares{
      variable(Kind::live, "residence", 0.7, 0.5, 0.4, 0.5, floors),
      variable(Kind::live, "office", 0.7, 0.5, 0.4, 0.5, floors),
      variable(Kind::live, "meeting room", 0.7, 0.6, 0.5, 0.5, floors),
      variable(Kind::live, "classroom", 0.7, 0.6, 0.5, 0.5, floors),
      variable(Kind::live, "auditorium", 0.7, 0.5, 0.3, 0.5, floors),
      variable(Kind::live, "shop", 0.7, 0.6, 0.5, 0.5, floors),
      variable(Kind::live, "station hall", 0.7, 0.6, 0.5, 0.5, floors),
      variable(Kind::live, "grandstand", 0.7, 0.5, 0.3, 0.5, floors),
      variable(Kind::live, "gymnasium", 0.7, 0.6, 0.5, 0.5, floors),
      variable(Kind::live, "library", 0.9, 0.9, 0.8, 0.8, floors),
      variable(Kind::live, "plant room", 0.9, 0.9, 0.8, 0.5, floors),
      variable(Kind::live, "crowded corridor", 0.7, 0.5, 0.3, 0.5, floors),
      variable(Kind::live, "roof", 0.7, 0.5, 0.0, 0.0, roofs),
      variable(Kind::live, "accessible roof", 0.7, 0.5, 0.4, 0.0, roofs),
      variable(Kind::live, "roof garden", 0.7, 0.6, 0.5, 0.0, roofs),
      variable(Kind::live, "crane A1-A3", 0.7, 0.6, 0.5, 0.0, cranes),
      variable(Kind::live, "crane A4-A5", 0.7, 0.7, 0.6, 0.0, cranes),
      variable(Kind::live, "crane A6-A7", 0.7, 0.7, 0.7, 0.0, cranes),
      variable(Kind::live, "crane A8", 0.95, 0.95, 0.95, 0.3, cranes),
      variable(Kind::snow, "I", 0.7, 0.6, 0.5, 0.5, snow),
      variable(Kind::snow, "II", 0.7, 0.6, 0.2, 0.5, snow),
      variable(Kind::snow, "III", 0.7, 0.6, 0.0, 0.5, snow),
      variable(Kind::wind, "", 0.6, 0.4, 0.0, {}, "GB 50009-2012 8.1.4"),
      variable(Kind::temperature, "", 0.6, 0.5, 0.4, {}, "GB 50009-2012 9.1.3"),
      variable(Kind::construction, "", 0.7, 0.5, 0.0, {}, "GB 50009-2012 5.5.3"),
  };
  rows.insert(rows.end(), shares.begin(), shares.end());
  return rows;
}

/// What a seismic code says: γ of gravity, unfavourable and favourable, of the earthquake, and of
/// wind.
std::vector<FactorRow> seismic_rows(double gravity, double favourable, double earthquake,
                                    double wind, const char* source) {
  std::vector<FactorRow> rows;
  for (const Kind kind : {Kind::permanent, Kind::prestress}) {
    FactorRow row{.kind = kind, .category = {}, .source = source};
    row.gamma_e = gravity;
    row.favourable_e = favourable;
    rows.push_back(row);
  }
  for (const char* direction : {"horizontal", "vertical"}) {
    FactorRow row{.kind = Kind::earthquake, .category = direction, .source = source};
    row.gamma_e = earthquake;
    row.psi_e = 1.0;
    row.second_e = 0.5;
    rows.push_back(row);
  }
  FactorRow row{.kind = Kind::wind, .category = {}, .source = source};
  row.gamma_e = wind;
  row.psi_e = 0.2;
  rows.push_back(row);
  return rows;
}

Rule building_rule() {
  return {.name = "GB 50068-2018",
          .types = {Type::fundamental, Type::seismic, Type::accidental, Type::characteristic,
                    Type::frequent, Type::quasi_permanent},
          .rows = load_code_rows(),
          .seismic = {{"GB 50011-2010", seismic_rows(1.2, 1.0, 1.3, 1.4, "GB 50011-2010 5.4.1")},
                      {"GB 55002-2021", seismic_rows(1.3, 1.0, 1.4, 1.5, "GB 55002-2021 4.3.2")}}};
}

/// Curtain walls: gravity, wind and earthquake, each combined in one way.
Rule curtain_wall_rule() {
  const char* source = "JGJ 102-2003 5.4";
  FactorRow gravity = permanent(Kind::permanent, 1.2, 1.0, source);
  gravity.alone = 1.35;
  gravity.gamma_e = 1.2;
  gravity.favourable_e = 1.0;
  FactorRow wind = with_gamma(Kind::wind, 1.4, source);
  wind.psi_c = 1.0;
  wind.gamma_e = 1.4;
  wind.psi_e = 1.0;
  FactorRow earthquake{.kind = Kind::earthquake, .category = "horizontal", .source = source};
  earthquake.gamma_e = 1.3;
  earthquake.psi_e = 0.5;
  earthquake.second_e = 0.0;
  return {.name = "JGJ 102-2003",
          .types = {Type::fundamental, Type::seismic, Type::characteristic},
          .rows = {gravity, wind, earthquake},
          .seismic = {{"JGJ 102-2003", {}}},
          .wind_with_earthquake = true};
}

void lay_over(const FactorRow& over, FactorRow& row) {
  for (const auto field :
       {&FactorRow::gamma, &FactorRow::favourable, &FactorRow::alone, &FactorRow::psi_c,
        &FactorRow::psi_f, &FactorRow::psi_q, &FactorRow::psi_e, &FactorRow::second_e,
        &FactorRow::gamma_e, &FactorRow::favourable_e}) {
    if (over.*field) row.*field = over.*field;
  }
  if (over.source.empty()) return;
  if (row.source.find(over.source) != std::string::npos) return;
  row.source += (row.source.empty() ? "" : ", ") + over.source;
}

const SeismicCode* seismic_code(const Rule& rule, std::string_view name) {
  if (name.empty()) return &rule.seismic.front();
  const auto found = std::ranges::find(rule.seismic, name, &SeismicCode::name);
  return found == rule.seismic.end() ? nullptr : &*found;
}

}  // namespace

std::span<const Rule> rules() {
  static const std::vector<Rule> all{building_rule(), curtain_wall_rule()};
  return all;
}

const Rule* find_rule(std::string_view name) {
  const auto found = std::ranges::find(rules(), name, &Rule::name);
  return found == rules().end() ? nullptr : &*found;
}

std::string rule_names() {
  std::string names;
  for (const Rule& rule : rules()) names += (names.empty() ? "" : ", ") + std::string(rule.name);
  return names;
}

std::optional<FactorRow> factors_of(const Rule& rule, std::string_view seismic,
                                    std::span<const FactorRow> own, Kind kind,
                                    std::string_view category) {
  FactorRow out{.kind = kind, .category = std::string(category), .source = {}};
  bool is_known = false;
  const auto take = [&](std::span<const FactorRow> rows, std::string_view wanted) {
    for (const FactorRow& row : rows) {
      if (row.kind != kind || row.category != wanted) continue;
      lay_over(row, out);
      is_known = is_known || wanted == category;
    }
  };
  const auto take_all = [&](std::string_view wanted) {
    take(rule.rows, wanted);
    if (const SeismicCode* code = seismic_code(rule, seismic)) take(code->rows, wanted);
    take(own, wanted);
  };
  take_all("");
  if (!category.empty()) take_all(category);
  return is_known ? std::optional(out) : std::nullopt;
}

std::string category_names(const Rule& rule, std::span<const FactorRow> own, Kind kind) {
  std::vector<std::string> names;
  const auto take = [&](std::span<const FactorRow> rows) {
    for (const FactorRow& row : rows) {
      if (row.kind != kind || row.category.empty()) continue;
      if (std::ranges::find(names, row.category) == names.end()) names.push_back(row.category);
    }
  };
  take(rule.rows);
  if (!rule.seismic.empty()) take(rule.seismic.front().rows);
  take(own);
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
  return text;
}

std::optional<double> live_factor(int design_life) {
  if (design_life == 5) return 0.9;
  if (design_life == 50) return 1.0;
  if (design_life == 100) return 1.1;
  return std::nullopt;
}

}  // namespace aluframe::combinations

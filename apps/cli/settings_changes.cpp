#include "apps/cli/settings_changes.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <set>
#include <utility>

#include "aluframe/catalogue/alloys.h"
#include "aluframe/model/number_ranges.h"
#include "aluframe/services/design_codes.h"
#include "aluframe/services/settings_rules.h"
#include "aluframe/services/text.h"
#include "aluframe/texts/text.h"
#include "apps/cli/settings_fields.h"

namespace aluframe::cli {

namespace {

using model::DesignSettings;
using model::Material;
using Problems = std::vector<std::string>;

constexpr std::pair<std::string_view, bool> switch_words[] = {
    {"on", true}, {"off", false}, {"true", true}, {"false", false}, {"1", true}, {"0", false}};

std::string with(std::string text, char from, char to) {
  std::ranges::replace(text, from, to);
  return text;
}

template <class Number>
std::optional<Number> parse_number(const std::string& text) {
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

/// Puts a text into a field. @return what is allowed, when the text is not
struct Assign {
  DesignSettings& settings;
  const std::string& text;

  std::optional<std::string> operator()(bool DesignSettings::* member) const {
    const auto* const word =
        std::ranges::find(switch_words, text, &std::pair<std::string_view, bool>::first);
    if (word == std::end(switch_words)) return texts::translated("must be on or off");
    settings.*member = word->second;
    return std::nullopt;
  }
  std::optional<std::string> operator()(int DesignSettings::* member) const {
    const auto number = parse_number<int>(text);
    if (!number) return texts::translated("must be a whole number");
    settings.*member = *number;
    return std::nullopt;
  }
  std::optional<std::string> operator()(double DesignSettings::* member) const {
    const auto number = parse_number<double>(text);
    if (!number) return texts::translated("must be a number");
    settings.*member = *number;
    return std::nullopt;
  }
  /// The design code is the one text.
  std::optional<std::string> operator()(std::string DesignSettings::* member) const {
    const CString internal = services::internal_code_name(services::to_wide(text));
    if (internal != services::design_code) {
      return texts::translated("must be {}",
                               services::to_utf8(services::shown_code_name(services::design_code)));
    }
    settings.*member = services::to_utf8(internal);
    return std::nullopt;
  }
};

/// Makes one setting. `met` are the fields that were set before.
void assign(const std::string& pair, DesignSettings& settings, std::set<std::string>& met,
            Problems& problems) {
  const std::size_t sign = pair.find('=');
  const std::string key = with(pair.substr(0, sign), '-', '_');
  const auto* const field = std::ranges::find(settings_fields, key, &Field<DesignSettings>::name);
  if (sign == std::string::npos || field == std::end(settings_fields)) {
    problems.push_back(texts::translated("--set: found '{}', must be KEY=VALUE with a key of {}",
                                         pair, setting_names()));
    return;
  }
  const std::string option = "--set " + with(key, '_', '-');
  if (!met.insert(key).second) problems.push_back(texts::translated("{}: given twice", option));
  const std::string value = pair.substr(sign + 1);
  if (const auto allowed = std::visit(Assign{settings, value}, field->member)) {
    problems.push_back(texts::translated("{}: found '{}', {}", option, value, *allowed));
  }
}

template <class Record>
void add_broken_rules(const Record& record, std::string_view option, Problems& problems) {
  for (const services::BrokenRule& rule : services::broken_rules(record)) {
    problems.push_back(fmt::format("{}{}: {}", option, with(rule.field, '_', '-'), rule.text));
  }
}

void apply_settings(const std::vector<std::string>& pairs, model::Model& model,
                    Problems& problems) {
  if (pairs.empty()) return;
  const DesignSettings before = model.design.value_or(DesignSettings());
  DesignSettings settings = before;
  std::set<std::string> met;
  for (const std::string& pair : pairs) assign(pair, settings, met, problems);
  if (problems.empty()) add_broken_rules(settings, "--set ", problems);
  if (settings != before) model.design = settings;
}

/// Gives a material the values of an alloy. A name that is the old grade's follows.
void take_alloy(const catalogue::Alloy& alloy, Material& material) {
  Material values = catalogue::material_of(alloy);
  const bool named_by_grade = !material.name.empty() && material.name == material.grade;
  values.number = material.number;
  values.name = named_by_grade ? values.grade : material.name;
  values.density = material.density;
  values.thermal_expansion = material.thermal_expansion;
  material = std::move(values);
}

void apply_grade(const std::string& grade, Material& material, Problems& problems) {
  if (const catalogue::Alloy* alloy = catalogue::find_alloy(grade)) {
    take_alloy(*alloy, material);
  } else {
    problems.push_back(texts::translated("--grade: found '{}', must be one of {}", grade,
                                         catalogue::alloy_names()));
  }
}

/// A material's values that the user gave, by their options.
auto own_values(const WantedChanges& wanted, Material& material) {
  return std::to_array<std::tuple<std::string_view, const std::optional<std::string>*, double*>>(
      {{"--e", &wanted.e, &material.e},
       {"--poisson", &wanted.poisson, &material.poisson},
       {"--fu", &wanted.fu, &material.fu},
       {"--f02-thin", &wanted.f02_thin, &material.f02_thin},
       {"--f02-thick", &wanted.f02_thick, &material.f02_thick}});
}

void apply_own_values(const WantedChanges& wanted, Material& material, Problems& problems) {
  bool any = false;
  for (const auto& [option, text, value] : own_values(wanted, material)) {
    if (!*text) continue;
    any = true;
    const auto number = parse_number<double>(**text);
    if (number) {
      *value = *number;
    } else {
      problems.push_back(texts::translated("{}: found '{}', must be a number", option, **text));
    }
  }
  if (!any) return;
  if (material.name.empty()) material.name = material.grade;
  material.standard = model::user_standard;
  material.grade.clear();
}

std::string material_numbers(const model::Model& model) {
  std::vector<model::Number> numbers;
  for (const Material& material : model.materials) numbers.push_back(material.number);
  std::ranges::sort(numbers);
  return model::join_as_ranges(numbers);
}

void apply_material(const WantedChanges& wanted, model::Model& model, Problems& problems) {
  if (!wanted.material) return;
  const auto number = parse_number<model::Number>(*wanted.material);
  const Material* found = number ? model.materials.find(*number) : nullptr;
  if (found == nullptr) {
    problems.push_back(
        texts::translated("--material: found '{}', must be a material of the model: {}",
                          *wanted.material, material_numbers(model)));
    return;
  }
  Material material = *found;
  const std::size_t problems_before = problems.size();
  if (wanted.grade) apply_grade(*wanted.grade, material, problems);
  apply_own_values(wanted, material, problems);
  if (wanted.name) material.name = *wanted.name;
  if (problems.size() == problems_before) add_broken_rules(material, "--", problems);
  model.materials.replace(std::move(material));
}

}  // namespace

std::string setting_names() {
  std::string names;
  for (const Field<DesignSettings>& field : settings_fields) {
    names += (names.empty() ? "" : ", ") + with(std::string(field.name), '_', '-');
  }
  return names;
}

std::vector<std::string> apply(const WantedChanges& wanted, model::Model& model) {
  Problems problems;
  apply_settings(wanted.set, model, problems);
  apply_material(wanted, model, problems);
  return problems;
}

}  // namespace aluframe::cli

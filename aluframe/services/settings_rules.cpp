#include "aluframe/services/settings_rules.h"

#include "aluframe/model/plain_text.h"
#include "aluframe/texts/text.h"

namespace aluframe::services {

namespace {

using model::DesignSettings;
using model::Material;

/// Numbers of a model file end here.
constexpr double largest_number = 1e30;

template <class Record>
struct NumberRule {
  const char* field;
  double Record::* member;
  bool (*holds)(double);
  const char* allowed;
};

bool is_factor(double value) {
  return value >= 1e-6 && value <= largest_number;
}

bool is_positive(double value) {
  return value > 0.0 && value <= largest_number;
}

constexpr const char* factor_range = texts::translatable("must be between 1e-06 and 1e+30");
constexpr const char* positive_range = texts::translatable("must be above 0 and at most 1e+30");

constexpr NumberRule<DesignSettings> settings_rules[] = {
    {"rib_ratio", &DesignSettings::rib_ratio, is_factor, factor_range},
    {"strength_ratio", &DesignSettings::strength_ratio, is_factor, factor_range},
    {"gamma_re_strength", &DesignSettings::gamma_re_strength, is_factor, factor_range},
    {"gamma_re_stability", &DesignSettings::gamma_re_stability, is_factor, factor_range},
};

constexpr NumberRule<Material> material_rules[] = {
    {"e", &Material::e, is_positive, positive_range},
    {"poisson", &Material::poisson, is_positive, positive_range},
    {"fu", &Material::fu, is_positive, positive_range},
    {"f02_thin", &Material::f02_thin, is_positive, positive_range},
    {"f02_thick", &Material::f02_thick, is_positive, positive_range},
};

template <class Record, std::size_t Size>
void add_broken(const Record& record, const NumberRule<Record> (&rules)[Size],
                std::vector<BrokenRule>& out) {
  for (const NumberRule<Record>& rule : rules) {
    const double value = record.*rule.member;
    if (!rule.holds(value)) {
      out.push_back({rule.field, texts::translated("found {}, {}", value,
                                                   texts::translation_of(rule.allowed))});
    }
  }
}

}  // namespace

std::vector<BrokenRule> broken_rules(const DesignSettings& settings) {
  std::vector<BrokenRule> broken;
  if (settings.safety_class < 1 || settings.safety_class > 3) {
    broken.push_back(
        {"safety_class", texts::translated("found {}, must be 1, 2 or 3", settings.safety_class)});
  }
  add_broken(settings, settings_rules, broken);
  return broken;
}

std::vector<BrokenRule> broken_rules(const Material& material) {
  std::vector<BrokenRule> broken;
  const bool of_the_user = material.standard.empty() || material.standard == model::user_standard;
  if (of_the_user && material.name.empty() && material.grade.empty()) {
    broken.push_back(
        {"name", texts::translated("found none, values of the user must have a name")});
  }
  if (const auto found = model::find_control_character(material.name)) {
    broken.push_back({"name", texts::translated("found {}, {}", *found,
                                                texts::translation_of(model::plain_text_rule))});
  }
  add_broken(material, material_rules, broken);
  return broken;
}

}  // namespace aluframe::services

#include "aluframe/document/names.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <utility>

#include "aluframe/tables/names.h"
#include "aluframe/texts/text.h"

namespace aluframe::document {

namespace {

using texts::translatable;

constexpr std::array settings{
    std::pair{"safety_class", translatable("safety class and importance factor γ0")},
    std::pair{"ribs", translatable("plates stiffened by ribs")},
    std::pair{"strength_ratio", translatable("net over gross area in strength checks")},
    std::pair{"seismic_factors", translatable("seismic factors γRE")},
    std::pair{"length_factors", translatable("effective length factors")},
    std::pair{"restraints", translatable("restraints of members")},
    std::pair{"buckling_limit", translatable("limit of the buckling load factor")},
    std::pair{"analysis", translatable("forces and analysis")},
    std::pair{"second_opinion", translatable("second opinion")},
    std::pair{"buckling", translatable("buckling of the whole frame")}};

constexpr std::array origins{std::pair{"given", translatable("user, in the model")},
                             std::pair{"default", translatable("default of the program")},
                             std::pair{"from the frame", translatable("computed from the frame")}};

template <class Names, class Key>
std::string label_in(const Names& names, const Key& key, const std::string& otherwise) {
  const auto found =
      std::ranges::find_if(names, [&](const auto& entry) { return key == entry.first; });
  return found == std::end(names) ? otherwise : std::string(texts::translation_of(found->second));
}

}  // namespace

std::string item_label(int item) {
  return std::string(texts::translation_of(tables::item_name(item)));
}

std::string member_type_label(int type) {
  return std::string(texts::translation_of(tables::member_type_name(type)));
}

std::string load_case_kind_label(model::LoadCaseKind kind) {
  return std::string(texts::translation_of(tables::load_case_kind_name(kind)));
}

std::string shape_label(model::Shape shape) {
  return std::string(texts::translation_of(tables::shape_name(shape)));
}

std::string setting_label(const std::string& key) {
  std::string words = key;
  std::ranges::replace(words, '_', ' ');
  return label_in(settings, key, words);
}

std::string origin_label(const std::string& origin) {
  return label_in(origins, origin, origin);
}

std::string with_name(model::Number number, const std::string& name) {
  return name.empty() ? fmt::format("{}", number) : fmt::format("{} \"{}\"", number, name);
}

std::string combination_label(const store::RunInfo& info, std::uint32_t number, int min_side) {
  const std::uint32_t shown = tables::number_of_combination(info, number);
  const std::string name = tables::name_of_combination(info, number);
  std::string label = shown != number ? fmt::format("{} {}", shown, name) : with_name(number, name);
  const auto found = std::ranges::find(info.combinations, number, &store::CombinationRow::number);
  if (found == info.combinations.end() || !found->two_sides) return label;
  return min_side == 0 ? texts::translated("{}, maximum side", label)
                       : texts::translated("{}, minimum side", label);
}

std::string yes_or_no(bool value) {
  return value ? texts::translated("yes") : texts::translated("no");
}

std::string fixed(double value, int decimals) {
  const std::string text = fmt::format("{:.{}f}", value, decimals);
  const bool is_zero = text.find_first_not_of("-0.") == std::string::npos;
  return is_zero && text.starts_with('-') ? text.substr(1) : text;
}

std::string short_value(double value) {
  return fmt::format("{:.6g}", value == 0.0 ? 0.0 : value);
}

std::string ratio_text(const store::GoverningRow& row) {
  return run::was_judged(row) ? tables::short_number(row.governing.Ratio()) : "";
}

Scale::Scale(const model::Units& units)
    : force(model::newtons_per(units.force)),
      length(model::millimetres_per(units.length)),
      force_unit(model::name_of(units.force)),
      length_unit(model::name_of(units.length)) {}

std::string in_unit(const std::string& heading, const std::string& unit) {
  return fmt::format("{} [{}]", heading, unit);
}

}  // namespace aluframe::document

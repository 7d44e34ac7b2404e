#include "aluframe/run/setup.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "aluframe/forces/compute_forces.h"
#include "aluframe/members/length_factors.h"
#include "aluframe/run/imperfections_text.h"
#include "aluframe/texts/text.h"

namespace aluframe::run {

namespace {

using store::SettingRow;

/// γ0 of the safety classes (GB 50429-2007, as GB 50068 has it).
constexpr std::array<double, 3> gamma_0{1.1, 1.0, 0.9};

const char* origin_of(const SetupOrigins& origins, std::string_view field) {
  return std::ranges::find(origins.given_settings, field) == origins.given_settings.end()
             ? texts::translatable("default")
             : texts::translatable("given");
}

SettingRow ribs_row(const model::Model& model, const model::DesignSettings& settings,
                    const SetupOrigins& origins) {
  const auto own = std::ranges::count_if(
      model.elements, [](const model::Element& element) { return element.design.rib.has_value(); });
  std::string value = settings.rib
                          ? fmt::format(texts::translatable("on, ratio {}"), settings.rib_ratio)
                          : texts::translatable("off");
  if (own > 0)
    value = own == 1 ? fmt::format(texts::translatable("{}; 1 element of its own"), value)
                     : fmt::format(texts::translatable("{}; {} elements of its own"), value, own);
  return {"ribs", value, origin_of(origins, "rib")};
}

SettingRow seismic_row(const model::DesignSettings& settings, const SetupOrigins& origins) {
  const std::string value =
      settings.seismic ? fmt::format(texts::translatable("on, gammaRE {} strength, {} stability"),
                                     settings.gamma_re_strength, settings.gamma_re_stability)
                       : texts::translatable("off");
  return {"seismic_factors", value, origin_of(origins, "seismic")};
}

bool is_given(members::FactorSource source) {
  return source == members::FactorSource::given_element ||
         source == members::FactorSource::given_member;
}

bool is_computed(members::FactorSource source) {
  return source == members::FactorSource::non_sway || source == members::FactorSource::sway ||
         source == members::FactorSource::cantilever;
}

bool is_of_mode(const members::SegmentFactors& of) {
  return of.y.source == members::FactorSource::mode || of.z.source == members::FactorSource::mode;
}

/// "5 computed, 3 by buckling modes, 1 given, 2 taken as 1" of members and elements that belong to
/// none.
SettingRow length_factors_row(const std::vector<members::SegmentFactors>& factors) {
  std::array<std::size_t, 4> counts{};
  constexpr std::array<const char*, 4> names{
      texts::translatable("{} computed"), texts::translatable("{} by buckling modes"),
      texts::translatable("{} given"), texts::translatable("{} taken as 1")};
  for (const members::SegmentFactors& of : factors) {
    const bool computed = is_computed(of.y.source) || is_computed(of.z.source);
    const std::size_t kind = is_of_mode(of) ? 1 : computed ? 0 : is_given(of.y.source) ? 2 : 3;
    ++counts[kind];
  }
  std::string value;
  for (std::size_t kind = 0; kind < counts.size(); ++kind) {
    if (counts[kind] == 0) continue;
    value += (value.empty() ? "" : ", ") + fmt::format(fmt::runtime(names[kind]), counts[kind]);
  }
  const bool has_computed = counts[0] + counts[1] > 0;
  const char* origin =
      counts[3] == 0 ? texts::translatable("given") : texts::translatable("default");
  return {"length_factors", value, has_computed ? texts::translatable("from the frame") : origin};
}

SettingRow buckling_row(const model::Model& model) {
  const auto given = model.frame.value_or(model::FrameSettings()).buckling_limit;
  return {"buckling_limit", fmt::format("{}", given.value_or(model::usual_limit(model.analysis))),
          given ? texts::translatable("given") : texts::translatable("default")};
}

std::string analysis_in_words(const model::Model& model) {
  const std::string imperfections = imperfections_text(model);
  return imperfections.empty()
             ? texts::translatable("second-order")
             : fmt::format(texts::translatable("second-order with {}"), imperfections);
}

std::vector<SettingRow> rows_of(const model::Model& model, const SetupOrigins& origins,
                                const std::vector<members::SegmentFactors>& factors,
                                SettingRow analysis) {
  const model::DesignSettings settings = model.design.value_or(model::DesignSettings());
  const auto grade = static_cast<std::size_t>(settings.safety_class - 1);
  return {
      {"safety_class",
       fmt::format(texts::translatable("{}, gamma0 {}"), settings.safety_class, gamma_0.at(grade)),
       origin_of(origins, "safety_class")},
      ribs_row(model, settings, origins),
      {"strength_ratio", fmt::format("{}", settings.strength_ratio),
       origin_of(origins, "strength_ratio")},
      seismic_row(settings, origins),
      length_factors_row(factors),
      buckling_row(model),
      std::move(analysis)};
}

}  // namespace

SettingRow analysis_setting(const model::Model& model, const SetupOrigins& origins) {
  if (model.analysis.large_displacements) {
    return {"analysis", large_displacements,
            origins.second_order_asked ? "--large-displacements" : texts::translatable("given")};
  }
  if (model.analysis.second_order) {
    return {"analysis", analysis_in_words(model),
            origins.second_order_asked ? "--second-order" : texts::translatable("given")};
  }
  const bool has_loads = std::ranges::any_of(model.load_cases, forces::has_loads);
  const bool has_forces = model.forces != model::ForceTable();
  const std::string file =
      origins.forces ? origins.forces->filename().string() : texts::translatable("given");
  if (!has_forces)
    return {"analysis", texts::translatable("linear"), texts::translatable("default")};
  if (!has_loads) return {"analysis", texts::translatable("given forces"), file};
  return {"analysis",
          forces::has_all_forces(model)
              ? texts::translatable("given forces, loads are not analysed")
              : texts::translatable("linear, beside given forces"),
          file};
}

store::RunSetup setup_of(const model::Model& model, const SetupOrigins& origins,
                         const std::vector<members::SegmentFactors>& factors, SettingRow analysis) {
  store::RunSetup setup;
  setup.settings = rows_of(model, origins, factors, std::move(analysis));
  setup.analysis = setup.settings.back().value;
  setup.second_order_asked = origins.second_order_asked;
  return setup;
}

}  // namespace aluframe::run

#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "aluframe/model/action_names.h"
#include "aluframe/model/loads.h"
#include "aluframe/model/settings.h"
#include "aluframe/model/structure.h"

namespace aluframe::io {

/// A value and its name in model files.
template <class Value>
struct NamedValue {
  std::string_view name;
  Value value;
};

inline constexpr std::array element_kinds{
    NamedValue{"beam", model::ElementKind::beam},
    NamedValue{"truss", model::ElementKind::truss},
};

inline constexpr std::array member_types{
    NamedValue{"column", model::MemberType::column},
    NamedValue{"beam", model::MemberType::beam},
    NamedValue{"brace", model::MemberType::brace},
    NamedValue{"truss", model::MemberType::truss},
};

inline constexpr std::array displacement_directions{
    NamedValue{"X", model::DisplacementDirection::x},
    NamedValue{"Y", model::DisplacementDirection::y},
    NamedValue{"Z", model::DisplacementDirection::z},
    NamedValue{"horizontal", model::DisplacementDirection::horizontal},
    NamedValue{"total", model::DisplacementDirection::total},
};

inline constexpr std::array load_case_kinds{
    NamedValue{"static", model::LoadCaseKind::static_load},
    NamedValue{"seismic_static", model::LoadCaseKind::seismic_static},
    NamedValue{"response_spectrum", model::LoadCaseKind::response_spectrum},
    NamedValue{"eccentric_spectrum", model::LoadCaseKind::eccentric_spectrum},
    NamedValue{"time_history", model::LoadCaseKind::time_history},
    NamedValue{"moving", model::LoadCaseKind::moving},
    NamedValue{"settlement", model::LoadCaseKind::settlement},
    NamedValue{"crane", model::LoadCaseKind::crane},
};

/// Values whose names `model::name_of` gives.
template <class Value, std::size_t Size>
constexpr std::array<NamedValue<Value>, Size> named(const std::array<Value, Size>& values) {
  std::array<NamedValue<Value>, Size> out{};
  for (std::size_t i = 0; i < Size; ++i) out[i] = {model::name_of(values[i]), values[i]};
  return out;
}

inline constexpr auto held_names = named(std::array{
    model::Held::compressed_flange, model::Held::top_flange, model::Held::bottom_flange,
    model::Held::both_flanges, model::Held::axis_y, model::Held::axis_z, model::Held::twist});

inline constexpr auto action_kinds = named(std::array{
    model::ActionKind::permanent, model::ActionKind::prestress, model::ActionKind::settlement,
    model::ActionKind::live, model::ActionKind::snow, model::ActionKind::wind,
    model::ActionKind::temperature, model::ActionKind::construction, model::ActionKind::earthquake,
    model::ActionKind::accidental, model::ActionKind::none});

inline constexpr auto favourable_names =
    named(std::array{model::Favourable::also, model::Favourable::never, model::Favourable::only});

inline constexpr auto combination_types =
    named(std::array{model::CombinationType::fundamental, model::CombinationType::seismic,
                     model::CombinationType::accidental, model::CombinationType::characteristic,
                     model::CombinationType::frequent, model::CombinationType::quasi_permanent});

/// Numbers of a row of factors.
inline constexpr std::array factor_fields{
    NamedValue{"gamma", &model::FactorRow::gamma},
    NamedValue{"favourable", &model::FactorRow::favourable},
    NamedValue{"alone", &model::FactorRow::alone},
    NamedValue{"psi_c", &model::FactorRow::psi_c},
    NamedValue{"psi_f", &model::FactorRow::psi_f},
    NamedValue{"psi_q", &model::FactorRow::psi_q},
    NamedValue{"psi_e", &model::FactorRow::psi_e},
    NamedValue{"second_e", &model::FactorRow::second_e},
    NamedValue{"gamma_e", &model::FactorRow::gamma_e},
    NamedValue{"favourable_e", &model::FactorRow::favourable_e},
};

inline constexpr std::array combination_kinds{
    NamedValue{"linear", model::CombinationKind::linear},
    NamedValue{"envelope", model::CombinationKind::envelope},
};

inline constexpr std::array envelope_checks{
    NamedValue{"states", model::Envelopes::states},
    NamedValue{"extremes", model::Envelopes::extremes},
};

inline constexpr std::array length_factor_sources{
    NamedValue{"computed", model::LengthFactors::computed},
    NamedValue{"buckling", model::LengthFactors::buckling},
    NamedValue{"one", model::LengthFactors::one},
};

/// Supported directions, by their place in model::Support::restrained.
inline constexpr std::array<NamedValue<std::size_t>, 6> support_directions{
    {{"Dx", 0}, {"Dy", 1}, {"Dz", 2}, {"Rx", 3}, {"Ry", 4}, {"Rz", 5}}};

/// Components of a load on a node, by their place in model::NodalLoad::components.
inline constexpr std::array<NamedValue<std::size_t>, 6> nodal_components{
    {{"Fx", 0}, {"Fy", 1}, {"Fz", 2}, {"Mx", 3}, {"My", 4}, {"Mz", 5}}};

/// Factors of self-weight, by their place in model::CaseLoads::self_weight.
inline constexpr std::array<NamedValue<std::size_t>, 3> global_axes{{{"X", 0}, {"Y", 1}, {"Z", 2}}};

/// Values of a temperature load.
inline constexpr std::array<NamedValue<std::size_t>, 3> temperature_components{
    {{"change", 0}, {"difference_y", 1}, {"difference_z", 2}}};

/// Directions of loads on elements; that a load is projected is a field of its own.
inline constexpr std::array load_directions{
    NamedValue{"x", model::LoadDirection{model::LoadAxes::local, 0}},
    NamedValue{"y", model::LoadDirection{model::LoadAxes::local, 1}},
    NamedValue{"z", model::LoadDirection{model::LoadAxes::local, 2}},
    NamedValue{"X", model::LoadDirection{model::LoadAxes::global, 0}},
    NamedValue{"Y", model::LoadDirection{model::LoadAxes::global, 1}},
    NamedValue{"Z", model::LoadDirection{model::LoadAxes::global, 2}},
};

/// Directions of loads per area; nothing: square to the surface.
inline constexpr std::array surface_directions{
    NamedValue<std::optional<model::LoadDirection>>{"normal", std::nullopt},
    NamedValue<std::optional<model::LoadDirection>>{"X", {{model::LoadAxes::global, 0}}},
    NamedValue<std::optional<model::LoadDirection>>{"Y", {{model::LoadAxes::global, 1}}},
    NamedValue<std::optional<model::LoadDirection>>{"Z", {{model::LoadAxes::global, 2}}},
};
/// How a surface spans that is not carried one way.
inline constexpr std::string_view two_way = "two_way";

inline constexpr std::array roughness_names{
    NamedValue{"A", model::Roughness::a},
    NamedValue{"B", model::Roughness::b},
    NamedValue{"C", model::Roughness::c},
    NamedValue{"D", model::Roughness::d},
};

/// Force components of an element, by their place in model::SectionForces and in one end's half of
/// model::Element::released. Also the columns of a force table.
inline constexpr std::array<NamedValue<std::size_t>, 6> force_components{
    {{"N", 0}, {"Fy", 1}, {"Fz", 2}, {"Mx", 3}, {"My", 4}, {"Mz", 5}}};

/// The name of a value, which must be in the table.
template <class Value, std::size_t Size>
std::string_view name_in(const std::array<NamedValue<Value>, Size>& table, Value value) {
  for (const NamedValue<Value>& entry : table) {
    if (entry.value == value) return entry.name;
  }
  return {};
}

/// All names, joined for messages: "linear, envelope".
template <class Value>
std::string names_of(std::span<const NamedValue<Value>> table) {
  std::string names;
  for (const NamedValue<Value>& entry : table) {
    if (!names.empty()) names += ", ";
    names += entry.name;
  }
  return names;
}

}  // namespace aluframe::io

#pragma once

#include <fmt/format.h>

#include <string>
#include <string_view>
#include <variant>

#include "aluframe/model/material.h"
#include "aluframe/model/settings.h"
#include "aluframe/tables/output_table.h"

// The settings and materials of a model field by field, by their names in model files.

namespace aluframe::cli {

/// A field of a record.
template <class Record>
struct Field {
  std::string_view name;
  std::variant<bool Record::*, int Record::*, double Record::*, std::string Record::*> member;
};

inline constexpr std::string_view code_field = "code";

// clang-format off
inline constexpr Field<model::DesignSettings> settings_fields[] = {
    {code_field, &model::DesignSettings::code},
    {"rib", &model::DesignSettings::rib},
    {"rib_ratio", &model::DesignSettings::rib_ratio},
    {"safety_class", &model::DesignSettings::safety_class},
    {"strength_ratio", &model::DesignSettings::strength_ratio},
    {"seismic", &model::DesignSettings::seismic},
    {"gamma_re_strength", &model::DesignSettings::gamma_re_strength},
    {"gamma_re_stability", &model::DesignSettings::gamma_re_stability},
};

/// Stresses in N/mm².
inline constexpr Field<model::Material> material_fields[] = {
    {"name", &model::Material::name},
    {"standard", &model::Material::standard},
    {"grade", &model::Material::grade},
    {"e", &model::Material::e},
    {"poisson", &model::Material::poisson},
    {"fu", &model::Material::fu},
    {"f02_thin", &model::Material::f02_thin},
    {"f02_thick", &model::Material::f02_thick},
};
// clang-format on

/// A field's value; the design code by the name that the user knows.
tables::Cell value_of(const model::DesignSettings& settings,
                      const Field<model::DesignSettings>& field);
tables::Cell value_of(const model::Material& material, const Field<model::Material>& field);

/// A value as options take it: on or off, a number with as few digits as it needs.
std::string option_text(const tables::Cell& value);

}  // namespace aluframe::cli

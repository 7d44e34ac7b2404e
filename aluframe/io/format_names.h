#pragma once

#include <string_view>

#include "aluframe/model/material.h"

namespace aluframe::io {

/// Name of the design code in model files and for the user; the host's records and the model call
/// it by model::DesignSettings::code, the internal name. The only code there is.
inline constexpr std::string_view shown_code_name = "GB50429-2007";

/// What a model file says it is.
inline constexpr std::string_view format_name = "aluframe-model";
inline constexpr int format_version = 1;

/// Standard of a material that is not of the code's table, unless the file names one.
inline constexpr std::string_view user_standard = model::user_standard;

}  // namespace aluframe::io

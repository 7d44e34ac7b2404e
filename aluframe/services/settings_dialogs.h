#pragma once

#include <optional>
#include <string_view>

#include "aluframe/model/model.h"
#include "aluframe/services/session.h"

namespace aluframe::services {

/// The design module's dialogs of a model's settings.
enum class SettingsDialog { code, materials };

/// "code" or "materials".
std::optional<SettingsDialog> parse_settings_dialog(std::string_view name);

enum class DialogEnd {
  accepted,  ///< closed by OK
  closed,    ///< closed by its Close button, Escape or its window
  failed     ///< it did not open
};

/// Opens a dialog over a model and returns when it has closed; `options.toolkit` draws it. What its
/// user changed is in the model: the design settings after OK, the materials after every Modify.
/// Values are shown in N/mm², as alloys are known by, unless the options name other units.
DialogEnd run_settings_dialog(model::Model& model, SettingsDialog dialog, SessionOptions options);

}  // namespace aluframe::services

#pragma once

#include <QString>

#include "aluframe/services/messages.h"

namespace aluframe::desktop {

/// Texts of the program's own window.
enum class Text {
  file_menu,
  open,
  save,
  quit,
  design_menu,
  design_code,
  materials,
  no_model,
  choose_model,
  model_files,
  file,
  settings,
  no_settings,
  code,
  safety_class,
  strength_ratio,
  ribs,
  rib_ratio,
  seismic,
  gamma_re_strength,
  gamma_re_stability,
  yes,
  no,
  number,
  name,
  standard,
  grade,
  poisson,
  save_changes,
  dialog_failed,
};

/// A text in the user's language.
QString ui_text(Text text, services::Language language);

}  // namespace aluframe::desktop

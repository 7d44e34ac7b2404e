#include "aluframe/services/settings_dialogs.h"

#include <utility>

#include "aluframe/services/binding.h"
#include "aluframe/texts/text.h"
#include "tz_alu/dialogs/dgnalucodedlg.h"
#include "tz_alu/dialogs/dgnalumatdlg.h"

namespace aluframe::services {

namespace {

int run_modal(SettingsDialog dialog) {
  if (dialog == SettingsDialog::code) return CDgnAluCodeDlg().DoModal();
  return CDgnAluMatDlg().DoModal();
}

}  // namespace

std::optional<SettingsDialog> parse_settings_dialog(std::string_view name) {
  if (name == "code") return SettingsDialog::code;
  if (name == "materials") return SettingsDialog::materials;
  return std::nullopt;
}

DialogEnd run_settings_dialog(model::Model& model, SettingsDialog dialog, SessionOptions options) {
  constexpr T_UNIT_INDEX newtons_and_millimetres{0, 2};
  options.editable = &model;
  if (!options.units) options.units = newtons_and_millimetres;
  const auto message = options.message;
  Session session(model, std::move(options));
  const Binding binding(session);
  const int result = run_modal(dialog);
  for (const auto& [place, count] : session.monitor().assertions()) {
    if (message) {
      message(texts::translated("internal inconsistency ({}), met {} times", place, count));
    }
  }
  if (result == CDialog::kFailed) return DialogEnd::failed;
  return result == CDialog::kOk ? DialogEnd::accepted : DialogEnd::closed;
}

}  // namespace aluframe::services

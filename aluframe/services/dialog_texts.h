#pragma once

#include <memory>

#include "host/framework/toolkit.h"

namespace aluframe::services {

/// Opens dialogs by another toolkit and puts the texts of their controls and title bars into the
/// user's language. A module registers the symbols of its dialogs and controls with the host; by
/// them the texts are found. In English, and where there is no translation, the texts of the module
/// stay as they are. What the module writes into its dialogs itself is its own matter.
class TranslatingToolkit : public host::Toolkit {
 public:
  /// @param toolkit outlives this; null: no dialog can be opened
  explicit TranslatingToolkit(host::Toolkit* toolkit) : toolkit_(toolkit) {}

  std::unique_ptr<host::DialogWindow> Open(const DIALOG_TEMPLATE& dialog,
                                           host::DialogEvents& events) override;

 private:
  host::Toolkit* toolkit_;
};

}  // namespace aluframe::services

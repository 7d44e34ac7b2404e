#pragma once

#include "host/framework/dialog.h"

namespace zel::frx {

/// Base of the maker's dialogs.
class MDialog : public CDialog {
 public:
  using CDialog::CDialog;
};

}  // namespace zel::frx

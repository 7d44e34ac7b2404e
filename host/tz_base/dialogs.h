#pragma once

#include "host/zel_frx/dialog.h"

/// A dialog in the user's language.
class CInternationalDlg : public zel::frx::MDialog {
 public:
  using MDialog::MDialog;
};

/// A dialog that stands where the user has moved it.
class CDialogMove : public CInternationalDlg {
 public:
  using CInternationalDlg::CInternationalDlg;
};

#pragma once

#include "host/zel_frx/dialog.h"

/// Base of the dialogs whose texts a host may translate; here it adds nothing to its own base.
class CInternationalDlg : public zel::frx::MDialog {
 public:
  using MDialog::MDialog;
};

/// Base of the dialogs whose place a host may keep; here it adds nothing to its own base.
class CDialogMove : public CInternationalDlg {
 public:
  using CInternationalDlg::CInternationalDlg;
};

#pragma once

#include <cstdint>

#include "host/framework/types.h"

// Which handler a dialog has for what its user does. In the class:
//
//     DECLARE_MESSAGE_MAP()
//
// and in its source file:
//
//     BEGIN_MESSAGE_MAP(CMyDlg, CDialog)
//     ON_BN_CLICKED(IDC_CHECK, &CMyDlg::OnCheck)
//     END_MESSAGE_MAP()

class CDialog;

inline constexpr UINT WM_NOTIFY = 0x004E;
inline constexpr UINT WM_COMMAND = 0x0111;
inline constexpr int BN_CLICKED = 0;
inline constexpr int CBN_SELCHANGE = 1;
inline constexpr int NM_CLICK = -2;
inline constexpr int LVN_ITEMCHANGED = -101;

/// What a notification's handler gives back.
using LRESULT = std::intptr_t;

/// Head of a notification.
struct NMHDR {
  UINT idFrom;  ///< identifier of the control
  int code;     ///< what happened, such as NM_CLICK
};

/// Notification of a list.
struct NMLISTVIEW {
  NMHDR hdr;
  int iItem;  ///< row that it is about; -1 for none
};

/// A handler: of a command, or of a notification.
struct AFX_MSGMAP_ENTRY {
  UINT nMessage;  ///< WM_COMMAND, WM_NOTIFY; 0 ends a map
  int nCode;      ///< BN_CLICKED, ...
  UINT nID;       ///< identifier of the control
  void (CDialog::*pCommand)();
  void (CDialog::*pNotify)(NMHDR* notification, LRESULT* result);
};

/// The handlers of a class, and those of its base.
struct AFX_MSGMAP {
  const AFX_MSGMAP* pBaseMap;  ///< null for the framework's dialog
  const AFX_MSGMAP_ENTRY* lpEntries;
};

#define DECLARE_MESSAGE_MAP()                   \
 protected:                                     \
  static const AFX_MSGMAP* GetThisMessageMap(); \
  const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(theClass, baseClass)        \
  const AFX_MSGMAP* theClass::GetMessageMap() const { \
    return GetThisMessageMap();                       \
  }                                                   \
  const AFX_MSGMAP* theClass::GetThisMessageMap() {   \
    using BaseClass = baseClass;                      \
    static const AFX_MSGMAP_ENTRY entries[] = {
#define ON_BN_CLICKED(id, handler) \
  {WM_COMMAND, BN_CLICKED, id, static_cast<void (CDialog::*)()>(handler), nullptr},
#define ON_CBN_SELCHANGE(id, handler) \
  {WM_COMMAND, CBN_SELCHANGE, id, static_cast<void (CDialog::*)()>(handler), nullptr},
#define ON_NOTIFY(code, id, handler) \
  {WM_NOTIFY, code, id, nullptr, static_cast<void (CDialog::*)(NMHDR*, LRESULT*)>(handler)},
#define END_MESSAGE_MAP()                                                  \
  {                                                                        \
    0, 0, 0, nullptr, nullptr                                              \
  }                                                                        \
  }                                                                        \
  ;                                                                        \
  static const AFX_MSGMAP map = {BaseClass::GetThisMessageMap(), entries}; \
  return &map;                                                             \
  }

#pragma once

#include "host/tz_db/services.h"

/// What the checks are written in: N and mm.
inline constexpr T_UNIT_INDEX kDesignUnits{0, 2};

/// Puts the user's units back; a host that fails even at that is asked once more.
inline void RestoreUnits(CDBDoc* doc, const T_UNIT_INDEX& units) {
  for (int attempt = 0; attempt < 2; ++attempt) {
    try {
      doc->GetUnitCtrl().SetUnitIndexCurrent(units, 0);
      return;
    } catch (...) {
      continue;
    }
  }
}

/// Runs a public operation: `run` gets the user's units, which are put back when an exception ends
/// it. @return what `run` returned, or 0 after an exception or without a document
template <class RUN>
int WithUserUnits(const RUN& run) {
  CDBDoc* doc = nullptr;
  T_UNIT_INDEX userUnits;
  try {
    CDBDoc* current = CDBDoc::GetDocPoint();
    if (current == nullptr) return 0;
    userUnits = current->GetUnitCtrl().GetUnitIndexCurrent();
    doc = current;
    return run(userUnits);
  } catch (...) {
    if (doc != nullptr) RestoreUnits(doc, userUnits);
    return 0;
  }
}

#pragma once

#include "host/framework/window.h"

/// Unit type of stresses.
inline constexpr int UNIT_TYPE_STRESS = 17;

/// A label that shows a unit.
class HOST_API CTextUnit : public CStatic {
 public:
  /// Shows the text of a type of unit in the host's current units.
  void SetUnitType(int type);
};

#pragma once

#include "host/framework/cstring.h"
#include "host/tz_db/model.h"

namespace alu_dialogs {

/// All that is wrong with a material's values, a line each, every one behind a line end: strengths,
/// elastic modulus and Poisson's ratio must be positive; they have no upper bound. Empty when
/// nothing is wrong.
/// @param needsName the material has values of the user, so that it must have a name
CString MaterialProblems(const T_MATD_D& material, bool needsName);

/// The key that a list's first column shows; 0 when it is no number.
UINT KeyOfText(const CString& text);

}  // namespace alu_dialogs

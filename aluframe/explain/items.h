#pragma once

#include <string>
#include <variant>

#include "aluframe/explain/derivation.h"

/// One formula for every check item: what is demanded, and what it is set against.
namespace aluframe::explain {

/// A check that was made.
struct Checked {
  std::string check;  ///< "axial compression"
  Term demand;
  Term capacity;
};

/// Why an item has no check.
struct NotChecked {
  std::string why;
};

using ItemOutcome = std::variant<Checked, NotChecked>;

ItemOutcome explain_strength(Derivation& d);
ItemOutcome explain_shear_y(Derivation& d);
ItemOutcome explain_shear_z(Derivation& d);
ItemOutcome explain_stability(Derivation& d);
ItemOutcome explain_combined_stability(Derivation& d);
ItemOutcome explain_slenderness_y(Derivation& d);
ItemOutcome explain_slenderness_z(Derivation& d);

/// "tension with bending", ...; "no axial force and no moment".
std::string force_state(const Derivation& d);

}  // namespace aluframe::explain

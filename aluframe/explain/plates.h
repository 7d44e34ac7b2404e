#pragma once

#include <string>
#include <vector>

#include "aluframe/explain/derivation.h"

/// Plates of the section: how slender they are, and what slender ones keep of their thickness.
namespace aluframe::explain {

/// Whether the checks judge plates of the shape: C, H, B and P.
bool has_judged_plates(const Derivation& d);

/// R, the governing ratio of width over thickness to its limit. Only with judged plates.
Term governing_ratio(Derivation& d);

/// Whether a slender plate makes an effective section.
bool is_effective(const Derivation& d);

/// ρ, the effective thickness over the thickness. Only of an effective section.
Term effective_thickness(Derivation& d);

}  // namespace aluframe::explain

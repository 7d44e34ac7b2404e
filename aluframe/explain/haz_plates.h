#pragma once

#include "aluframe/explain/derivation.h"

/// Sections of welded members: clear parts, and strips that the heat has softened.
namespace aluframe::explain {

/// A flange by its symbols: clear width, thickness, strip, the width of the strip's own inertia,
/// and the distance of the flange's middle from the y axis.
struct FlangeTerms {
  Term clear;
  Term thickness;
  Term strip;
  Term own_strip;
  Term arm;
};

/// The plates of a welded section by their symbols.
struct PlateTerms {
  FlangeTerms top;
  FlangeTerms bottom;  ///< of a tee the top one again
  bool has_bottom;     ///< false: a tee
  Term web_height;     ///< clear
  Term web;            ///< thickness of one
  int webs;
};

PlateTerms haz_plates(Derivation& d);

/// Of the strips of the webs about y.
Term web_strip_inertia(Derivation& d, const PlateTerms& plates);

Term heat_affected_area(Derivation& d);     ///< Ahaz
Term heat_affected_inertia(Derivation& d);  ///< Ihaz

}  // namespace aluframe::explain

#pragma once

#include "aluframe/second_opinion/unit_stresses.h"

namespace aluframe::second_opinion {

/// Axial stability coefficients φy and φz of an element in compression alone: every plate counts
/// with its reduced thickness. A moment beside the axial force makes the checks reduce one flange
/// only (B1); these stay.
struct AxialCoefficients {
  bool formed = false;  ///< the checks can form the section's parameters in compression
  double code_y = 0.0, code_z = 0.0;  ///< as the checks have them without any moment
  double safe_y = 0.0, safe_z = 0.0;  ///< the smallest of what the questions give
  RuleSet rules_y, rules_z;           ///< what makes these smaller
};

/// Asks in compression alone: the section as it is, upside down where its flanges differ (B8), and
/// about y with the torsion of a channel whose shear centre lies beyond its web (S3).
AxialCoefficients axial_coefficients(Engine& engine, const Subject& subject);

}  // namespace aluframe::second_opinion

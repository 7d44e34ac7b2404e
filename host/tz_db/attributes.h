#pragma once

#include <array>

#include "host/framework/cstring.h"
#include "host/framework/types.h"
#include "host/host_api.h"

// Design settings of the model and design attributes of single elements.

/// Aluminium design settings of the model.
struct T_DALU_D {
  CString strCode;                 ///< design code, in the host's internal form
  int bRib = 1;                    ///< 1: the sections' plates are stiffened by ribs
  double dRibRatio = 1.2;          ///< stiffener factor η that belongs to it
  int nSafetyClass = 1;            ///< 0 grade one, 1 grade two, 2 grade three
  double dStrengthRatio = 0.85;    ///< net over gross area for strength checks
  int bSeismic = 0;                ///< 1: seismic combinations use γRE instead of γ0
  double dGammaREStrength = 0.75;  ///< γRE of strength checks
  double dGammaREStability = 0.8;  ///< γRE of stability checks
  std::array<int, 5> aReservedInt{};
  std::array<double, 5> aReservedDouble{};

  /// Puts every field back to the default above.
  HOST_API void Initialize();
};

/// Design control of the model: whether the frame sways, and how length factors are computed.
struct T_DCTL_D {
  int nSwayA = 0;  ///< first sway flag, read with the second one when member sway is decided
  int nSwayB = 0;  ///< second sway flag
  int nKOption1 = 0;
  int nKOption2 = 0;
  int nKOption3 = 0;
};

/// Stability coefficients that the user gives for an element.
struct T_APHI_D {
  double dPhiY = 1.0;
  double dPhiZ = 1.0;
};

/// Rib stiffeners of an element.
struct T_ARIB_D {
  int nOption = 0;  ///< 0: stiffened by ribs; anything else: not
  double dRatio = 1.2;
};

/// Weld attribute of an element.
struct T_AWED_D {
  double dCoef = 0.5;
};

/// Heat-affected zone of an element.
struct T_AHTR_D {
  double dWidth = 30.0;  ///< width on each side of a weld
};

/// Equivalent moment factors of an element, per axis y, z.
struct T_CMFT_D {
  std::array<int, 2> aAuto{1, 1};      ///< 1: computed; anything else: the value below is used
  std::array<double, 2> aBetaM{1, 1};  ///< βmy, βmz
  std::array<int, 2> aLoadType{};      ///< loading between the ends, 0 to 3
};

/// Effective length factors.
struct T_KFAC_D {
  double dKy = 1.0;
  double dKz = 1.0;
};

/// Limiting slenderness of an element.
struct T_LTSR_D {
  int bNoCheck = 0;  ///< nonzero: slenderness is not checked
  double dLimitCompr = 200.0;
  double dLimitTension = 300.0;
};

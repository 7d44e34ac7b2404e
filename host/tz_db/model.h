#pragma once

#include <array>

#include "host/framework/collections.h"
#include "host/framework/cstring.h"
#include "host/framework/types.h"

// Records of the host's model. All lengths, forces and stresses are in the host's current units.

/// A frame element.
struct T_ELEM_D {
  std::array<UINT, 2> aNode{};  ///< node keys, start then end
  UINT nSect = 0;               ///< section number
  UINT nMatl = 0;               ///< material number
  double dBeta = 0.0;           ///< rotation of the section about the axis, degrees
};

/// A node's place in global coordinates, Z up.
struct T_NODE_D {
  double dX = 0.0;
  double dY = 0.0;
  double dZ = 0.0;
};

/// End releases of an element: six characters for the start, then six for the end, in the order
/// Fx, Fy, Fz, Mx, My, Mz of the local axes; '1' is released, anything else is not.
struct T_FRLS_D {
  std::array<char, 12> aRelease{'0', '0', '0', '0', '0', '0', '0', '0', '0', '0', '0', '0'};
};

/// Restraints R1..R6 of a node: translations along X, Y, Z, then rotations about them; nonzero is
/// restrained.
struct T_SUPPORT_D {
  std::array<int, 6> aRestraint{};
};

/// A design member: element keys from its start to its end.
struct T_MEMB_D {
  CArrayEx<UINT> aElem;
};

/// A section as designed.
///
/// Axes: y is parallel to the flanges (the strong axis), z goes up along the web, both from the
/// centroid. Dimensions d1..d8 stand in the host's order:
/// C and H: H, B1, tw, tf1, B2, tf2, r1, r2; T: H, B, tw, tf; B: H, B, tw, tf1, C (distance of the
/// web centres), tf2; P: D, t; 2C: H, B, tw, tf, C (gap between the backs); SR: D.
struct T_SECT_DESIGN_D {
  CString strShape;               ///< "C", "H", "T", "B", "P", "2C", "SR" or another shape's name
  CString strName2;               ///< second name text; empty for a section given by dimensions
  std::array<double, 8> aSize{};  ///< d1..d8
  double dArea = 0.0;             ///< gross area
  double dIxx = 0.0;              ///< St-Venant torsion constant
  double dIyy = 0.0;              ///< second moment of area about y
  double dIzz = 0.0;              ///< second moment of area about z
  double dQyb = 0.0;              ///< Q/b for shear along z: largest first moment over its width
  double dQzb = 0.0;              ///< Q/b for shear along y
  std::array<double, 4> aPtY{};   ///< stress points: top left, top right, bottom right, bottom left
  std::array<double, 4> aPtZ{};
  double dIw = 0.0;          ///< warping constant; read as given when the computation fails
  double dShearCtrZ = 0.0;   ///< z of the shear centre in the warping computation's coordinates
  double dCentroidZ = 0.0;   ///< z of the centroid in the same coordinates
  int nBuildType = 0;        ///< 1: built up by welding
  int bWarpingComputed = 0;  ///< nonzero once the three warping results are in the record
};

/// What the warping computation leaves for its caller.
struct T_WARPING_D {
  double dIw = 0.0;         ///< warping constant about the shear centre
  double dShearCtrZ = 0.0;  ///< z of the shear centre
  double dCentroidZ = 0.0;  ///< z of the centroid, from the same origin
};

/// A material as designed. Strengths and E in N/mm² when the current units are N and mm.
struct T_MATD_D {
  CString strName;         ///< name that the user sees
  CString strStandard;     ///< standard that the grade belongs to; empty for values of the user
  CString strGrade;        ///< alloy and temper, such as "6061-T6"
  double dElast = 0.0;     ///< elastic modulus E
  double dPoisson = 0.0;   ///< Poisson's ratio
  double dFu = 0.0;        ///< ultimate tensile strength
  double dF02Thin = 0.0;   ///< 0.2 % proof strength for t ≤ 10
  double dF02Thick = 0.0;  ///< 0.2 % proof strength for t > 10
};

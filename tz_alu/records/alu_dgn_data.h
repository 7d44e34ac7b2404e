#pragma once

#include <cstdint>

#include "host/framework/cstring.h"
#include "host/framework/types.h"
#include "tz_alu/tz_alu_api.h"

// Design input of one element's check: plain values, copied field by field. Lengths, forces and
// stresses are in the host's current units; during a run these are N and mm (N/mm²).

/// Shapes that the checks know.
enum ALU_SHAPE : std::int32_t {
  ALU_SHAPE_C = 0,   ///< channel
  ALU_SHAPE_H = 1,   ///< I or H
  ALU_SHAPE_T = 2,   ///< tee
  ALU_SHAPE_B = 3,   ///< box
  ALU_SHAPE_P = 4,   ///< pipe
  ALU_SHAPE_2C = 5,  ///< double channel
  ALU_SHAPE_SR = 6,  ///< solid round
};

/// Member types of the host.
enum ALU_MEMBER_TYPE : std::int32_t {
  ALU_MEMBER_COLUMN = 1,
  ALU_MEMBER_BEAM = 2,
  ALU_MEMBER_BRACE = 3,
  ALU_MEMBER_TRUSS = 5,
};

/// End conditions of a member about one axis.
enum ALU_END_CONDITION : std::int32_t {
  ALU_END_FIXED = 0,
  ALU_END_PINNED = 1,
  ALU_END_FREE = 2,
};

/// Section of an element as the checks use it. y is the strong axis, parallel to the flanges; z
/// goes up along the web; both start at the centroid.
///
/// Dimensions D1..D8 in `dSize`: C and H: H, tw, B1, tf1, B2, tf2, corner allowances 1 and 2;
/// T: H, tw, B, tf; B: H, tw, B, tf1, C, tf2; P: outside diameter, wall; 2C: H, tw, B, tf, C;
/// SR: D, D. What a shape does not use stays 0.
struct TZ_ALU_API ALU_SECT_DATA {
  std::int32_t nShape;   ///< ALU_SHAPE
  double dSize[8];       ///< D1..D8
  double dArea;          ///< gross area A
  double dIw;            ///< warping constant
  double dIxx;           ///< torsion constant It
  double dIyy;           ///< second moment of area about the strong axis y
  double dIzz;           ///< second moment of area about the weak axis z
  double dQyb;           ///< Q/b for shear along z, used with Iyy
  double dQzb;           ///< Q/b for shear along y, used with Izz
  double dShearCtr;      ///< z of the shear centre from the centroid
  double dPtY[4];        ///< y of the stress points 1..4
  double dPtZ[4];        ///< z of the stress points; point 1 is the top fibre, 3 the bottom fibre
  std::int32_t bWelded;  ///< 1: welded, heat-affected zones reduce the section. 1 until known

  ALU_SECT_DATA() { Initialize(); }
  /// All 0, but welded.
  void Initialize();
};

/// Aluminium of an element.
struct TZ_ALU_API ALU_MATL_DATA {
  CString strStandard;  ///< name of the material's standard
  CString strGrade;     ///< alloy and temper, such as "6061-T6"
  std::int32_t nElast;  ///< elastic modulus, truncated to a whole number
  double dPoisson;      ///< Poisson's ratio
  double dFu;           ///< ultimate tensile strength; carried, not read by the checks
  double dF02Thin;      ///< 0.2 % proof strength for t ≤ 10
  double dF02Thick;     ///< 0.2 % proof strength for t > 10

  ALU_MATL_DATA() { Initialize(); }
  void Initialize();
};

/// Design parameters of an element.
struct TZ_ALU_API ALU_PARA_DATA {
  double dGamma0;                ///< importance factor γ0: 1.1, 1.0 or 0.9
  std::int32_t bSeismicGammaRE;  ///< nonzero: seismic combinations use γRE instead of γ0
  double dGammaREStrength;       ///< γRE of strength checks
  double dGammaREStability;      ///< γRE of stability checks
  double dCoef085;               ///< strength adjustment ratio ηA: Aen = A·ηA
  std::int32_t bRib;             ///< 1: the plates are stiffened by ribs
  double dRibRatio;              ///< stiffener factor that belongs to it
  double dHazWidth;              ///< width of the heat-affected zone on each side of a weld
  double dWeldCoef;              ///< coefficient of the element's weld attribute
  std::int32_t bUserPhi;         ///< 1: the user gave the stability coefficients
  double dUserPhi[2];            ///< they, about y and z
  double dLimitTension;          ///< limiting slenderness in tension; negative: not checked
  double dLimitCompr;            ///< limiting slenderness in compression; negative: not checked
  std::int32_t bUserLimit;       ///< 1: the limits are the element's own
  double dKy;                    ///< effective length factor for buckling about y
  double dKz;                    ///< effective length factor for buckling about z
  std::int32_t bMidSupport;      ///< 1: the member is supported between its ends
  std::int32_t bUserBetaM;       ///< 1: the element has its own equivalent moment factors
  std::int32_t nBetaMOpt[2];     ///< per axis y, z: 1 computes the factor, else it is given
  double dBetaM[2];              ///< equivalent moment factors βm about y and z
  std::int32_t nBetaMOpt2[2];    ///< per axis y, z: loading between the ends, 0 to 3
  std::int32_t bSway[2];         ///< per local axis y, z: 1: the frame sways in that direction

  ALU_PARA_DATA() { Initialize(); }
  void Initialize();
};

/// Section, material and parameters together.
struct TZ_ALU_API ALU_DGN_DATA_CODE {
  ALU_SECT_DATA sect;
  ALU_MATL_DATA matl;
  ALU_PARA_DATA para;

  void Initialize();
};

/// Design input and control of one element.
///
///     ALU_DGN_DATA data;
///     data.code.sect.nShape = ALU_SHAPE_P;
///     data.SetCheckFlagAll(0);
///     data.nCheckFlag[RALU_STRENGTH] = 1;
struct TZ_ALU_API ALU_DGN_DATA {
  std::int32_t nCheckFlag[8];  ///< switches of the check groups, nonzero on; ranks as in results
  std::int32_t bWriteResult;   ///< 1: results go to the host's store
  std::int32_t bReport;        ///< nonzero: the check writes its report blocks
  UINT nElem;                  ///< element key
  ALU_DGN_DATA_CODE code;
  double dMembLength;           ///< length of the member that holds the element
  std::int32_t nMembType;       ///< ALU_MEMBER_TYPE
  std::int32_t nEndCond[2][2];  ///< ALU_END_CONDITION, [end i, j][axis y, z]

  ALU_DGN_DATA() { Initial(); }
  ALU_DGN_DATA(const ALU_DGN_DATA&) = default;
  ALU_DGN_DATA& operator=(const ALU_DGN_DATA&) = default;
  virtual ~ALU_DGN_DATA() = default;

  void Initial();
  void SetCheckFlagAll(std::int32_t flag);
  /// Nonzero when the check is to write its report blocks.
  std::int32_t IsReport() const { return bReport; }
};

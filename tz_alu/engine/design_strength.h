#pragma once

#include <string_view>

#include "tz_alu/records/alu_dgn_data.h"

// Design strengths of aluminium alloys to GB 50429-2007, in N/mm².

namespace alu_engine {

/// Design strengths of one material at one thickness.
struct DESIGN_STRENGTH {
  double dF = 0.0;   ///< f, for normal stresses
  double dFv = 0.0;  ///< fv, for shear stresses
};

/// What GB 50429-2007 holds of one alloy and temper.
struct GRADE_ROW {
  std::wstring_view grade;  ///< designation, such as L"6061-T6"
  DESIGN_STRENGTH thin;     ///< t ≤ 10
  DESIGN_STRENGTH thick;    ///< t > 10
  double dHazFactor;        ///< ρhaz: what a heat-affected strip keeps of its thickness
  bool bWeakHardening;      ///< weakly hardening alloy; every other one is strongly hardening
};

/// The texts of a material, compared once per check and carried as what they were found to be.
///
///     const MATERIAL_CLASS material = ClassifyMaterial(data.code.matl);
///     if (material.IsWeakHardening()) ...
struct MATERIAL_CLASS {
  const GRADE_ROW* pGrade = nullptr;  ///< row of the grade, null for a grade that the code lacks
  bool bCodeStandard = false;         ///< the material's standard is that of the table

  /// By the grade alone, whatever the standard's name. A grade that the code lacks is strongly
  /// hardening.
  bool IsWeakHardening() const { return pGrade != nullptr && pGrade->bWeakHardening; }

  /// ρhaz, 0 < ρhaz ≤ 1; 1 (no reduction) under any other standard and for a grade that the code
  /// lacks.
  double HazFactor() const { return bCodeStandard && pGrade != nullptr ? pGrade->dHazFactor : 1.0; }
};

/// Finds the standard "GB50429-07(A)" and the grade. Comparison is exact and case-sensitive.
MATERIAL_CLASS ClassifyMaterial(const ALU_MATL_DATA& matl);

/// Thickness that selects the strength row: the web or wall thickness, of a solid round its
/// diameter (mm). A shape that the checks do not know raises the release assertion and gives 0.
double GoverningThickness(const ALU_SECT_DATA& sect);

/// Proof strength f0.2 that local buckling and member stability take: that of thick parts when the
/// second dimension of the section, D2, exceeds 10 mm, whatever the shape; else that of thin parts.
double ProofStrength(const ALU_DGN_DATA_CODE& code);

/// f and fv of a material. Under the table's standard they come from the table, GB 50429-2007,
/// chapter 4; a grade that it lacks raises the release assertion. That grade, and any material of
/// another standard, gets f = f0.2 / 1.2 and fv = f / √3 with the proof strength of thin parts.
DESIGN_STRENGTH DesignStrength(const ALU_DGN_DATA_CODE& code, const MATERIAL_CLASS& material);

}  // namespace alu_engine

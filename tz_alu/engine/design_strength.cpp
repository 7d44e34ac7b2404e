#include "tz_alu/engine/design_strength.h"

#include <cmath>

#include "host/tz_base/tz_base.h"

namespace alu_engine {

namespace {

constexpr std::wstring_view kStandard = L"GB50429-07(A)";
constexpr double kThinLimit = 10.0;
constexpr double kMaterialFactor = 1.2;

// Grade, f and fv for t ≤ 10, f and fv for t > 10, ρhaz, weakly hardening.
// kept: 6061-T4 and 5083-O/F lose nothing beside a weld.
constexpr GRADE_ROW kGrades[] = {
    {L"6061-T4", {90.0, 55.0}, {90.0, 55.0}, 1.0, false},
    {L"6061-T6", {200.0, 115.0}, {200.0, 115.0}, 0.5, true},
    {L"6063-T5", {90.0, 55.0}, {90.0, 55.0}, 0.5, false},
    {L"6063-T6", {150.0, 85.0}, {150.0, 85.0}, 0.5, true},
    {L"6063A-T5", {135.0, 75.0}, {125.0, 70.0}, 0.5, false},
    {L"6063A-T6", {160.0, 90.0}, {150.0, 85.0}, 0.5, true},
    {L"5083-O/F", {90.0, 55.0}, {90.0, 55.0}, 1.0, false},
    {L"5083-H112", {90.0, 55.0}, {90.0, 55.0}, 0.8, false},
    {L"3003-H24", {100.0, 60.0}, {100.0, 60.0}, 0.2, false},
    {L"3004-H34", {145.0, 85.0}, {145.0, 85.0}, 0.2, false},
    {L"3004-H36", {160.0, 95.0}, {160.0, 95.0}, 0.2, false},
};

std::wstring_view View(const CString& text) {
  return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}

void RaiseReleaseAssertion(int line) {
  if (CAppBase::IsReleaseAssert_ST() == 0) return;
  CAppBase::ReleaseAssertion_ST(L"src\\tz_alu\\alucode_gb50429_07", line);
}

DESIGN_STRENGTH StrengthFromProof(double proof) {
  const double f = proof / kMaterialFactor;
  return {f, f / std::sqrt(3.0)};
}

}  // namespace

MATERIAL_CLASS ClassifyMaterial(const ALU_MATL_DATA& matl) {
  MATERIAL_CLASS material;
  material.bCodeStandard = View(matl.strStandard) == kStandard;
  const std::wstring_view grade = View(matl.strGrade);
  for (const GRADE_ROW& row : kGrades) {
    // Most grades differ in their length or their last character.
    if (grade.size() != row.grade.size() || grade.back() != row.grade.back()) continue;
    if (grade != row.grade) continue;
    material.pGrade = &row;
    break;
  }
  return material;
}

double GoverningThickness(const ALU_SECT_DATA& sect) {
  if (sect.nShape >= ALU_SHAPE_C && sect.nShape <= ALU_SHAPE_2C) return sect.dSize[1];
  if (sect.nShape == ALU_SHAPE_SR) return sect.dSize[0];
  RaiseReleaseAssertion(__LINE__);
  return 0.0;
}

// kept: the second dimension decides for every shape and every plate.
double ProofStrength(const ALU_DGN_DATA_CODE& code) {
  return code.sect.dSize[1] > kThinLimit ? code.matl.dF02Thick : code.matl.dF02Thin;
}

DESIGN_STRENGTH DesignStrength(const ALU_DGN_DATA_CODE& code, const MATERIAL_CLASS& material) {
  if (!material.bCodeStandard) return StrengthFromProof(code.matl.dF02Thin);
  const double t = GoverningThickness(code.sect);
  if (material.pGrade == nullptr) {
    RaiseReleaseAssertion(__LINE__);
    return StrengthFromProof(code.matl.dF02Thin);
  }
  return t > kThinLimit ? material.pGrade->thick : material.pGrade->thin;
}

}  // namespace alu_engine

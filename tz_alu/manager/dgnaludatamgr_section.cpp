#include <cmath>
#include <limits>

#include "tz_alu/manager/dgnaludatamgr.h"
#include "tz_alu/manager/release_assertion.h"

namespace {

constexpr int kLineUnknownShape = 548;
constexpr double kZeroSize = 1e-10;
constexpr int kBuiltUpByWelding = 1;

enum DIM { D1, D2, D3, D4, D5, D6, D7, D8 };

// A shape that the checks know, and how many dimensions the host gives for it.
struct SHAPE_ROW {
  const wchar_t* pszName;
  ALU_SHAPE nShape;
  int nDims;
};

// The host gives the width before the web thickness, the record keeps tw in D2 and the width in D3.
constexpr SHAPE_ROW kShapes[] = {
    {L"C", ALU_SHAPE_C, 8},   {L"H", ALU_SHAPE_H, 8}, {L"T", ALU_SHAPE_T, 4},
    {L"B", ALU_SHAPE_B, 6},   {L"P", ALU_SHAPE_P, 2}, {L"2C", ALU_SHAPE_2C, 5},
    {L"SR", ALU_SHAPE_SR, 1},
};

const SHAPE_ROW* FindShape(const CString& name) {
  for (const SHAPE_ROW& row : kShapes) {
    if (name == row.pszName) return &row;
  }
  return nullptr;
}

void TakeDimensions(const T_SECT_DESIGN_D& sect, int count, ALU_SECT_DATA& out) {
  const auto& d = sect.aSize;
  if (out.nShape == ALU_SHAPE_SR) {
    out.dSize[D2] = d[D1];
  } else if (out.nShape == ALU_SHAPE_P) {
    out.dSize[D2] = d[D2];
  } else {
    out.dSize[D3] = d[D2];
    out.dSize[D2] = d[D3];
    for (int i = D4; i < count; ++i) out.dSize[i] = d[static_cast<std::size_t>(i)];
  }
}

// A flange that the host leaves out is like the other one.
void CompleteBottomFlange(ALU_SECT_DATA& out) {
  if (out.dSize[D5] < kZeroSize) out.dSize[D5] = out.dSize[D3];
  if (out.dSize[D6] < kZeroSize) out.dSize[D6] = out.dSize[D4];
}

// Truncates toward zero; what no 32-bit number holds becomes the nearest one, a NaN 0.
std::int32_t Truncated(double value) {
  using LIMITS = std::numeric_limits<std::int32_t>;
  if (std::isnan(value)) return 0;
  if (value >= static_cast<double>(LIMITS::max())) return LIMITS::max();
  if (value <= static_cast<double>(LIMITS::min())) return LIMITS::min();
  return static_cast<std::int32_t>(value);
}

}  // namespace

int IAluDgnDataMgr::MakeBuffSect(const KEYS& keys) {
  m_mapSect.RemoveAll();
  const CAttrCtrl& attributes = GetDoc()->GetAttrCtrl();
  for (const UINT elem : keys) {
    T_ELEM_D element;
    if (attributes.GetElem(elem, element) == 0) continue;
    if (m_mapSect.PLookup(element.nSect) != nullptr) continue;
    T_SECT_DESIGN_D sect;
    if (attributes.GetSectDesign(element.nSect, sect) == 0) continue;
    Calcfor7thDOF(sect);
    ALU_SECT_DATA data;
    // kept: a section of an unknown shape is stored all the same.
    GetSect(sect, data);
    m_mapSect.SetAt(element.nSect, data);
  }
  return 1;
}

void IAluDgnDataMgr::Calcfor7thDOF(T_SECT_DESIGN_D& sect) const {
  if (sect.bWarpingComputed != 0) return;
  sect.bWarpingComputed = 1;
  if (sect.strShape == L"UP") return;
  T_WARPING_D warping;
  const int flag = sect.strName2.IsEmpty() ? 1 : 0;
  if (GetDoc()->GetSectDB().CalcWarpingFuncion(sect, warping, flag, 0, 0, 0.0) == 0) return;
  sect.dIw = warping.dIw;
  sect.dShearCtrZ = warping.dShearCtrZ;
  sect.dCentroidZ = warping.dCentroidZ;
}

int IAluDgnDataMgr::GetSect(const T_SECT_DESIGN_D& sect, ALU_SECT_DATA& out) const {
  out.Initialize();
  out.dArea = sect.dArea;
  out.dIw = sect.dIw;
  out.dIxx = sect.dIxx;
  out.dIyy = sect.dIyy;
  out.dIzz = sect.dIzz;
  out.dQyb = sect.dQyb;
  out.dQzb = sect.dQzb;
  out.dShearCtr = sect.dShearCtrZ - sect.dCentroidZ;
  for (std::size_t k = 0; k < sect.aPtY.size(); ++k) {
    out.dPtY[k] = sect.aPtY[k];
    out.dPtZ[k] = sect.aPtZ[k];
  }
  out.bWelded = sect.nBuildType == kBuiltUpByWelding ? 1 : 0;
  out.dSize[D1] = sect.aSize[D1];
  const SHAPE_ROW* shape = FindShape(sect.strShape);
  if (shape == nullptr) {
    AssertDgnAluDataMgr(kLineUnknownShape);
    return 0;
  }
  out.nShape = shape->nShape;
  TakeDimensions(sect, shape->nDims, out);
  if (out.nShape == ALU_SHAPE_C || out.nShape == ALU_SHAPE_H) CompleteBottomFlange(out);
  return 1;
}

int IAluDgnDataMgr::MakeBuffMatl(const KEYS& keys) {
  m_mapMatl.RemoveAll();
  const CAttrCtrl& attributes = GetDoc()->GetAttrCtrl();
  for (const UINT elem : keys) {
    T_ELEM_D element;
    if (attributes.GetElem(elem, element) == 0) continue;
    if (m_mapMatl.PLookup(element.nMatl) != nullptr) continue;
    T_MATD_D matl;
    if (attributes.GetMatlDesign(element.nMatl, matl) == 0) continue;
    ALU_MATL_DATA data;
    GetMatd(matl, data);
    m_mapMatl.SetAt(element.nMatl, data);
  }
  return 1;
}

int IAluDgnDataMgr::GetMatd(const T_MATD_D& matl, ALU_MATL_DATA& out) const {
  out.Initialize();
  out.strStandard = matl.strStandard;
  out.strGrade = matl.strGrade;
  out.nElast = Truncated(matl.dElast);
  out.dPoisson = matl.dPoisson;
  out.dFu = matl.dFu;
  out.dF02Thin = matl.dF02Thin;
  out.dF02Thick = matl.dF02Thick;
  return 1;
}

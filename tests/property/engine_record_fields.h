#pragma once

// Every field of the module's records, for properties that hold for all of them.

#include <string>
#include <vector>

#include "tz_alu/records/alu_cal.h"
#include "tz_alu/records/alu_dgn_data.h"
#include "tz_alu/records/alu_dgn_memb.h"
#include "tz_alu/records/alu_forces.h"

namespace engine_records {

template <class ARRAY, class VISIT>
void VisitAll(ARRAY& values, VISIT& visit) {
  for (auto& value : values) visit(value);
}

template <class RECORD, class... FIELD, class VISIT>
void VisitMembers(RECORD& record, VISIT& visit, FIELD... field) {
  (visit(record.*field), ...);
}

template <class VISIT>
void VisitFields(auto& sect, VISIT& visit)
  requires requires { sect.dShearCtr; }
{
  using S = ALU_SECT_DATA;
  VisitMembers(sect, visit, &S::nShape, &S::dArea, &S::dIw, &S::dIxx, &S::dIyy, &S::dIzz, &S::dQyb,
               &S::dQzb, &S::dShearCtr, &S::bWelded);
  VisitAll(sect.dSize, visit);
  VisitAll(sect.dPtY, visit);
  VisitAll(sect.dPtZ, visit);
}

template <class VISIT>
void VisitFields(auto& matl, VISIT& visit)
  requires requires { matl.strGrade; }
{
  using M = ALU_MATL_DATA;
  VisitMembers(matl, visit, &M::strStandard, &M::strGrade, &M::nElast, &M::dPoisson, &M::dFu,
               &M::dF02Thin, &M::dF02Thick);
}

template <class VISIT>
void VisitFields(auto& para, VISIT& visit)
  requires requires { para.dGamma0; }
{
  using P = ALU_PARA_DATA;
  VisitMembers(para, visit, &P::dGamma0, &P::bSeismicGammaRE, &P::dGammaREStrength,
               &P::dGammaREStability, &P::dCoef085, &P::bRib, &P::dRibRatio, &P::dHazWidth,
               &P::dWeldCoef, &P::bUserPhi, &P::dLimitTension, &P::dLimitCompr, &P::bUserLimit,
               &P::dKy, &P::dKz, &P::bMidSupport, &P::bUserBetaM);
  VisitAll(para.dUserPhi, visit);
  VisitAll(para.nBetaMOpt, visit);
  VisitAll(para.dBetaM, visit);
  VisitAll(para.nBetaMOpt2, visit);
  VisitAll(para.bSway, visit);
}

template <class VISIT>
void VisitFields(auto& data, VISIT& visit)
  requires requires { data.nCheckFlag; }
{
  using D = ALU_DGN_DATA;
  VisitFields(data.code.sect, visit);
  VisitFields(data.code.matl, visit);
  VisitFields(data.code.para, visit);
  VisitMembers(data, visit, &D::bWriteResult, &D::bReport, &D::nElem, &D::dMembLength,
               &D::nMembType);
  VisitAll(data.nCheckFlag, visit);
  for (auto& end : data.nEndCond) VisitAll(end, visit);
}

template <class VISIT>
void VisitFields(auto& member, VISIT& visit)
  requires requires { member.aElem; }
{
  using M = ALU_DGN_MEMB;
  VisitMembers(member, visit, &M::nMemb, &M::nNodeI, &M::nNodeJ, &M::dLength, &M::dKy, &M::dKz,
               &M::bMidSupport);
  for (auto& axis : member.nEndCond) VisitAll(axis, visit);
  for (std::ptrdiff_t i = 0; i < member.aElem.GetSize(); ++i) visit(member.aElem[i]);
}

template <class VISIT>
void VisitFields(auto& force, VISIT& visit)
  requires requires { force.nSesiType; }
{
  using F = AluDgnSectForce;
  using E = AluDgnEndForce;
  VisitAll(force.dForce, visit);
  VisitMembers(force, visit, &F::nLComb, &F::nPos, &F::bEndSect, &F::nSesiType);
  VisitMembers(force.end, visit, &E::dMyI, &E::dMyJ, &E::dMzI, &E::dMzJ);
}

template <class VISIT>
void VisitFields(auto& para, VISIT& visit)
  requires requires { para.dRw; }
{
  using P = ALU_CAL_SECTPARA;
  VisitMembers(para, visit, &P::dA, &P::dW1, &P::dW2, &P::dWz, &P::dR1, &P::dR2, &P::dRw);
}

template <class VISIT>
void VisitFields(auto& report, VISIT& visit)
  requires requires { report.dValue; }
{
  VisitAll(report.dValue, visit);
}

/// The values of a record in field order: numbers (each held exactly by a double) and texts.
struct VALUES {
  std::vector<double> numbers;
  std::vector<std::wstring> texts;

  void operator()(const CString& text) { texts.emplace_back(text.GetString()); }
  void operator()(double number) { numbers.push_back(number); }

  friend bool operator==(const VALUES&, const VALUES&) = default;
};

template <class RECORD>
VALUES ValuesOf(const RECORD& record) {
  VALUES values;
  VisitFields(record, values);
  return values;
}

}  // namespace engine_records

#pragma once

#include "tz_alu/records/alu_dgn_data.h"
#include "tz_alu/records/alu_forces.h"

// The fields of a check point by the names of the engine's records. `visit` is called with the name
// and the field, in the order of the record.

namespace aluframe::points {

template <class Visit>
void visit_fields(ALU_SECT_DATA& sect, Visit& visit) {
  visit("nShape", sect.nShape);
  visit("dSize", sect.dSize);
  visit("dArea", sect.dArea);
  visit("dIw", sect.dIw);
  visit("dIxx", sect.dIxx);
  visit("dIyy", sect.dIyy);
  visit("dIzz", sect.dIzz);
  visit("dQyb", sect.dQyb);
  visit("dQzb", sect.dQzb);
  visit("dShearCtr", sect.dShearCtr);
  visit("dPtY", sect.dPtY);
  visit("dPtZ", sect.dPtZ);
  visit("bWelded", sect.bWelded);
}

template <class Visit>
void visit_fields(ALU_MATL_DATA& matl, Visit& visit) {
  visit("strStandard", matl.strStandard);
  visit("strGrade", matl.strGrade);
  visit("nElast", matl.nElast);
  visit("dPoisson", matl.dPoisson);
  visit("dFu", matl.dFu);
  visit("dF02Thin", matl.dF02Thin);
  visit("dF02Thick", matl.dF02Thick);
}

template <class Visit>
void visit_fields(ALU_PARA_DATA& para, Visit& visit) {
  visit("dGamma0", para.dGamma0);
  visit("bSeismicGammaRE", para.bSeismicGammaRE);
  visit("dGammaREStrength", para.dGammaREStrength);
  visit("dGammaREStability", para.dGammaREStability);
  visit("dCoef085", para.dCoef085);
  visit("bRib", para.bRib);
  visit("dRibRatio", para.dRibRatio);
  visit("dHazWidth", para.dHazWidth);
  visit("dWeldCoef", para.dWeldCoef);
  visit("bUserPhi", para.bUserPhi);
  visit("dUserPhi", para.dUserPhi);
  visit("dLimitTension", para.dLimitTension);
  visit("dLimitCompr", para.dLimitCompr);
  visit("bUserLimit", para.bUserLimit);
  visit("dKy", para.dKy);
  visit("dKz", para.dKz);
  visit("bMidSupport", para.bMidSupport);
  visit("bUserBetaM", para.bUserBetaM);
  visit("nBetaMOpt", para.nBetaMOpt);
  visit("dBetaM", para.dBetaM);
  visit("nBetaMOpt2", para.nBetaMOpt2);
  visit("bSway", para.bSway);
}

template <class Visit>
void visit_fields(ALU_DGN_DATA_CODE& code, Visit& visit) {
  visit("sect", code.sect);
  visit("matl", code.matl);
  visit("para", code.para);
}

template <class Visit>
void visit_fields(ALU_DGN_DATA& data, Visit& visit) {
  visit("nCheckFlag", data.nCheckFlag);
  visit("bWriteResult", data.bWriteResult);
  visit("bReport", data.bReport);
  visit("nElem", data.nElem);
  visit("code", data.code);
  visit("dMembLength", data.dMembLength);
  visit("nMembType", data.nMembType);
  visit("nEndCond", data.nEndCond);
}

template <class Visit>
void visit_fields(AluDgnEndForce& end, Visit& visit) {
  visit("dMyI", end.dMyI);
  visit("dMyJ", end.dMyJ);
  visit("dMzI", end.dMzI);
  visit("dMzJ", end.dMzJ);
}

template <class Visit>
void visit_fields(AluDgnSectForce& force, Visit& visit) {
  visit("dForce", force.dForce);
  visit("nLComb", force.nLComb);
  visit("nPos", force.nPos);
  visit("bEndSect", force.bEndSect);
  visit("nSesiType", force.nSesiType);
  visit("end", force.end);
}

}  // namespace aluframe::points

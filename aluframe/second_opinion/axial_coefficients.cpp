#include "aluframe/second_opinion/axial_coefficients.h"

#include <cmath>

namespace aluframe::second_opinion {

namespace {

constexpr Forces compression{.n = -1e3};

void take_smaller(double phi, RuleSet rule, double& smallest, RuleSet& rules) {
  if (phi >= smallest * (1.0 - 1e-9)) return;
  smallest = phi;
  rules = rule;
}

/// The element with buckling about y in place of that about z: its slenderness, and the shear
/// centre's distance along y. The checks then form the torsional-flexural slenderness of y.
ALU_DGN_DATA about_y_with_torsion(const Subject& subject) {
  ALU_DGN_DATA turned = subject.data;
  const ALU_SECT_DATA& sect = turned.code.sect;
  turned.code.para.dKz = turned.code.para.dKy * std::sqrt(sect.dIzz / sect.dIyy);
  turned.code.sect.dShearCtr = subject.facts.shear_centre_y;
  return turned;
}

}  // namespace

AxialCoefficients axial_coefficients(Engine& engine, const Subject& subject) {
  AxialCoefficients out;
  if (!engine.ask(subject.data, compression)) return out;
  out.formed = true;
  out.code_y = out.safe_y = engine.report(ALU_REPORT_PHI_Y);
  out.code_z = out.safe_z = engine.report(ALU_REPORT_PHI_Z);
  const auto shape = subject.data.code.sect.nShape;
  if (subject.mirrored && shape != ALU_SHAPE_T && engine.ask(*subject.mirrored, compression)) {
    take_smaller(engine.report(ALU_REPORT_PHI_Y), Rule::b8, out.safe_y, out.rules_y);
    take_smaller(engine.report(ALU_REPORT_PHI_Z), Rule::b8, out.safe_z, out.rules_z);
  }
  const bool twists = shape == ALU_SHAPE_C && subject.facts.shear_centre_y != 0.0;
  if (twists && engine.ask(about_y_with_torsion(subject), compression)) {
    take_smaller(engine.report(ALU_REPORT_PHI_Z), Rule::s3, out.safe_y, out.rules_y);
  }
  return out;
}

}  // namespace aluframe::second_opinion

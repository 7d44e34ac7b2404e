// The shear and slenderness blocks.

#include "tz_alu/report/detail_block.h"
#include "tz_alu/report/report_literals.h"

using namespace alu_report;

namespace {

// What differs between the shear blocks of the two axes.
struct SHEAR_TEXTS {
  const wchar_t* title;
  const wchar_t* description;
  const wchar_t* label;
  ALU_FORCE force;
  const wchar_t* formula;
  RALU_ITEM_TYPE item;
};

constexpr SHEAR_TEXTS kShearY{kShearYTitle,           kShearYText, L"Fy=", ALU_FORCE_FY,
                              L"R1=Fy*Qzb/(Izz*fv)=", RALU_SHEAR_Y};
constexpr SHEAR_TEXTS kShearZ{kShearZTitle,           kShearZText, L"Fz=", ALU_FORCE_FZ,
                              L"R2=Fz*Qyb/(Iyy*fv)=", RALU_SHEAR_Z};

// kept: the details stand for a beam under any forces, for other members in pure bending only.
bool HasShearDetails(const ALU_REPORT_INPUT& in) {
  return CALU_GB50429_07Print::IsPureBending(in.force) || in.data.nMembType == ALU_MEMBER_BEAM;
}

void PrintShear(const CALUPrint& print, const ALU_REPORT_INPUT& in, const SHEAR_TEXTS& texts) {
  const ALU_SECT_DATA& sect = in.data.code.sect;
  DETAIL_BLOCK block(print, in, in.data.code.para.dGammaREStrength);
  block.Banner(texts.title);
  if (!HasShearDetails(in)) return;
  block.Line(L"fv=", block.Stress(block.Noted(ALU_REPORT_FV)));
  block.Line(L"Iyy=", block.Inertia(sect.dIyy), L",  Izz=", block.Inertia(sect.dIzz));
  block.Describe(texts.description);
  block.LoadLine();
  block.Line(texts.label, block.Force(texts.force), block.SeismicText());
  block.Verdict(texts.formula, block.Ratio(texts.item));
}

// kept: the limit itself is printed, and no blank follows the arrow.
void SlendernessLine(DETAIL_BLOCK& block) {
  const double y = block.In().result.aItem[RALU_SLENDERNESS_Y].dDemand;
  const double z = block.In().result.aItem[RALU_SLENDERNESS_Z].dDemand;
  const double lambda = y > z ? y : z;
  const double limit = block.Noted(ALU_REPORT_SLENDERNESS_LIMIT);
  const bool passes = lambda - limit < alu_engine::kTolerance;
  block.Line(L"kl/i=", Value(lambda), passes ? L"<" : L">", Value(limit), L"---->",
             passes ? L"OK" : L"Not Acceptable!");
}

}  // namespace

void CALU_GB50429_07Print::PrintShearY(const ALU_REPORT_INPUT& in) const {
  PrintShear(*this, in, kShearY);
}

void CALU_GB50429_07Print::PrintShearZ(const ALU_REPORT_INPUT& in) const {
  PrintShear(*this, in, kShearZ);
}

void CALU_GB50429_07Print::PrintSlenderness(const ALU_REPORT_INPUT& in) const {
  DETAIL_BLOCK block(*this, in, 0.0);
  block.Banner(kSlendernessTitle);
  if (IsCompression(in.force)) {
    block.Describe(kCompressedText);
    SlendernessLine(block);
  } else if (IsTension(in.force)) {
    block.Describe(kPulledText);
    SlendernessLine(block);
  }
}

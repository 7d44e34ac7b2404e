// The member block and the section properties.

#include <cmath>

#include "host/tz_db/services.h"
#include "tz_alu/report/aluprint.h"
#include "tz_alu/report/number_format.h"
#include "tz_alu/report/report_block.h"
#include "tz_alu/report/report_literals.h"

using namespace alu_report;

namespace {

const wchar_t* MemberTypeText(std::int32_t nMembType) {
  switch (nMembType) {
    case ALU_MEMBER_COLUMN:
      return L"Column";
    case ALU_MEMBER_BEAM:
      return L"Beam";
    case ALU_MEMBER_BRACE:
      return L"Brace";
    case ALU_MEMBER_TRUSS:
      return L"Truss";
    default:
      return L"--";
  }
}

// A shape's name and the labels of its dimensions D1, D2, ..., in order.
struct SHAPE_LINE {
  const wchar_t* name;
  const wchar_t* labels[6];
};

constexpr SHAPE_LINE kShapes[] = {
    {L"C", {L"H=", L", tw=", L", B1=", L", tf1=", L", B2=", L", tf2="}},
    {L"H", {L"H=", L", tw=", L", B1=", L", tf1=", L", B2=", L", tf2="}},
    {L"T", {L"H=", L", tw=", L", B=", L", tf="}},
    {L"B", {L"H=", L", tw=", L", B=", L", tf1=", L", C=", L", tf2="}},
    {L"P", {L"D=", L", tw="}},
    {L"2C", {L"H=", L", tw=", L", B=", L", tf=", L", C="}},
    {L"SR", {L"D="}},
};

const SHAPE_LINE& ShapeLine(std::int32_t nShape) {
  const bool known = nShape >= ALU_SHAPE_C && nShape <= ALU_SHAPE_SR;
  return kShapes[known ? nShape : ALU_SHAPE_SR];
}

constexpr unsigned kPrecision = 5;
constexpr unsigned kWidth = 0;

}  // namespace

void CALUPrint::PrintMember(const ALU_DGN_DATA& data) {
  T_ELEM_D element;
  CDBDoc::GetDocPoint()->GetAttrCtrl().GetElem(data.nElem, element);
  REPORT_BLOCK block(m_strPath, &m_nLostBlocks, &m_strText);
  block.Rule();
  block.Line(m_strMargin, L"MEMBER NO = ", FormatInteger(data.nElem), L",   ELEMENT TYPE = ",
             MemberTypeText(data.nMembType));
  block.Line(m_strMargin, L"MATERIAL NO = ", FormatInteger(element.nMatl), L",   SECTION NO = ",
             FormatInteger(element.nSect));
  block.Rule();
  block.Line(m_strGap, L"UNIT SYSTEM : ", m_strLength, L", ", m_strForce);
  PrintSection(data);
}

void CALUPrint::PrintSection(const ALU_DGN_DATA& data) {
  const ALU_SECT_DATA& sect = data.code.sect;
  const SHAPE_LINE& shape = ShapeLine(sect.nShape);
  REPORT_BLOCK block(m_strPath, &m_nLostBlocks, &m_strText);
  block.Line(m_strGap, L"Section Properties: ");
  block.Line(m_strGap, L"Shape = ", shape.name, kDash, L"Section ");
  block.Put(m_strGap);
  for (int i = 0; i < 6 && shape.labels[i] != nullptr; ++i) {
    block.Put(shape.labels[i], FormatLength(sect.dSize[i], kPrecision, kWidth));
  }
  block.EndLine();
  // kept: the radii of gyration are scaled as areas.
  block.Line(m_strGap, L"Area=", FormatArea(sect.dArea, kPrecision, kWidth), L", Iyy= ",
             FormatInertia(sect.dIyy, kPrecision, kWidth), L", Izz=",
             FormatInertia(sect.dIzz, kPrecision, kWidth), L", iy=",
             FormatArea(std::sqrt(sect.dIyy / sect.dArea), kPrecision, kWidth), L", iz=",
             FormatArea(std::sqrt(sect.dIzz / sect.dArea), kPrecision, kWidth));
}

#include "aluframe/services/document.h"

#include <algorithm>
#include <cmath>
#include <unordered_set>

#include "aluframe/model/units.h"
#include "aluframe/section/section_properties.h"
#include "aluframe/services/text.h"

namespace aluframe::services {

namespace {

/// The contract's number of stresses among the types of units.
constexpr int stress_unit_type = 17;

/// The section that a record describes, in mm.
std::optional<model::Section> section_of(const T_SECT_DESIGN_D& record, const UnitScale& scale) {
  const std::optional<model::Shape> shape = model::parse_shape(to_utf8(record.strShape));
  if (!shape || *shape == model::Shape::other) return std::nullopt;
  model::Section section;
  section.shape = *shape;
  const double unit = scale.length(1.0);
  for (std::size_t i = 0; i < record.aSize.size(); ++i) {
    section.dimensions[i] = scale.is_identity() ? record.aSize[i] : record.aSize[i] / unit;
  }
  if (section::find_dimension_problem(section)) return std::nullopt;
  return section;
}

}  // namespace

int SectionDatabase::CalcWarpingFuncion(const T_SECT_DESIGN_D& sect, T_WARPING_D& out, int, int,
                                        int, double) {
  const std::optional<model::Section> section = section_of(sect, scale_);
  if (!section) return 0;
  const model::SectionProperties properties = section::properties_of(*section);
  out.dIw = scale_.warping_constant(properties.iw);
  out.dShearCtrZ = scale_.length(properties.shear_centre_z);
  out.dCentroidZ = 0.0;
  return 1;
}

CString UnitControl::GetUnitSystemLength() const {
  const auto unit = static_cast<model::LengthUnit>(scale_.index().nLength);
  return to_wide(model::name_of(unit));
}

CString UnitControl::GetUnitSystemForce() const {
  const auto unit = static_cast<model::ForceUnit>(scale_.index().nForce);
  return to_wide(model::name_of(unit));
}

double UnitControl::ConvertTgtUnitData2CurUnit(int length, int force, int kind,
                                               double value) const {
  constexpr int a_length = 1;
  const UnitScale from({force, length});
  if (kind == a_length) return value / from.length(1.0) * scale_.length(1.0);
  return value / from.force(1.0) * scale_.force(1.0);
}

CString UnitControl::GetUnitText(int type) const {
  if (type != stress_unit_type) return {};
  return GetUnitSystemForce() + L"/" + GetUnitSystemLength() + L"\u00B2";
}

int DesignData::GetKFactor(UINT elem, T_KFAC_D& out) const {
  const auto found = factors_.find(elem);
  if (found == factors_.end()) return 0;
  out = found->second;
  return 1;
}

int FrameLengthFactors::Calc_KFactor(const CArray<UINT>& elems, int, int, int, CDgnDynData& out) {
  out.RemoveAllKFactors();
  const std::unordered_set<UINT> wanted(elems.begin(), elems.end());
  for (const members::SegmentFactors& factors : factors_) {
    const bool is_wanted = std::ranges::any_of(
        factors.elements, [&wanted](model::Number element) { return wanted.contains(element); });
    if (is_wanted) out.SetKFactor(factors.elements.front(), {factors.y.k, factors.z.k});
  }
  return 1;
}

double Document::calcLAVElem(const T_ELEM_D& elem) const {
  const model::Node* start = model_.nodes.find(elem.aNode[0]);
  const model::Node* end = model_.nodes.find(elem.aNode[1]);
  if (start == nullptr || end == nullptr) return 0.0;
  return scale_.length(std::hypot(end->x - start->x, end->y - start->y, end->z - start->z));
}

}  // namespace aluframe::services

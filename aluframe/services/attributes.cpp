#include "aluframe/services/attributes.h"

#include <algorithm>

#include "aluframe/members/axes_remarks.h"
#include "aluframe/section/section_properties.h"
#include "aluframe/services/text.h"

namespace aluframe::services {

namespace {

constexpr int built_up_by_welding = 1;

/// Member type codes of the two schemes, by `model::MemberType`.
constexpr int member_type_codes[2][4] = {
    {1, 2, 3, 5},  // column, beam, brace, truss
    {2, 1, 4, 5},
};

/// `GetX` of an attribute that an element may carry: fills `out` by `fill` when it does.
template <class Value, class Fill>
int when_given(const model::ElementDesign* design,
               std::optional<Value> model::ElementDesign::* which, Fill fill) {
  if (design == nullptr) return 0;
  const std::optional<Value>& given = design->*which;
  if (!given) return 0;
  fill(*given);
  return 1;
}

void fill_properties(T_SECT_DESIGN_D& out, const model::SectionProperties& properties,
                     const UnitScale& scale) {
  out.dArea = scale.area(properties.area);
  out.dIxx = scale.inertia(properties.it);
  out.dIyy = scale.inertia(properties.iyy);
  out.dIzz = scale.inertia(properties.izz);
  out.dQyb = scale.area(properties.qyb);
  out.dQzb = scale.area(properties.qzb);
  for (std::size_t i = 0; i < out.aPtY.size(); ++i) {
    out.aPtY[i] = scale.length(properties.point_y[i]);
    out.aPtZ[i] = scale.length(properties.point_z[i]);
  }
}

}  // namespace

Attributes::Attributes(const model::Model& model, const UnitScale& scale,
                       const RestrainedElements* restrained)
    : model_(model), scale_(scale), restrained_(restrained), connectivity_(model) {}

int Attributes::GetCountElem(int) const {
  return static_cast<int>(model_.elements.size());
}

int Attributes::GetElem(UINT elem, T_ELEM_D& out) const {
  const model::Element* element = model_.elements.find(elem);
  if (element == nullptr) return 0;
  out.aNode = element->nodes;
  out.nSect = element->section;
  out.nMatl = element->material;
  out.dBeta = members::turned_by(model_, *element);
  return 1;
}

int Attributes::GetNode(UINT node, T_NODE_D& out) const {
  const model::Node* found = model_.nodes.find(node);
  if (found == nullptr) return 0;
  out = {scale_.length(found->x), scale_.length(found->y), scale_.length(found->z)};
  return 1;
}

int Attributes::GetFrlsElem(UINT elem, T_FRLS_D& out) const {
  const model::Element* element = model_.elements.find(elem);
  if (element == nullptr) return 0;
  std::transform(element->released.begin(), element->released.end(), out.aRelease.begin(),
                 [](bool released) { return released ? '1' : '0'; });
  return 1;
}

int Attributes::GetSupportCondition(UINT node, T_SUPPORT_D& out) const {
  const model::Support* support = connectivity_.support_of(node);
  if (support == nullptr) return 0;
  std::transform(support->restrained.begin(), support->restrained.end(), out.aRestraint.begin(),
                 [](bool restrained) { return restrained ? 1 : 0; });
  return 1;
}

int Attributes::GetConnectedElem(UINT node, CArray<UINT>& out) const {
  out.RemoveAll();
  for (const model::Number element : connectivity_.elements_at(node)) out.Add(element);
  return out.IsEmpty() ? 0 : 1;
}

int Attributes::GetMemberType(UINT elem, int scheme) const {
  const model::Element* element = model_.elements.find(elem);
  if (element == nullptr) return 0;
  const auto type = static_cast<std::size_t>(model::member_type(model_, *element));
  return member_type_codes[scheme == 0 ? 0 : 1][type];
}

int Attributes::IsFrameType(UINT elem) const {
  return model_.elements.find(elem) != nullptr ? 1 : 0;
}

UINT Attributes::GetMembAssigned(UINT displayKey) const {
  const model::Member* member = connectivity_.member_of(displayKey);
  return member == nullptr ? 0 : member->number;
}

int Attributes::GetMemb(UINT memb, T_MEMB_D& out) const {
  const model::Member* member = model_.members.find(memb);
  if (member == nullptr) return 0;
  out.aElem.RemoveAll();
  for (const model::Number element : member->elements) out.aElem.Add(element);
  return 1;
}

int Attributes::GetSectDesign(UINT sect, T_SECT_DESIGN_D& out) const {
  const model::Section* found = model_.sections.find(sect);
  if (found == nullptr) return 0;
  const model::SectionProperties properties = section::properties_of(*found);
  out = T_SECT_DESIGN_D();
  out.strShape = to_wide(model::name_of(found->shape));
  for (std::size_t i = 0; i < out.aSize.size(); ++i) {
    out.aSize[i] = scale_.length(found->dimensions[i]);
  }
  fill_properties(out, properties, scale_);
  out.nBuildType = found->welded ? built_up_by_welding : 0;
  // Values that the user gave are not to be computed over.
  if (found->given.iw || found->given.shear_centre_z || found->shape == model::Shape::other) {
    out.dIw = scale_.warping_constant(properties.iw);
    out.dShearCtrZ = scale_.length(properties.shear_centre_z);
    out.bWarpingComputed = 1;
  }
  return 1;
}

int Attributes::GetMatlDesign(UINT matl, T_MATD_D& out) const {
  const model::Material* found = model_.materials.find(matl);
  if (found == nullptr) return 0;
  out.strName = to_wide(found->name.empty() ? found->grade : found->name);
  const bool of_the_user = found->standard == model::user_standard;
  out.strStandard = of_the_user ? CString() : to_wide(found->standard);
  out.strGrade = to_wide(found->grade);
  out.dElast = scale_.stress(found->e);
  out.dPoisson = found->poisson;
  out.dFu = scale_.stress(found->fu);
  out.dF02Thin = scale_.stress(found->f02_thin);
  out.dF02Thick = scale_.stress(found->f02_thick);
  return 1;
}

int Attributes::GetMatlKeyList(CArray<UINT>& out) const {
  out.RemoveAll();
  for (const model::Material& material : model_.materials) out.Add(material.number);
  return static_cast<int>(out.GetSize());
}

int Attributes::ExistDalu() const {
  return model_.design ? 1 : 0;
}

int Attributes::GetDalu(T_DALU_D& out) const {
  if (!model_.design) return 0;
  const model::DesignSettings& design = *model_.design;
  out.Initialize();
  out.strCode = to_wide(design.code);
  out.bRib = design.rib ? 1 : 0;
  out.dRibRatio = design.rib_ratio;
  out.nSafetyClass = design.safety_class - 1;
  out.dStrengthRatio = design.strength_ratio;
  out.bSeismic = design.seismic ? 1 : 0;
  out.dGammaREStrength = design.gamma_re_strength;
  out.dGammaREStability = design.gamma_re_stability;
  return 1;
}

int Attributes::GetDctl(T_DCTL_D& out) const {
  if (!model_.frame) return 0;
  out = T_DCTL_D();
  out.nSwayA = model_.frame->braced_a ? 1 : 0;
  out.nSwayB = model_.frame->braced_b ? 1 : 0;
  return 1;
}

const model::ElementDesign* Attributes::design_of(UINT elem) const {
  const model::Element* element = model_.elements.find(elem);
  return element == nullptr ? nullptr : &element->design;
}

const RestrainedValues* Attributes::restrained(UINT elem) const {
  if (restrained_ == nullptr) return nullptr;
  const auto found = restrained_->find(elem);
  return found == restrained_->end() ? nullptr : &found->second;
}

int Attributes::GetAphi(UINT elem, T_APHI_D& out) const {
  const int given = when_given(design_of(elem), &model::ElementDesign::stability_coefficients,
                               [&out](const auto& phi) { out = {phi.y, phi.z}; });
  const RestrainedValues* values = restrained(elem);
  if (given != 0 || values == nullptr || !values->phi_b) return given;
  out = {*values->phi_b, 1.0};
  return 1;
}

int Attributes::GetArib(UINT elem, T_ARIB_D& out) const {
  return when_given(design_of(elem), &model::ElementDesign::rib,
                    [&out](const auto& rib) { out = {rib.stiffened ? 0 : 1, rib.ratio}; });
}

int Attributes::GetAwed(UINT elem, T_AWED_D& out) const {
  return when_given(design_of(elem), &model::ElementDesign::weld_coefficient,
                    [&out](double coefficient) { out = {coefficient}; });
}

int Attributes::GetAhtr(UINT elem, T_AHTR_D& out) const {
  return when_given(design_of(elem), &model::ElementDesign::haz_width,
                    [&](double width) { out = {scale_.length(width)}; });
}

int Attributes::GetCmft(UINT elem, T_CMFT_D& out) const {
  return when_given(design_of(elem), &model::ElementDesign::moment_factors,
                    [&out](const model::ElementDesign::MomentFactors& factors) {
                      const model::MomentFactor* axes[] = {&factors.y, &factors.z};
                      for (std::size_t i = 0; i < 2; ++i) {
                        out.aAuto[i] = axes[i]->value ? 0 : 1;
                        out.aBetaM[i] = axes[i]->value.value_or(1.0);
                        out.aLoadType[i] = axes[i]->loading;
                      }
                    });
}

int Attributes::GetKfac(UINT elem, T_KFAC_D& out) const {
  const auto fill = [&out](const auto& factors) { out = {factors.y, factors.z}; };
  const int given = when_given(design_of(elem), &model::ElementDesign::length_factors, fill);
  const RestrainedValues* values = restrained(elem);
  if (given != 0 || values == nullptr || !values->length_factors) return given;
  fill(*values->length_factors);
  return 1;
}

int Attributes::GetLtsr(UINT elem, T_LTSR_D& out) const {
  return when_given(design_of(elem), &model::ElementDesign::slenderness_limits,
                    [&out](const auto& limits) {
                      out = {limits.checked ? 0 : 1, limits.compression, limits.tension};
                    });
}

double Attributes::GetMembTotalLength(UINT memb) const {
  const model::Member* member = model_.members.find(memb);
  if (member == nullptr) return 0.0;
  double length = 0.0;
  for (const model::Number number : member->elements) {
    length += model::element_length(model_, *model_.elements.find(number));
  }
  return scale_.length(length);
}

UINT Attributes::GetShowElemByIncludeElem(UINT elem) const {
  if (model_.elements.find(elem) == nullptr) return 0;
  const model::Member* member = connectivity_.member_of(elem);
  return member == nullptr ? elem : member->elements.front();
}

}  // namespace aluframe::services

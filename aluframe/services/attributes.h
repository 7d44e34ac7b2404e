#pragma once

#include <vector>

#include "aluframe/model/members.h"
#include "aluframe/model/model.h"
#include "aluframe/services/restrained_elements.h"
#include "aluframe/services/unit_scale.h"
#include "host/tz_db/services.h"

namespace aluframe::services {

/// The model's attributes as the contract's records, in the current units.
///
/// An element without a member is its own display key; a member's display key is its first element.
class Attributes : public CAttrCtrl, public CAttrCtrl2, public CMembCtrl {
 public:
  /// All must outlive the object; `scale` is read at every call.
  /// @param restrained what elements have where the model gives them nothing; null: nothing
  Attributes(const model::Model& model, const UnitScale& scale,
             const RestrainedElements* restrained = nullptr);

  int GetCountElem(int option) const override;
  int GetElem(UINT elem, T_ELEM_D& out) const override;
  int GetNode(UINT node, T_NODE_D& out) const override;
  int GetFrlsElem(UINT elem, T_FRLS_D& out) const override;
  int GetSupportCondition(UINT node, T_SUPPORT_D& out) const override;
  int GetConnectedElem(UINT node, CArray<UINT>& out) const override;
  int GetMemberType(UINT elem, int scheme) const override;
  int IsFrameType(UINT elem) const override;

  UINT GetMembAssigned(UINT displayKey) const override;
  int GetMemb(UINT memb, T_MEMB_D& out) const override;

  int GetSectDesign(UINT sect, T_SECT_DESIGN_D& out) const override;
  /// A material without a name goes by its grade. The standard of values of the user is empty.
  int GetMatlDesign(UINT matl, T_MATD_D& out) const override;

  int GetDalu(T_DALU_D& out) const override;
  int GetDctl(T_DCTL_D& out) const override;
  int GetAphi(UINT elem, T_APHI_D& out) const override;
  int GetArib(UINT elem, T_ARIB_D& out) const override;
  int GetAwed(UINT elem, T_AWED_D& out) const override;
  int GetAhtr(UINT elem, T_AHTR_D& out) const override;
  int GetCmft(UINT elem, T_CMFT_D& out) const override;
  int GetKfac(UINT elem, T_KFAC_D& out) const override;
  int GetLtsr(UINT elem, T_LTSR_D& out) const override;

  int ExistDalu() const override;
  int GetMatlKeyList(CArray<UINT>& out) const override;

  int GetLcom(int kind, UINT number, T_LCOM_D& out) const override;
  int GetSplc(UINT number, T_SPLC_D& out) const override;
  int GetThis(UINT number, T_THIS_D& out) const override;
  int GetSmlc(UINT number, T_SMLC_D& out) const override;
  int GetSgld(UINT number, T_STLD_D& out) const override;
  int GetCran(UINT number, T_CRAN_D& out) const override;
  int GetMvcd(T_MVCD_D& out) const override;
  int GetMvld(UINT number, T_MVLD_D& out) const override;
  int GetMvldch(UINT number, T_MVLDch_D& out) const override;
  int GetMvldjp(UINT number, T_MVLDjp_D& out) const override;
  int GetMvldid(UINT number, T_MVLDid_D& out) const override;
  int GetMvldbs(UINT number, T_MVLDbs_D& out) const override;
  int GetMvldfr(UINT number, T_MVLDfr_D& out) const override;
  int GetMvldtr(UINT number, T_MVLDtr_D& out) const override;

  double GetMembTotalLength(UINT memb) const override;
  UINT GetShowElemByIncludeElem(UINT elem) const override;

 private:
  const model::ElementDesign* design_of(UINT elem) const;
  /// Null without any.
  const RestrainedValues* restrained(UINT elem) const;

  const model::Model& model_;
  const UnitScale& scale_;
  const RestrainedElements* restrained_;
  model::Connectivity connectivity_;
};

}  // namespace aluframe::services

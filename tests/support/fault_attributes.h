#pragma once

#include "tests/support/fault_host.h"

// The attribute services, each call counted and handed on.

namespace test_support {

/// A service that counts its calls before it hands them on.
template <class Service>
class Counted : public Service {
 public:
  Counted(Service& inner, CallCounter& counter) : inner_(inner), counter_(counter) {}

 protected:
  Service& inner_;
  CallCounter& counter_;
};

class FaultAttrCtrl : public Counted<CAttrCtrl> {
 public:
  using Counted::Counted;

  int GetCountElem(int option) const override {
    counter_.Count();
    return inner_.GetCountElem(option);
  }
  int GetElem(UINT elem, T_ELEM_D& out) const override {
    counter_.Count();
    return inner_.GetElem(elem, out);
  }
  int GetNode(UINT node, T_NODE_D& out) const override {
    counter_.Count();
    return inner_.GetNode(node, out);
  }
  int GetFrlsElem(UINT elem, T_FRLS_D& out) const override {
    counter_.Count();
    return inner_.GetFrlsElem(elem, out);
  }
  int GetSupportCondition(UINT node, T_SUPPORT_D& out) const override {
    counter_.Count();
    return inner_.GetSupportCondition(node, out);
  }
  int GetConnectedElem(UINT node, CArray<UINT>& out) const override {
    counter_.Count();
    return inner_.GetConnectedElem(node, out);
  }
  int GetMemberType(UINT elem, int scheme) const override {
    counter_.Count();
    return inner_.GetMemberType(elem, scheme);
  }
  int IsFrameType(UINT elem) const override {
    counter_.Count();
    return inner_.IsFrameType(elem);
  }
  UINT GetMembAssigned(UINT displayKey) const override {
    counter_.Count();
    return inner_.GetMembAssigned(displayKey);
  }
  int GetMemb(UINT memb, T_MEMB_D& out) const override {
    counter_.Count();
    return inner_.GetMemb(memb, out);
  }
  int GetSectDesign(UINT sect, T_SECT_DESIGN_D& out) const override {
    counter_.Count();
    return inner_.GetSectDesign(sect, out);
  }
  int GetMatlDesign(UINT matl, T_MATD_D& out) const override {
    counter_.Count();
    return inner_.GetMatlDesign(matl, out);
  }
  int GetDalu(T_DALU_D& out) const override {
    counter_.Count();
    return inner_.GetDalu(out);
  }
  int GetDctl(T_DCTL_D& out) const override {
    counter_.Count();
    return inner_.GetDctl(out);
  }
  int GetAphi(UINT elem, T_APHI_D& out) const override {
    counter_.Count();
    return inner_.GetAphi(elem, out);
  }
  int GetArib(UINT elem, T_ARIB_D& out) const override {
    counter_.Count();
    return inner_.GetArib(elem, out);
  }
  int GetAwed(UINT elem, T_AWED_D& out) const override {
    counter_.Count();
    return inner_.GetAwed(elem, out);
  }
  int GetAhtr(UINT elem, T_AHTR_D& out) const override {
    counter_.Count();
    return inner_.GetAhtr(elem, out);
  }
  int GetCmft(UINT elem, T_CMFT_D& out) const override {
    counter_.Count();
    return inner_.GetCmft(elem, out);
  }
  int GetKfac(UINT elem, T_KFAC_D& out) const override {
    counter_.Count();
    return inner_.GetKfac(elem, out);
  }
  int GetLtsr(UINT elem, T_LTSR_D& out) const override {
    counter_.Count();
    return inner_.GetLtsr(elem, out);
  }

  int GetLcom(int kind, UINT number, T_LCOM_D& out) const override {
    counter_.Count();
    return inner_.GetLcom(kind, number, out);
  }
  int GetMvcd(T_MVCD_D& out) const override {
    counter_.Count();
    return inner_.GetMvcd(out);
  }
  int GetSplc(UINT number, T_SPLC_D& out) const override {
    counter_.Count();
    return inner_.GetSplc(number, out);
  }
  int GetThis(UINT number, T_THIS_D& out) const override {
    counter_.Count();
    return inner_.GetThis(number, out);
  }
  int GetSmlc(UINT number, T_SMLC_D& out) const override {
    counter_.Count();
    return inner_.GetSmlc(number, out);
  }
  int GetSgld(UINT number, T_STLD_D& out) const override {
    counter_.Count();
    return inner_.GetSgld(number, out);
  }
  int GetCran(UINT number, T_CRAN_D& out) const override {
    counter_.Count();
    return inner_.GetCran(number, out);
  }
  int GetMvld(UINT number, T_MVLD_D& out) const override {
    counter_.Count();
    return inner_.GetMvld(number, out);
  }
  int GetMvldch(UINT number, T_MVLDch_D& out) const override {
    counter_.Count();
    return inner_.GetMvldch(number, out);
  }
  int GetMvldjp(UINT number, T_MVLDjp_D& out) const override {
    counter_.Count();
    return inner_.GetMvldjp(number, out);
  }
  int GetMvldid(UINT number, T_MVLDid_D& out) const override {
    counter_.Count();
    return inner_.GetMvldid(number, out);
  }
  int GetMvldbs(UINT number, T_MVLDbs_D& out) const override {
    counter_.Count();
    return inner_.GetMvldbs(number, out);
  }
  int GetMvldfr(UINT number, T_MVLDfr_D& out) const override {
    counter_.Count();
    return inner_.GetMvldfr(number, out);
  }
  int GetMvldtr(UINT number, T_MVLDtr_D& out) const override {
    counter_.Count();
    return inner_.GetMvldtr(number, out);
  }
};

class FaultAttrCtrl2 : public Counted<CAttrCtrl2> {
 public:
  using Counted::Counted;

  double GetMembTotalLength(UINT memb) const override {
    counter_.Count();
    return inner_.GetMembTotalLength(memb);
  }
};

class FaultMembCtrl : public Counted<CMembCtrl> {
 public:
  using Counted::Counted;

  UINT GetShowElemByIncludeElem(UINT elem) const override {
    counter_.Count();
    return inner_.GetShowElemByIncludeElem(elem);
  }
};

}  // namespace test_support

#pragma once

#include <memory>
#include <optional>

#include "host/host_services.h"

// The smallest host there is: a pipe in tension, one combination.

namespace consumer {

inline constexpr UINT only_combination = 1;
inline constexpr wchar_t only_standard[] = L"GB50429-07(A)";

/// Elements of a pipe 100 × 10 in 6061-T6, 2 m long, along X. Dialogs may change what it is
/// designed with.
class Attributes : public CAttrCtrl,
                   public CAttrCtrl2,
                   public CMembCtrl,
                   public CDataCtrl,
                   public CInitCtrl {
 public:
  Attributes() {
    material.strName = material.strGrade = L"6061-T6";
    material.strStandard = only_standard;
    material.dElast = 70000.0;
    material.dPoisson = 0.3;
    material.dFu = 265.0;
    material.dF02Thin = material.dF02Thick = 240.0;
  }

  int GetCountElem(int) const override { return static_cast<int>(count); }
  int GetElem(UINT elem, T_ELEM_D& out) const override {
    out.aNode = {1, 2};
    out.nSect = out.nMatl = 1;
    return elem >= 1 && elem <= count;
  }
  int GetNode(UINT node, T_NODE_D& out) const override {
    out = {node == 1 ? 0.0 : 2000.0, 0.0, 0.0};
    return 1;
  }
  int GetFrlsElem(UINT, T_FRLS_D&) const override { return 0; }
  int GetSupportCondition(UINT, T_SUPPORT_D&) const override { return 0; }
  int GetConnectedElem(UINT, CArray<UINT>&) const override { return 0; }
  int GetMemberType(UINT, int) const override { return 2; }
  int IsFrameType(UINT) const override { return 1; }
  UINT GetMembAssigned(UINT) const override { return 0; }
  int GetMemb(UINT, T_MEMB_D&) const override { return 0; }
  int GetSectDesign(UINT, T_SECT_DESIGN_D& out) const override {
    out.strShape = L"P";
    out.aSize = {100.0, 10.0};
    out.dArea = 2827.43;
    out.dIyy = out.dIzz = 2.898e6;
    out.aPtY = {0.0, 50.0, 0.0, -50.0};
    out.aPtZ = {50.0, 0.0, -50.0, 0.0};
    return 1;
  }
  int GetMatlKeyList(CArray<UINT>& out) const override {
    out.Add(1);
    return 1;
  }
  int GetMatlDesign(UINT, T_MATD_D& out) const override {
    out = material;
    return 1;
  }
  int ExistDalu() const override { return settings ? 1 : 0; }
  int GetDalu(T_DALU_D& out) const override {
    if (settings) out = *settings;
    return ExistDalu();
  }
  int AddDalu(const T_DALU_D& changed) override {
    settings = changed;
    return 1;
  }
  void GetPreference(T_PREFERENCE& out) const override { out.strAluCode = only_standard; }
  int AddMatd(UINT, const T_MATD_D& changed) override {
    material = changed;
    return 1;
  }
  int GetDctl(T_DCTL_D&) const override { return 0; }
  int GetAphi(UINT, T_APHI_D&) const override { return 0; }
  int GetArib(UINT, T_ARIB_D&) const override { return 0; }
  int GetAwed(UINT, T_AWED_D&) const override { return 0; }
  int GetAhtr(UINT, T_AHTR_D&) const override { return 0; }
  int GetCmft(UINT, T_CMFT_D&) const override { return 0; }
  int GetKfac(UINT, T_KFAC_D&) const override { return 0; }
  int GetLtsr(UINT, T_LTSR_D&) const override { return 0; }
  double GetMembTotalLength(UINT) const override { return 0.0; }
  UINT GetShowElemByIncludeElem(UINT elem) const override { return elem; }

  UINT count = 1;
  T_MATD_D material;
  std::optional<T_DALU_D> settings;
};

/// Two alloys, in N/mm².
class Alloys : public CMatlDB {
 public:
  int GetDesignCodeList(int, CArray<CString>& out) const override {
    out.Add(only_standard);
    return 1;
  }
  int GetAluminumNameList(const CString&, CArray<CString>& out) const override {
    for (const wchar_t* grade : {L"6061-T6", L"6063-T6"}) out.Add(grade);
    return 2;
  }
  int GetAluminumData(const CString&, const CString& grade, CString&, T_ALUMINUM_DATA& out, int,
                      double) const override {
    if (grade == L"6061-T6") out = {70000.0, 0.3, 265.0, 240.0, 240.0};
    if (grade == L"6063-T6") out = {70000.0, 0.3, 205.0, 180.0, 180.0};
    return 1;
  }
};

/// 100 kN of tension everywhere; keeps the governing record.
class Results : public CPostCtrl, public CAluDesignMgr {
 public:
  UINT GetOriginElem(int index) const override { return static_cast<UINT>(index); }
  CAluDesignMgr& AluDgnMgr() override { return *this; }
  int CreateDesignResultFile() override { return 1; }
  int WriteDesignResult(UINT, const T_RALU_D& record, UINT lcomb, int, int) override {
    if (lcomb == 0) governing = record;
    return 1;
  }
  int ReadDesignResult(UINT, T_RALU_D& record, UINT, int, int) override {
    record = governing;
    return governing.nHasResult;
  }
  int CheckDesignFile() override { return 1; }
  void SetDesignFlag(int) override {}
  int GetElementForce(UINT, UINT lcomb, T_ALU_FORCE_D& out, bool) override {
    out = T_ALU_FORCE_D();
    for (auto& position : out.aForce) position[0] = 1e5F;
    out.nLComb = lcomb;
    return 1;
  }

  T_RALU_D governing;
};

class Tool : public IAluDgnTool, public CViewCtrl, public CUnitCtrl, public CSectDB {
 public:
  int IsUseAluDgn() const override { return 1; }
  int FiltAluKeysByMatl(const CArray<UINT>& in, CArray<UINT>& out, int) const override {
    out.Copy(in);
    return 1;
  }
  int GetAluDgnLCombs(CArrayEx<T_LCOM_MAXMIN_K>& out, int, int) const override {
    out.Add(only_combination);
    return 1;
  }
  int IsAluMatl(UINT) const override { return 1; }
  int IsAluMatlCode_CH(const CString&) const override { return 1; }
  int Get_SesiType(UINT, const CDBDoc*, int) const override { return 0; }
  void GetAllSelectedElem(CArray<UINT>&) const override {}
  T_UNIT_INDEX GetUnitIndexCurrent() const override { return units; }
  void SetUnitIndexCurrent(const T_UNIT_INDEX& index, int) override { units = index; }
  CString GetUnitSystemLength() const override { return L"mm"; }
  CString GetUnitSystemForce() const override { return L"N"; }
  CString GetUnitText(int) const override { return L"N/mm^2"; }
  double ConvertTgtUnitData2CurUnit(int, int, int, double value) const override { return value; }
  /// A pipe does not warp. The critical moment divides by the constant, so it gets a negligible
  /// one; the shear centre is the centroid.
  int CalcWarpingFuncion(const T_SECT_DESIGN_D& sect, T_WARPING_D& out, int, int, int,
                         double) override {
    const double depth = sect.aSize[0];
    out = {1e-9 * sect.dIzz * depth * depth, 0.0, 0.0};
    return 1;
  }

  T_UNIT_INDEX units;
};

class Document : public CDBDoc {
 public:
  CAttrCtrl& GetAttrCtrl() override { return attributes; }
  CAttrCtrl2& GetAttrCtrl2() override { return attributes; }
  CMembCtrl& GetMembCtrl() override { return attributes; }
  CViewCtrl& GetViewCtrl() override { return tool; }
  CPostCtrl& GetPostCtrl() override { return results; }
  CUnitCtrl& GetUnitCtrl() override { return tool; }
  CSectDB& GetSectDB() override { return tool; }
  IAluDgnTool& GetAluDgnTool() override { return tool; }
  CDataCtrl& GetDataCtrl() override { return attributes; }
  CInitCtrl& GetInitCtrl() override { return attributes; }
  CMatlDB& GetMatlDB() override { return alloys; }
  double calcLAVElem(const T_ELEM_D&) const override { return 2000.0; }
  bool IsRegTestMode() const override { return true; }

  Attributes attributes;
  Results results;
  Tool tool;
  Alloys alloys;
};

class NoProgress : public CDgnProgressDlg {
  void Create_ProgressDlg(const CString&, const CString&, int) override {}
  int Update_ProgressDlg(int, int) override { return 0; }
  void Delete_ProgressDlg() override {}
};

class NoFactors : public CKFactor, public CDgnDynData {
  void SetIsAluDgn(int) override {}
  int Calc_KFactor(const CArray<UINT>&, int, int, int, CDgnDynData&) override { return 0; }
  int GetKFactor(UINT, T_KFAC_D&) const override { return 0; }
  void SetKFactor(UINT, const T_KFAC_D&) override {}
  void RemoveAllKFactors() override {}
};

class TinyHost : public host::HostServices {
 public:
  CDBDoc* DocPoint() override { return &document; }
  CDgnDynData* DgnDynData() override { return &factors; }
  std::unique_ptr<CKFactor> CreateKFactor() override { return std::make_unique<NoFactors>(); }
  std::unique_ptr<CDgnProgressDlg> CreateProgressDlg() override {
    return std::make_unique<NoProgress>();
  }
  CString MessageText(const CString& key) override { return key; }
  int ShowMessageBox(const CString&, UINT) override { return 1; }
  void AluCodeNames(CArray<CString>& out) override { out.Add(only_standard); }
  void DisplayAnalString(const CString&, int) override {}
  void SaveHistory(const CString&, int, void*) override {}
  CString FileNameWithNewExt(const CString& extension) override {
    return CString(L"tiny") + extension;
  }
  int RunTextEditor(const CString&, const CString&) override { return 0; }
  int IsReleaseAssert() override { return 0; }
  void ReleaseAssertion(const wchar_t*, int) override {}

  Document document;
  NoFactors factors;
};

}  // namespace consumer

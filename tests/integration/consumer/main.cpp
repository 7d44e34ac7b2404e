// The smallest host there is: one pipe in tension, one combination. Prints the governing strength
// demand and capacity that the module writes to its store.

#include <cstdio>

#include "host/host_services.h"
#include "tz_alu/dialogs/dgnalucodedlg.h"
#include "tz_alu/dialogs/dgnalumatdlg.h"
#include "tz_alu/engine/alucode_gb50429_07.h"
#include "tz_alu/manager/dgnaludatamgr.h"
#include "tz_alu/module/init_tz_aludll.h"

namespace {

constexpr UINT only_element = 1;
constexpr UINT only_combination = 1;

/// One element of a pipe 100 × 10 in 6061-T6, 2 m long, along X.
class Attributes : public CAttrCtrl, public CAttrCtrl2, public CMembCtrl {
 public:
  int GetCountElem(int) const override { return 1; }
  int GetElem(UINT elem, T_ELEM_D& out) const override {
    out.aNode = {1, 2};
    out.nSect = out.nMatl = 1;
    return elem == only_element;
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
  int GetMatlDesign(UINT, T_MATD_D& out) const override {
    out.strStandard = L"GB50429-07(A)";
    out.strGrade = L"6061-T6";
    out.dElast = 70000.0;
    out.dF02Thin = out.dF02Thick = 240.0;
    return 1;
  }
  int GetDalu(T_DALU_D&) const override { return 0; }
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
};

/// 100 kN of tension everywhere; keeps the governing record.
class Results : public CPostCtrl, public CAluDesignMgr {
 public:
  UINT GetOriginElem(int) const override { return only_element; }
  CAluDesignMgr& AluDgnMgr() override { return *this; }
  int CreateDesignResultFile() override { return 1; }
  int WriteDesignResult(UINT, const T_RALU_D& record, UINT lcomb, int, int) override {
    if (lcomb == 0) governing = record;
    return 1;
  }
  int ReadDesignResult(UINT, T_RALU_D&, UINT, int, int) override { return 0; }
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
  int Get_SesiType(UINT, const CDBDoc*, int) const override { return 0; }
  void GetAllSelectedElem(CArray<UINT>&) const override {}
  T_UNIT_INDEX GetUnitIndexCurrent() const override { return units; }
  void SetUnitIndexCurrent(const T_UNIT_INDEX& index, int) override { units = index; }
  CString GetUnitSystemLength() const override { return L"mm"; }
  CString GetUnitSystemForce() const override { return L"N"; }
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
  double calcLAVElem(const T_ELEM_D&) const override { return 2000.0; }
  bool IsRegTestMode() const override { return true; }

  Attributes attributes;
  Results results;
  Tool tool;
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

}  // namespace

int main() {
  TinyHost tiny;
  host::Bind(tiny);
  Init_tz_aludll();
  const int flag = IAluDgnDataMgr::Instance()->CheckCode(nullptr);
  const int code = CDgnAluCodeDlg().DoModal();
  const int materials = CDgnAluMatDlg().DoModal();
  host::Unbind();
  const T_RALU_ITEM& strength = tiny.document.results.governing.aComp[RALU_STRENGTH];
  std::printf("flag %d strength %.6f %.6f dialogs %d %d\n", flag, strength.dDemand,
              strength.dCapacity, code, materials);
  return 0;
}

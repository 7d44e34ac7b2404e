#include "tests/support/fault_host.h"

#include <utility>

#include "tests/support/fault_attributes.h"

// The other services of the contract, each call counted and handed on.

namespace test_support {

namespace {

class FaultViewCtrl : public Counted<CViewCtrl> {
 public:
  using Counted::Counted;

  void GetAllSelectedElem(CArray<UINT>& out) const override {
    counter_.Count();
    return inner_.GetAllSelectedElem(out);
  }
};

class FaultUnitCtrl : public Counted<CUnitCtrl> {
 public:
  using Counted::Counted;

  T_UNIT_INDEX GetUnitIndexCurrent() const override {
    counter_.Count();
    return inner_.GetUnitIndexCurrent();
  }
  void SetUnitIndexCurrent(const T_UNIT_INDEX& index, int option) override {
    counter_.Count();
    return inner_.SetUnitIndexCurrent(index, option);
  }
  CString GetUnitSystemLength() const override {
    counter_.Count();
    return inner_.GetUnitSystemLength();
  }
  CString GetUnitSystemForce() const override {
    counter_.Count();
    return inner_.GetUnitSystemForce();
  }
  double ConvertTgtUnitData2CurUnit(int length, int force, int kind, double value) const override {
    counter_.Count();
    return inner_.ConvertTgtUnitData2CurUnit(length, force, kind, value);
  }
};

class FaultDesignMgr : public Counted<CAluDesignMgr> {
 public:
  using Counted::Counted;

  int CreateDesignResultFile() override {
    counter_.Count();
    return inner_.CreateDesignResultFile();
  }
  int WriteDesignResult(UINT elem, const T_RALU_D& record, UINT lcomb, int minSide,
                        int option) override {
    counter_.Count();
    return inner_.WriteDesignResult(elem, record, lcomb, minSide, option);
  }
  int ReadDesignResult(UINT elem, T_RALU_D& record, UINT lcomb, int minSide, int option) override {
    counter_.Count();
    return inner_.ReadDesignResult(elem, record, lcomb, minSide, option);
  }
  int CheckDesignFile() override {
    counter_.Count();
    return inner_.CheckDesignFile();
  }
  void SetDesignFlag(int flag) override {
    counter_.Count();
    return inner_.SetDesignFlag(flag);
  }
  int GetElementForce(UINT elem, UINT lcomb, T_ALU_FORCE_D& out, bool minSide) override {
    counter_.Count();
    return inner_.GetElementForce(elem, lcomb, out, minSide);
  }
};

class FaultSectDB : public Counted<CSectDB> {
 public:
  using Counted::Counted;

  int CalcWarpingFuncion(const T_SECT_DESIGN_D& sect, T_WARPING_D& out, int flag, int option1,
                         int option2, double option3) override {
    counter_.Count();
    return inner_.CalcWarpingFuncion(sect, out, flag, option1, option2, option3);
  }
};

class FaultDgnTool : public Counted<IAluDgnTool> {
 public:
  using Counted::Counted;

  int IsUseAluDgn() const override {
    counter_.Count();
    return inner_.IsUseAluDgn();
  }
  int FiltAluKeysByMatl(const CArray<UINT>& in, CArray<UINT>& out, int option) const override {
    counter_.Count();
    return inner_.FiltAluKeysByMatl(in, out, option);
  }
  int GetAluDgnLCombs(CArrayEx<T_LCOM_MAXMIN_K>& out, int kind, int option) const override {
    counter_.Count();
    return inner_.GetAluDgnLCombs(out, kind, option);
  }
  int Get_SesiType(UINT lcomb, const CDBDoc* doc, int kind) const override {
    counter_.Count();
    return inner_.Get_SesiType(lcomb, doc, kind);
  }
};

class FaultDynData : public Counted<CDgnDynData> {
 public:
  using Counted::Counted;

  int GetKFactor(UINT elem, T_KFAC_D& out) const override {
    counter_.Count();
    return inner_.GetKFactor(elem, out);
  }
  void SetKFactor(UINT elem, const T_KFAC_D& factors) override {
    counter_.Count();
    return inner_.SetKFactor(elem, factors);
  }
  void RemoveAllKFactors() override {
    counter_.Count();
    return inner_.RemoveAllKFactors();
  }
};

class FaultPostCtrl : public Counted<CPostCtrl> {
 public:
  FaultPostCtrl(CPostCtrl& inner, CallCounter& counter)
      : Counted(inner, counter), design_mgr_(inner.AluDgnMgr(), counter) {}

  UINT GetOriginElem(int index) const override {
    counter_.Count();
    return inner_.GetOriginElem(index);
  }
  CAluDesignMgr& AluDgnMgr() override {
    counter_.Count();
    return design_mgr_;
  }
  int GetStld(UINT number, T_STLD_D& out) const override {
    counter_.Count();
    return inner_.GetStld(number, out);
  }

 private:
  FaultDesignMgr design_mgr_;
};

class FaultProgress : public CDgnProgressDlg {
 public:
  FaultProgress(std::unique_ptr<CDgnProgressDlg> inner, CallCounter& counter)
      : inner_(std::move(inner)), counter_(counter) {}

  void Create_ProgressDlg(const CString& title, const CString& text, int cancellable) override {
    counter_.Count();
    inner_->Create_ProgressDlg(title, text, cancellable);
  }
  int Update_ProgressDlg(int done, int total) override {
    counter_.Count();
    return inner_->Update_ProgressDlg(done, total);
  }
  void Delete_ProgressDlg() override {
    counter_.Count();
    inner_->Delete_ProgressDlg();
  }

 private:
  std::unique_ptr<CDgnProgressDlg> inner_;
  CallCounter& counter_;
};

class FaultKFactor : public CKFactor {
 public:
  FaultKFactor(std::unique_ptr<CKFactor> inner, CallCounter& counter)
      : inner_(std::move(inner)), counter_(counter) {}

  void SetIsAluDgn(int on) override {
    counter_.Count();
    inner_->SetIsAluDgn(on);
  }
  int Calc_KFactor(const CArray<UINT>& elems, int option1, int option2, int option3,
                   CDgnDynData& out) override {
    counter_.Count();
    return inner_->Calc_KFactor(elems, option1, option2, option3, out);
  }

 private:
  std::unique_ptr<CKFactor> inner_;
  CallCounter& counter_;
};

}  // namespace

struct FaultHost::Document : CDBDoc {
  Document(CDBDoc& inner, CallCounter& counter)
      : inner_(inner),
        counter_(counter),
        attr_(inner.GetAttrCtrl(), counter),
        attr2_(inner.GetAttrCtrl2(), counter),
        memb_(inner.GetMembCtrl(), counter),
        view_(inner.GetViewCtrl(), counter),
        post_(inner.GetPostCtrl(), counter),
        unit_(inner.GetUnitCtrl(), counter),
        sect_(inner.GetSectDB(), counter),
        tool_(inner.GetAluDgnTool(), counter) {}

  CAttrCtrl& GetAttrCtrl() override {
    counter_.Count();
    return attr_;
  }
  CAttrCtrl2& GetAttrCtrl2() override {
    counter_.Count();
    return attr2_;
  }
  CMembCtrl& GetMembCtrl() override {
    counter_.Count();
    return memb_;
  }
  CViewCtrl& GetViewCtrl() override {
    counter_.Count();
    return view_;
  }
  CPostCtrl& GetPostCtrl() override {
    counter_.Count();
    return post_;
  }
  CUnitCtrl& GetUnitCtrl() override {
    counter_.Count();
    return unit_;
  }
  CSectDB& GetSectDB() override {
    counter_.Count();
    return sect_;
  }
  IAluDgnTool& GetAluDgnTool() override {
    counter_.Count();
    return tool_;
  }
  double calcLAVElem(const T_ELEM_D& elem) const override {
    counter_.Count();
    return inner_.calcLAVElem(elem);
  }
  bool IsRegTestMode() const override {
    counter_.Count();
    return inner_.IsRegTestMode();
  }

 private:
  CDBDoc& inner_;
  CallCounter& counter_;
  FaultAttrCtrl attr_;
  FaultAttrCtrl2 attr2_;
  FaultMembCtrl memb_;
  FaultViewCtrl view_;
  FaultPostCtrl post_;
  FaultUnitCtrl unit_;
  FaultSectDB sect_;
  FaultDgnTool tool_;
};

FaultHost::FaultHost(host::HostServices& inner, int failing_call)
    : inner_(inner),
      counter_(failing_call),
      document_(std::make_unique<Document>(*inner.DocPoint(), counter_)),
      dyn_data_(std::make_unique<FaultDynData>(*inner.DgnDynData(), counter_)) {}

FaultHost::~FaultHost() = default;

CDBDoc* FaultHost::DocPoint() {
  counter_.Count();
  return document_.get();
}

CDgnDynData* FaultHost::DgnDynData() {
  counter_.Count();
  return dyn_data_.get();
}

std::unique_ptr<CKFactor> FaultHost::CreateKFactor() {
  counter_.Count();
  return std::make_unique<FaultKFactor>(inner_.CreateKFactor(), counter_);
}

std::unique_ptr<CDgnProgressDlg> FaultHost::CreateProgressDlg() {
  counter_.Count();
  return std::make_unique<FaultProgress>(inner_.CreateProgressDlg(), counter_);
}

CString FaultHost::MessageText(const CString& key) {
  counter_.Count();
  return inner_.MessageText(key);
}

int FaultHost::ShowMessageBox(const CString& text, UINT type) {
  counter_.Count();
  return inner_.ShowMessageBox(text, type);
}

void FaultHost::DisplayAnalString(const CString& text, int option) {
  counter_.Count();
  inner_.DisplayAnalString(text, option);
}

void FaultHost::SaveHistory(const CString& text, int option, void* reserved) {
  counter_.Count();
  inner_.SaveHistory(text, option, reserved);
}

CString FaultHost::FileNameWithNewExt(const CString& extension) {
  counter_.Count();
  return inner_.FileNameWithNewExt(extension);
}

int FaultHost::RunTextEditor(const CString& path, const CString& title) {
  counter_.Count();
  return inner_.RunTextEditor(path, title);
}

int FaultHost::IsReleaseAssert() {
  counter_.Count();
  return inner_.IsReleaseAssert();
}

void FaultHost::ReleaseAssertion(const wchar_t* source, int line) {
  counter_.Count();
  inner_.ReleaseAssertion(source, line);
}

}  // namespace test_support

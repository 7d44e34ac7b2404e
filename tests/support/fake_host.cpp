#include "tests/support/fake_host.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "tests/support/fake_attributes.h"

namespace test_support {

namespace {

std::string pair_text(int first, char separator, int second) {
  return std::to_string(first) + separator + std::to_string(second);
}

class FakeDynData : public CDgnDynData {
 public:
  int GetKFactor(UINT elem, T_KFAC_D& out) const override {
    const auto found = factors_.find(elem);
    if (found == factors_.end()) return 0;
    out = found->second;
    return 1;
  }
  void SetKFactor(UINT elem, const T_KFAC_D& factors) override { factors_[elem] = factors; }
  void RemoveAllKFactors() override { factors_.clear(); }

 private:
  std::map<UINT, T_KFAC_D> factors_;
};

class FakeKFactor : public CKFactor {
 public:
  FakeKFactor(const FakeModel& model, HostLog& log) : model_(model), log_(log) {
    ++log_.objects_alive;
  }
  ~FakeKFactor() override { --log_.objects_alive; }

  void SetIsAluDgn(int on) override { is_alu_dgn_ = on; }
  int Calc_KFactor(const CArray<UINT>& elems, int option1, int option2, int option3,
                   CDgnDynData& out) override {
    log_.events.emplace_back("length factors computed");
    log_.k_factor_passes.push_back(
        {is_alu_dgn_, {elems.begin(), elems.end()}, {option1, option2, option3}});
    for (const auto& [elem, factors] : model_.length_factors) out.SetKFactor(elem, factors);
    return 1;
  }

 private:
  const FakeModel& model_;
  HostLog& log_;
  int is_alu_dgn_ = 0;
};

class FakeProgress : public CDgnProgressDlg {
 public:
  FakeProgress(const FakeModel& model, HostLog& log) : model_(model), log_(log) {
    ++log_.objects_alive;
  }
  ~FakeProgress() override {
    log_.is_progress_open = false;
    --log_.objects_alive;
  }

  void Create_ProgressDlg(const CString& title, const CString& text, int cancellable) override {
    log_.events.emplace_back("progress opened");
    log_.progress_title = title.GetString();
    log_.progress_text = text.GetString();
    log_.progress_cancellable = cancellable;
    log_.is_progress_open = true;
  }
  int Update_ProgressDlg(int done, int total) override {
    log_.events.push_back("progress " + pair_text(done, '/', total));
    return ++updates_ == model_.cancel_at_update ? 1 : 0;
  }
  void Delete_ProgressDlg() override {
    log_.events.emplace_back("progress closed");
    log_.is_progress_open = false;
  }

 private:
  const FakeModel& model_;
  HostLog& log_;
  int updates_ = 0;
};

class FakeView : public CViewCtrl {
 public:
  explicit FakeView(const FakeModel& model) : model_(model) {}
  void GetAllSelectedElem(CArray<UINT>& out) const override {
    out.RemoveAll();
    for (const UINT elem : model_.selection) out.Add(elem);
  }

 private:
  const FakeModel& model_;
};

class FakeUnits : public CUnitCtrl {
 public:
  explicit FakeUnits(FakeHost& host) : model_(host.model), units_(host.units), log_(host.log) {}
  T_UNIT_INDEX GetUnitIndexCurrent() const override { return units_; }
  void SetUnitIndexCurrent(const T_UNIT_INDEX& index, int) override {
    const auto& failing = model_.failing_unit_changes;
    if (std::find(failing.begin(), failing.end(), ++changes_) != failing.end()) {
      throw std::runtime_error("the units cannot be changed");
    }
    units_ = index;
    log_.events.push_back("units " + pair_text(index.nForce, ',', index.nLength));
  }
  CString GetUnitSystemLength() const override { return model_.length_unit; }
  CString GetUnitSystemForce() const override { return model_.force_unit; }
  double ConvertTgtUnitData2CurUnit(int length, int force, int kind, double value) const override {
    log_.conversions.push_back({length, force, kind});
    return value * (kind == 1 ? model_.length_factor : model_.force_factor);
  }

 private:
  const FakeModel& model_;
  T_UNIT_INDEX& units_;
  HostLog& log_;
  int changes_ = 0;
};

class FakeResults : public CPostCtrl, public CAluDesignMgr {
 public:
  FakeResults(const FakeModel& model, HostLog& log) : model_(model), log_(log) {}

  UINT GetOriginElem(int index) const override {
    return model_.element_order.at(static_cast<std::size_t>(index - 1));
  }
  CAluDesignMgr& AluDgnMgr() override { return *this; }
  int GetStld(UINT number, T_STLD_D& out) const override {
    return model_.named({LCOM_ENTRY_STATIC, 0}, number, out);
  }

  int CreateDesignResultFile() override {
    if (!model_.can_create_result_file) return 0;
    log_.events.emplace_back("result file created");
    return 1;
  }
  int WriteDesignResult(UINT elem, const T_RALU_D& record, UINT lcomb, int minSide,
                        int option) override {
    log_.events.push_back("written " + std::to_string(elem) + "/" + std::to_string(lcomb) + "/" +
                          std::to_string(minSide));
    log_.written.push_back({elem, lcomb, minSide, option, record});
    return 1;
  }
  int ReadDesignResult(UINT elem, T_RALU_D& record, UINT lcomb, int minSide, int) override {
    const auto is_asked_for = [&](const WrittenRecord& written) {
      return written.elem == elem && written.lcomb == lcomb && written.min_side == minSide;
    };
    const auto found = std::find_if(log_.written.rbegin(), log_.written.rend(), is_asked_for);
    if (found == log_.written.rend()) return 0;
    record = found->record;
    return 1;
  }
  int CheckDesignFile() override {
    log_.events.emplace_back("result file checked");
    return model_.design_file_check;
  }
  void SetDesignFlag(int flag) override {
    log_.events.push_back("design flag " + std::to_string(flag));
    log_.design_flags.push_back(flag);
  }
  int GetElementForce(UINT elem, UINT lcomb, T_ALU_FORCE_D& out, bool minSide) override {
    log_.force_reads.emplace_back(elem, lcomb, minSide);
    const auto found = model_.forces.find({elem, lcomb, minSide});
    if (found == model_.forces.end()) return 0;
    out = found->second;
    return 1;
  }

 private:
  const FakeModel& model_;
  HostLog& log_;
};

class FakeSections : public CSectDB {
 public:
  FakeSections(const FakeModel& model, HostLog& log) : model_(model), log_(log) {}
  int CalcWarpingFuncion(const T_SECT_DESIGN_D& sect, T_WARPING_D& out, int flag, int option1,
                         int option2, double option3) override {
    log_.warping_calls.push_back({sect.strShape.GetString(), flag, option1, option2, option3});
    out = model_.warping;
    return model_.computes_warping ? 1 : 0;
  }

 private:
  const FakeModel& model_;
  HostLog& log_;
};

class FakeTool : public IAluDgnTool {
 public:
  FakeTool(const FakeModel& model, HostLog& log) : model_(model), log_(log) {}

  int IsUseAluDgn() const override { return model_.is_use_alu; }
  int FiltAluKeysByMatl(const CArray<UINT>& in, CArray<UINT>& out, int) const override {
    const auto& others = model_.other_metals;
    out.RemoveAll();
    for (const UINT elem : in) {
      if (std::find(others.begin(), others.end(), elem) == others.end()) out.Add(elem);
    }
    return static_cast<int>(out.GetSize());
  }
  int GetAluDgnLCombs(CArrayEx<T_LCOM_MAXMIN_K>& out, int kind, int) const override {
    out.RemoveAll();
    if (kind != kAluDesignKind) return 0;
    for (const T_LCOM_MAXMIN_K key : model_.combinations) out.Add(key);
    return static_cast<int>(out.GetSize());
  }
  int Get_SesiType(UINT lcomb, const CDBDoc*, int kind) const override {
    log_.events.push_back("seismic type of " + std::to_string(lcomb) + " read");
    const auto found = model_.seismic_types.find(lcomb);
    return kind != kAluDesignKind || found == model_.seismic_types.end() ? 0 : found->second;
  }

 private:
  const FakeModel& model_;
  HostLog& log_;
};

}  // namespace

struct FakeHost::Document : CDBDoc {
  explicit Document(FakeHost& host)
      : model_(host.model),
        attributes_(host.model, host.log),
        view_(host.model),
        results_(host.model, host.log),
        units_(host),
        sections_(host.model, host.log),
        tool_(host.model, host.log) {}

  CAttrCtrl& GetAttrCtrl() override { return attributes_; }
  CAttrCtrl2& GetAttrCtrl2() override { return attributes_; }
  CMembCtrl& GetMembCtrl() override { return attributes_; }
  CViewCtrl& GetViewCtrl() override { return view_; }
  CPostCtrl& GetPostCtrl() override { return results_; }
  CUnitCtrl& GetUnitCtrl() override { return units_; }
  CSectDB& GetSectDB() override { return sections_; }
  IAluDgnTool& GetAluDgnTool() override { return tool_; }
  double calcLAVElem(const T_ELEM_D& elem) const override { return attributes_.length_of(elem); }
  bool IsRegTestMode() const override { return model_.is_reg_test_mode; }

  FakeDynData dyn_data;

 private:
  const FakeModel& model_;
  FakeAttributes attributes_;
  FakeView view_;
  FakeResults results_;
  FakeUnits units_;
  FakeSections sections_;
  FakeTool tool_;
};

FakeHost::FakeHost(FakeModel tables)
    : model(std::move(tables)), document_(std::make_unique<Document>(*this)) {}

FakeHost::~FakeHost() = default;

CDBDoc* FakeHost::DocPoint() {
  return document_.get();
}

CDgnDynData* FakeHost::DgnDynData() {
  return &document_->dyn_data;
}

std::unique_ptr<CKFactor> FakeHost::CreateKFactor() {
  return std::make_unique<FakeKFactor>(model, log);
}

std::unique_ptr<CDgnProgressDlg> FakeHost::CreateProgressDlg() {
  return std::make_unique<FakeProgress>(model, log);
}

CString FakeHost::MessageText(const CString& key) {
  return CString(L"[") + key + L"]";
}

int FakeHost::ShowMessageBox(const CString& text, UINT type) {
  log.events.emplace_back("message shown");
  log.messages.push_back({text.GetString(), type});
  return 1;
}

void FakeHost::DisplayAnalString(const CString& text, int) {
  log.events.emplace_back("status line written");
  log.status_lines.emplace_back(text.GetString());
}

void FakeHost::SaveHistory(const CString& text, int, void*) {
  log.events.emplace_back("history written");
  log.history.emplace_back(text.GetString());
}

CString FakeHost::FileNameWithNewExt(const CString& extension) {
  return CString(model.document_path) + extension;
}

int FakeHost::RunTextEditor(const CString& path, const CString& title) {
  log.events.emplace_back("editor started");
  log.edited.push_back({path.GetString(), title.GetString()});
  return 1;
}

int FakeHost::IsReleaseAssert() {
  return model.is_release_assert;
}

void FakeHost::ReleaseAssertion(const wchar_t* source, int line) {
  log.assertions.push_back({source, line});
}

}  // namespace test_support

#include "tests/gui/settings_host.h"

#include <algorithm>

#include "tests/support/fake_attributes.h"

namespace gui_test {

namespace {

constexpr wchar_t shown_prefix[] = L"shown ";
constexpr wchar_t never_offered[] = L"GB50068-2018";

class Attributes : public test_support::FakeAttributes {
 public:
  explicit Attributes(SettingsHost& host) : FakeAttributes(host.model, host.log), host_(host) {}

  int ExistDalu() const override { return host_.model.settings ? 1 : 0; }
  int GetMatlKeyList(CArray<UINT>& out) const override {
    for (const auto& [key, material] : host_.model.materials) out.Add(key);
    return static_cast<int>(host_.model.materials.size());
  }

 private:
  SettingsHost& host_;
};

class Tool : public IAluDgnTool {
 public:
  explicit Tool(SettingsHost& host) : host_(host) {}

  int IsUseAluDgn() const override { return 1; }
  int FiltAluKeysByMatl(const CArray<UINT>&, CArray<UINT>&, int) const override { return 0; }
  int GetAluDgnLCombs(CArrayEx<T_LCOM_MAXMIN_K>&, int, int) const override { return 0; }
  int Get_SesiType(UINT, const CDBDoc*, int) const override { return 0; }
  int IsAluMatl(UINT matl) const override {
    return std::ranges::find(host_.other_materials, matl) == host_.other_materials.end() ? 1 : 0;
  }
  int GetDgnAluMatlDBType() const override { return 5; }
  int IsAluMatlCode_CH(const CString& code) const override { return code != L"foreign" ? 1 : 0; }

 private:
  SettingsHost& host_;
};

class Units : public CUnitCtrl {
 public:
  T_UNIT_INDEX GetUnitIndexCurrent() const override { return {}; }
  void SetUnitIndexCurrent(const T_UNIT_INDEX&, int) override {}
  CString GetUnitSystemLength() const override { return L"m"; }
  CString GetUnitSystemForce() const override { return L"kN"; }
  double ConvertTgtUnitData2CurUnit(int, int, int, double value) const override { return value; }
  CString GetUnitText(int type) const override { return type == 17 ? L"kN/m\u00B2" : L"?"; }
};

class Store : public CDataCtrl, public CInitCtrl {
 public:
  explicit Store(SettingsHost& host) : host_(host) {}

  int AddDalu(const T_DALU_D& settings) override {
    if (!host_.can_store) return 0;
    host_.stored_settings.push_back(settings);
    host_.model.settings = settings;
    return 1;
  }
  int AddMatd(UINT matl, const T_MATD_D& material) override {
    if (!host_.can_store) return 0;
    host_.stored_materials.emplace_back(matl, material);
    host_.model.materials[matl] = material;
    return 1;
  }
  void GetPreference(T_PREFERENCE& out) const override { out.strAluCode = host_.preferred_code; }

 private:
  SettingsHost& host_;
};

class Database : public CMatlDB {
 public:
  explicit Database(const SettingsHost& host) : host_(host) {}

  int GetDesignCodeList(int type, CArray<CString>& out) const override {
    if (type != 5) return 0;
    for (const wchar_t* standard : {L"foreign", L"GB", L"GB-T"}) out.Add(standard);
    return 3;
  }
  int GetAluminumNameList(const CString& code, CArray<CString>& out) const override {
    for (const HostAlloy& alloy : host_.alloys) {
      if (code == alloy.standard.c_str()) out.Add(alloy.grade);
    }
    return static_cast<int>(out.GetSize());
  }
  int GetAluminumData(const CString& code, const CString& grade, CString&, T_ALUMINUM_DATA& out,
                      int, double) const override {
    const auto found = std::ranges::find_if(host_.alloys, [&](const HostAlloy& alloy) {
      return code == alloy.standard.c_str() && grade == alloy.grade.c_str();
    });
    if (found == host_.alloys.end()) return 0;
    out = found->values;
    return 1;
  }

 private:
  const SettingsHost& host_;
};

}  // namespace

class SettingsHost::Document : public CDBDoc {
 public:
  Document(SettingsHost& host, CDBDoc& base)
      : base_(base), attributes_(host), tool_(host), store_(host), database_(host) {}

  CAttrCtrl& GetAttrCtrl() override { return attributes_; }
  CAttrCtrl2& GetAttrCtrl2() override { return base_.GetAttrCtrl2(); }
  CMembCtrl& GetMembCtrl() override { return base_.GetMembCtrl(); }
  CViewCtrl& GetViewCtrl() override { return base_.GetViewCtrl(); }
  CPostCtrl& GetPostCtrl() override { return base_.GetPostCtrl(); }
  CUnitCtrl& GetUnitCtrl() override { return units_; }
  CSectDB& GetSectDB() override { return base_.GetSectDB(); }
  IAluDgnTool& GetAluDgnTool() override { return tool_; }
  CDataCtrl& GetDataCtrl() override { return store_; }
  CInitCtrl& GetInitCtrl() override { return store_; }
  CMatlDB& GetMatlDB() override { return database_; }
  double calcLAVElem(const T_ELEM_D& elem) const override { return base_.calcLAVElem(elem); }
  bool IsRegTestMode() const override { return false; }

 private:
  CDBDoc& base_;
  Attributes attributes_;
  Tool tool_;
  Units units_;
  Store store_;
  Database database_;
};

SettingsHost::SettingsHost() : document_(std::make_unique<Document>(*this, *FakeHost::DocPoint())) {
  host::Bind(*this);
}

SettingsHost::~SettingsHost() {
  host::Unbind();
}

CDBDoc* SettingsHost::DocPoint() {
  return document_.get();
}

void SettingsHost::AluCodeNames(CArray<CString>& out) {
  for (const std::wstring& code : codes) out.Add(code);
}

CString SettingsHost::ShownCodeName(const CString& internal) {
  return internal == never_offered ? internal : shown_prefix + internal;
}

CString SettingsHost::InternalCodeName(const CString& shown) {
  const std::wstring text = shown.GetString();
  return text.starts_with(shown_prefix) ? text.substr(std::wstring(shown_prefix).size()) : text;
}

}  // namespace gui_test

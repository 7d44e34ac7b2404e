#include "tests/support/dialog_host.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "tests/support/fake_attributes.h"

namespace test_support {

namespace {

constexpr wchar_t shown_prefix[] = L"shown ";
constexpr wchar_t same_to_both[] = L"GB50068-2018";

class Attributes : public FakeAttributes {
 public:
  explicit Attributes(DialogHost& host) : FakeAttributes(host.model, host.log), host_(host) {}

  int GetDalu(T_DALU_D& out) const override {
    host_.Enter("GetDalu");
    return FakeAttributes::GetDalu(out);
  }
  int ExistDalu() const override {
    host_.Enter("ExistDalu");
    return host_.model.settings ? 1 : 0;
  }
  int GetMatlKeyList(CArray<UINT>& out) const override {
    host_.Enter("GetMatlKeyList");
    if (host_.material_keys) {
      for (const UINT key : *host_.material_keys) out.Add(key);
    } else {
      for (const auto& [key, material] : host_.model.materials) out.Add(key);
    }
    return static_cast<int>(out.GetSize());
  }
  int GetMatlDesign(UINT matl, T_MATD_D& out) const override {
    host_.Enter("GetMatlDesign");
    return FakeAttributes::GetMatlDesign(matl, out);
  }

 private:
  DialogHost& host_;
};

template <class LIST, class VALUE>
bool holds(const LIST& list, const VALUE& value) {
  return std::find(list.begin(), list.end(), value) != list.end();
}

class Tool : public IAluDgnTool {
 public:
  explicit Tool(DialogHost& host) : host_(host) {}

  int IsUseAluDgn() const override { return 1; }
  int FiltAluKeysByMatl(const CArray<UINT>&, CArray<UINT>&, int) const override { return 0; }
  int GetAluDgnLCombs(CArrayEx<T_LCOM_MAXMIN_K>&, int, int) const override { return 0; }
  int Get_SesiType(UINT, const CDBDoc*, int) const override { return 0; }
  int IsAluMatl(UINT matl) const override {
    host_.Enter("IsAluMatl");
    return holds(host_.other_materials, matl) ? 0 : 1;
  }
  int GetDgnAluMatlDBType() const override {
    host_.Enter("GetDgnAluMatlDBType");
    return host_.alloy_database;
  }
  int IsAluMatlCode_CH(const CString& code) const override {
    host_.Enter("IsAluMatlCode_CH");
    return holds(host_.foreign_standards, std::wstring(code.GetString())) ? 0 : 1;
  }

 private:
  DialogHost& host_;
};

class Units : public CUnitCtrl {
 public:
  explicit Units(DialogHost& host) : host_(host) {}

  T_UNIT_INDEX GetUnitIndexCurrent() const override { return host_.units; }
  void SetUnitIndexCurrent(const T_UNIT_INDEX& index, int) override { host_.units = index; }
  CString GetUnitSystemLength() const override { return host_.model.length_unit; }
  CString GetUnitSystemForce() const override { return host_.model.force_unit; }
  double ConvertTgtUnitData2CurUnit(int, int, int, double value) const override { return value; }
  CString GetUnitText(int type) const override {
    host_.Enter("GetUnitText");
    return L"unit " + std::to_wstring(type);
  }

 private:
  DialogHost& host_;
};

class Store : public CDataCtrl, public CInitCtrl {
 public:
  explicit Store(DialogHost& host) : host_(host) {}

  int AddDalu(const T_DALU_D& settings) override {
    host_.Enter("AddDalu");
    if (!host_.can_store) return 0;
    host_.stored_settings.push_back(settings);
    host_.model.settings = settings;
    return 1;
  }
  int AddMatd(UINT matl, const T_MATD_D& material) override {
    host_.Enter("AddMatd");
    if (!host_.can_store) return 0;
    host_.stored_materials.emplace_back(matl, material);
    host_.model.materials[matl] = material;
    return 1;
  }
  void GetPreference(T_PREFERENCE& out) const override {
    host_.Enter("GetPreference");
    out.strAluCode = host_.preferred_code;
  }

 private:
  DialogHost& host_;
};

class Database : public CMatlDB {
 public:
  explicit Database(DialogHost& host) : host_(host) {}

  int GetDesignCodeList(int type, CArray<CString>& out) const override {
    host_.Enter("GetDesignCodeList");
    if (type != host_.alloy_database) return 0;
    for (const std::wstring& standard : host_.standards) out.Add(standard);
    return static_cast<int>(out.GetSize());
  }
  int GetAluminumNameList(const CString& code, CArray<CString>& out) const override {
    host_.Enter("GetAluminumNameList");
    for (const DatabaseAlloy& alloy : host_.alloys) {
      if (code == alloy.standard.c_str()) out.Add(alloy.grade);
    }
    return static_cast<int>(out.GetSize());
  }
  int GetAluminumData(const CString& code, const CString& grade, CString& text,
                      T_ALUMINUM_DATA& out, int option, double thickness) const override {
    host_.Enter("GetAluminumData");
    if (option != 0 || thickness != 0.0) return 0;
    for (const DatabaseAlloy& alloy : host_.alloys) {
      if (!(code == alloy.standard.c_str()) || !(grade == alloy.grade.c_str())) continue;
      text = code + L" " + grade;
      out = alloy.values;
      return 1;
    }
    return 0;
  }

 private:
  DialogHost& host_;
};

}  // namespace

struct DialogHost::Settings : CDBDoc {
  Settings(DialogHost& host, CDBDoc& frame)
      : frame_(frame),
        attributes_(host),
        tool_(host),
        units_(host),
        store_(host),
        database_(host) {}

  CAttrCtrl& GetAttrCtrl() override { return attributes_; }
  CAttrCtrl2& GetAttrCtrl2() override { return frame_.GetAttrCtrl2(); }
  CMembCtrl& GetMembCtrl() override { return frame_.GetMembCtrl(); }
  CViewCtrl& GetViewCtrl() override { return frame_.GetViewCtrl(); }
  CPostCtrl& GetPostCtrl() override { return frame_.GetPostCtrl(); }
  CUnitCtrl& GetUnitCtrl() override { return units_; }
  CSectDB& GetSectDB() override { return frame_.GetSectDB(); }
  IAluDgnTool& GetAluDgnTool() override { return tool_; }
  CDataCtrl& GetDataCtrl() override { return store_; }
  CInitCtrl& GetInitCtrl() override { return store_; }
  CMatlDB& GetMatlDB() override { return database_; }
  double calcLAVElem(const T_ELEM_D& elem) const override { return frame_.calcLAVElem(elem); }
  bool IsRegTestMode() const override { return false; }

 private:
  CDBDoc& frame_;
  Attributes attributes_;
  Tool tool_;
  Units units_;
  Store store_;
  Database database_;
};

DialogHost::DialogHost() : settings_(std::make_unique<Settings>(*this, *FakeHost::DocPoint())) {
  host::Bind(*this);
}

DialogHost::~DialogHost() {
  host::Unbind();
}

void DialogHost::Enter(const char* service) {
  calls.emplace_back(service);
  if (failing_service == service) throw std::runtime_error(failing_service + " failed");
}

CDBDoc* DialogHost::DocPoint() {
  Enter("GetDocPoint");
  return settings_.get();
}

CString DialogHost::MessageText(const CString& key) {
  Enter("MessageText");
  return FakeHost::MessageText(key);
}

void DialogHost::AluCodeNames(CArray<CString>& out) {
  Enter("GetAluCodeNameList");
  for (const std::wstring& code : codes) out.Add(code);
}

CString DialogHost::ShownCodeName(const CString& internal) {
  Enter("ViewConvertCodeName");
  return internal == same_to_both ? internal : shown_prefix + internal;
}

CString DialogHost::InternalCodeName(const CString& shown) {
  Enter("GetConvertCodeName");
  const std::wstring text = shown.GetString();
  return text.starts_with(shown_prefix) ? text.substr(std::wstring(shown_prefix).size()) : text;
}

}  // namespace test_support

#pragma once

#include <unordered_map>
#include <utility>
#include <vector>

#include "aluframe/members/length_factors.h"
#include "aluframe/services/alloy_database.h"
#include "aluframe/services/attributes.h"
#include "aluframe/services/design_codes.h"
#include "aluframe/services/design_manager.h"
#include "aluframe/services/design_tool.h"
#include "aluframe/services/model_editor.h"
#include "aluframe/services/unit_scale.h"
#include "host/tz_db/services.h"
#include "host/tz_dgn/tz_dgn.h"

namespace aluframe::services {

/// The current units; the services read `scale` at every call.
class UnitControl : public CUnitCtrl {
 public:
  explicit UnitControl(UnitScale& scale) : scale_(scale) {}
  T_UNIT_INDEX GetUnitIndexCurrent() const override { return scale_.index(); }
  void SetUnitIndexCurrent(const T_UNIT_INDEX& index, int) override { scale_ = UnitScale(index); }
  CString GetUnitSystemLength() const override;
  CString GetUnitSystemForce() const override;
  double ConvertTgtUnitData2CurUnit(int length, int force, int kind, double value) const override;
  /// Of a stress (17), "N/mm\u00B2"; empty for other types, which nothing shows.
  CString GetUnitText(int type) const override;

 private:
  UnitScale& scale_;
};

/// Warping constant and shear centre from the section library.
class SectionDatabase : public CSectDB {
 public:
  explicit SectionDatabase(const UnitScale& scale) : scale_(scale) {}
  int CalcWarpingFuncion(const T_SECT_DESIGN_D& sect, T_WARPING_D& out, int flag, int option1,
                         int option2, double option3) override;

 private:
  const UnitScale& scale_;
};

/// Effective length factors of the run, by display key.
class DesignData : public CDgnDynData {
 public:
  int GetKFactor(UINT elem, T_KFAC_D& out) const override;
  void SetKFactor(UINT elem, const T_KFAC_D& factors) override { factors_[elem] = factors; }
  void RemoveAllKFactors() override { factors_.clear(); }

 private:
  std::unordered_map<UINT, T_KFAC_D> factors_;
};

/// Effective length factors of members and lone elements: those that the model gives for a member,
/// else computed from its frame (aluframe/members/length_factors.h).
class FrameLengthFactors : public CKFactor {
 public:
  explicit FrameLengthFactors(std::vector<members::SegmentFactors> factors)
      : factors_(std::move(factors)) {}
  void SetIsAluDgn(int) override {}
  /// Gives `out` the factors of what these elements belong to, by display key, and nothing else.
  int Calc_KFactor(const CArray<UINT>& elems, int option1, int option2, int option3,
                   CDgnDynData& out) override;

 private:
  std::vector<members::SegmentFactors> factors_;
};

/// Where message boxes go.
enum class MessageBoxes {
  to_history,  ///< nobody can answer one
  to_user
};

/// The document: all services over one model.
class Document : public CDBDoc {
 public:
  /// @param editable `model` when its settings and materials may be changed, else null
  Document(const model::Model& model, Attributes& attributes, DesignTool& tool,
           DesignManager& manager, UnitScale& scale, model::Model* editable = nullptr,
           MessageBoxes boxes = MessageBoxes::to_history)
      : model_(model),
        attributes_(attributes),
        tool_(tool),
        manager_(manager),
        scale_(scale),
        units_(scale),
        sections_(scale),
        editor_(editable, scale),
        alloys_(scale),
        boxes_(boxes) {}

  CAttrCtrl& GetAttrCtrl() override { return attributes_; }
  CAttrCtrl2& GetAttrCtrl2() override { return attributes_; }
  CMembCtrl& GetMembCtrl() override { return attributes_; }
  CViewCtrl& GetViewCtrl() override { return tool_; }
  CPostCtrl& GetPostCtrl() override { return manager_; }
  CUnitCtrl& GetUnitCtrl() override { return units_; }
  CSectDB& GetSectDB() override { return sections_; }
  IAluDgnTool& GetAluDgnTool() override { return tool_; }
  CDataCtrl& GetDataCtrl() override { return editor_; }
  CInitCtrl& GetInitCtrl() override { return preferences_; }
  CMatlDB& GetMatlDB() override { return alloys_; }

  double calcLAVElem(const T_ELEM_D& elem) const override;
  bool IsRegTestMode() const override { return boxes_ == MessageBoxes::to_history; }

  const ModelEditor& editor() const { return editor_; }

 private:
  const model::Model& model_;
  Attributes& attributes_;
  DesignTool& tool_;
  DesignManager& manager_;
  const UnitScale& scale_;
  UnitControl units_;
  SectionDatabase sections_;
  ModelEditor editor_;
  Preferences preferences_;
  AlloyDatabase alloys_;
  MessageBoxes boxes_;
};

}  // namespace aluframe::services

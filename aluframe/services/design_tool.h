#pragma once

#include <set>
#include <vector>

#include "aluframe/model/combinations.h"
#include "aluframe/model/model.h"
#include "aluframe/services/run_monitor.h"
#include "host/tz_db/services.h"

namespace aluframe::services {

/// Which elements and combinations aluminium design is for.
class DesignTool : public IAluDgnTool, public CViewCtrl {
 public:
  /// @param selected elements of the view's selection; empty: nothing is selected
  /// @param combinations numbers that a run is limited to; empty: all design combinations
  DesignTool(const model::Model& model, const model::CombinationEvaluator& evaluator,
             RunMonitor& monitor, std::vector<model::Number> selected,
             std::set<model::Number> combinations);

  int IsUseAluDgn() const override;
  int FiltAluKeysByMatl(const CArray<UINT>& in, CArray<UINT>& out, int option) const override;
  int GetAluDgnLCombs(CArrayEx<T_LCOM_MAXMIN_K>& out, int kind, int option) const override;
  /// 1 for a seismic combination, else 0; unknown combinations are not seismic.
  int Get_SesiType(UINT lcomb, const CDBDoc* doc, int kind) const override;
  /// Every material of the model is an aluminium alloy.
  int IsAluMatl(UINT matl) const override;
  int GetDgnAluMatlDBType() const override;
  int IsAluMatlCode_CH(const CString& code) const override;

  void GetAllSelectedElem(CArray<UINT>& out) const override;

 private:
  /// What an earlier run was through with needs no check.
  void leave_out_taken_up(CArray<UINT>& elements) const;

  const model::Model& model_;
  const model::CombinationEvaluator& evaluator_;
  RunMonitor& monitor_;
  std::vector<model::Number> selected_;
  std::set<model::Number> combinations_;
};

}  // namespace aluframe::services

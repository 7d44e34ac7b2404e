#include "aluframe/services/design_tool.h"

#include <utility>

#include "aluframe/services/alloy_database.h"

namespace aluframe::services {

DesignTool::DesignTool(const model::Model& model, const model::CombinationEvaluator& evaluator,
                       RunMonitor& monitor, std::vector<model::Number> selected,
                       std::set<model::Number> combinations)
    : model_(model),
      evaluator_(evaluator),
      monitor_(monitor),
      selected_(std::move(selected)),
      combinations_(std::move(combinations)) {}

int DesignTool::IsUseAluDgn() const {
  return 1;
}

int DesignTool::FiltAluKeysByMatl(const CArray<UINT>& in, CArray<UINT>& out, int) const {
  out.RemoveAll();
  // Every material of the model is an aluminium alloy, so what exists is kept.
  for (const UINT elem : in) {
    if (model_.elements.find(elem) != nullptr) out.Add(elem);
  }
  monitor_.set_elements({out.begin(), out.end()});
  if (monitor_.taken_up() > 0) leave_out_taken_up(out);
  return 1;
}

void DesignTool::leave_out_taken_up(CArray<UINT>& elements) const {
  const std::vector<UINT> all(elements.begin(), elements.end());
  elements.RemoveAll();
  for (const UINT elem : all) {
    if (!monitor_.was_taken_up(elem)) elements.Add(elem);
  }
}

int DesignTool::GetAluDgnLCombs(CArrayEx<T_LCOM_MAXMIN_K>& out, int, int) const {
  out.RemoveAll();
  for (const model::Combination& combination : model_.combinations) {
    const bool wanted = combinations_.empty() || combinations_.contains(combination.number);
    if (!combination.design || !wanted) continue;
    out.Add(MakeLcombKey(combination.number, 0));
    if (evaluator_.has_two_sides(combination.number)) {
      out.Add(MakeLcombKey(combination.number, 1));
    }
  }
  return static_cast<int>(out.GetSize());
}

int DesignTool::Get_SesiType(UINT lcomb, const CDBDoc*, int) const {
  const UINT number = LcombNumber(lcomb);
  if (model_.combinations.find(number) == nullptr) return 0;
  return evaluator_.is_seismic(number) ? 1 : 0;
}

int DesignTool::IsAluMatl(UINT matl) const {
  return model_.materials.find(matl) != nullptr ? 1 : 0;
}

int DesignTool::GetDgnAluMatlDBType() const {
  return alloy_database_type;
}

int DesignTool::IsAluMatlCode_CH(const CString& code) const {
  return is_alloy_standard(code) ? 1 : 0;
}

void DesignTool::GetAllSelectedElem(CArray<UINT>& out) const {
  out.RemoveAll();
  for (const model::Number elem : selected_) out.Add(elem);
}

}  // namespace aluframe::services

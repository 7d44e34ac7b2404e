// Load combinations and load cases by name.

#include <string>

#include "aluframe/model/envelopes.h"
#include "aluframe/services/attributes.h"
#include "aluframe/services/text.h"

namespace aluframe::services {

namespace {

int entry_kind(model::LoadCaseKind kind) {
  switch (kind) {
    case model::LoadCaseKind::static_load:
      return LCOM_ENTRY_STATIC;
    case model::LoadCaseKind::seismic_static:
      return LCOM_ENTRY_SEISMIC_STATIC;
    case model::LoadCaseKind::response_spectrum:
      return LCOM_ENTRY_SPECTRUM;
    case model::LoadCaseKind::eccentric_spectrum:
      return LCOM_ENTRY_ECCENTRIC_SPECTRUM;
    case model::LoadCaseKind::time_history:
      return LCOM_ENTRY_TIME_HISTORY;
    case model::LoadCaseKind::moving:
      return LCOM_ENTRY_MOVING;
    case model::LoadCaseKind::settlement:
      return LCOM_ENTRY_SETTLEMENT;
    case model::LoadCaseKind::crane:
      return LCOM_ENTRY_CRANE;
  }
  return 0;
}

T_LCOM_ENTRY_D entry_of(const model::CombinationTerm& term, const model::Model& model) {
  if (term.source == model::CombinationTerm::Source::combination) {
    return {LCOM_ENTRY_COMBINATION, term.number, term.factor};
  }
  return {entry_kind(model.load_cases.find(term.number)->kind), term.number, term.factor};
}

/// A combination without a name is known by its number. Blocks of the report give the number of a
/// state, so its name begins with it: "7003 = 7 Extremes: 1.3G+1.5Wp".
std::string name_of(const model::Combination& combination) {
  const std::string number = std::to_string(combination.number);
  if (combination.state_of) return number + " = " + model::label_of(combination);
  return combination.name.empty() ? number : combination.name;
}

/// Name of the load case with this number; a case without one is known by its number.
template <class Case>
int named(const model::Model& model, UINT number, Case& out) {
  const model::LoadCase* found = model.load_cases.find(number);
  if (found == nullptr) return 0;
  out.strName = to_wide(found->name.empty() ? std::to_string(number) : found->name);
  return 1;
}

}  // namespace

int Attributes::GetLcom(int, UINT number, T_LCOM_D& out) const {
  const model::Combination* found = model_.combinations.find(number);
  if (found == nullptr) return 0;
  out = T_LCOM_D();
  out.strName = to_wide(name_of(*found));
  out.nType = found->kind == model::CombinationKind::envelope ? 1 : 0;
  for (const model::CombinationTerm& term : found->terms) out.aEntry.Add(entry_of(term, model_));
  return 1;
}

int Attributes::GetSplc(UINT number, T_SPLC_D& out) const {
  return named(model_, number, out);
}
int Attributes::GetThis(UINT number, T_THIS_D& out) const {
  return named(model_, number, out);
}
int Attributes::GetSmlc(UINT number, T_SMLC_D& out) const {
  return named(model_, number, out);
}
int Attributes::GetSgld(UINT number, T_STLD_D& out) const {
  return named(model_, number, out);
}
int Attributes::GetCran(UINT number, T_CRAN_D& out) const {
  return named(model_, number, out);
}

int Attributes::GetMvcd(T_MVCD_D& out) const {
  out.nCode = model_.moving_load_code;
  return 1;
}

int Attributes::GetMvld(UINT number, T_MVLD_D& out) const {
  return named(model_, number, out);
}
int Attributes::GetMvldch(UINT number, T_MVLDch_D& out) const {
  return named(model_, number, out);
}
int Attributes::GetMvldjp(UINT number, T_MVLDjp_D& out) const {
  return named(model_, number, out);
}
int Attributes::GetMvldid(UINT number, T_MVLDid_D& out) const {
  return named(model_, number, out);
}
int Attributes::GetMvldbs(UINT number, T_MVLDbs_D& out) const {
  return named(model_, number, out);
}
int Attributes::GetMvldfr(UINT number, T_MVLDfr_D& out) const {
  return named(model_, number, out);
}
int Attributes::GetMvldtr(UINT number, T_MVLDtr_D& out) const {
  return named(model_, number, out);
}

}  // namespace aluframe::services

// Load combinations and load cases of a FakeModel.

#include "tests/support/fake_attributes.h"

namespace test_support {

int FakeAttributes::GetLcom(int kind, UINT number, T_LCOM_D& out) const {
  log_.combination_reads.emplace_back(kind, number);
  if (kind != kAluDesignKind && kind != 2) return 0;
  const auto found = model_.combination_records.find(number);
  if (found == model_.combination_records.end()) return 0;
  out = found->second;
  return 1;
}

int FakeAttributes::GetMvcd(T_MVCD_D& out) const {
  if (!model_.moving_load_code) return 0;
  out.nCode = *model_.moving_load_code;
  return 1;
}

int FakeAttributes::GetSplc(UINT number, T_SPLC_D& out) const {
  return model_.named({LCOM_ENTRY_SPECTRUM, 0}, number, out);
}
int FakeAttributes::GetThis(UINT number, T_THIS_D& out) const {
  return model_.named({LCOM_ENTRY_TIME_HISTORY, 0}, number, out);
}
int FakeAttributes::GetSmlc(UINT number, T_SMLC_D& out) const {
  return model_.named({LCOM_ENTRY_SETTLEMENT, 0}, number, out);
}
int FakeAttributes::GetSgld(UINT number, T_STLD_D& out) const {
  return model_.named({LCOM_ENTRY_SEISMIC_STATIC, 0}, number, out);
}
int FakeAttributes::GetCran(UINT number, T_CRAN_D& out) const {
  return model_.named({LCOM_ENTRY_CRANE, 0}, number, out);
}
int FakeAttributes::GetMvld(UINT number, T_MVLD_D& out) const {
  return model_.named({LCOM_ENTRY_MOVING, 1}, number, out);
}
int FakeAttributes::GetMvldch(UINT number, T_MVLDch_D& out) const {
  return model_.named({LCOM_ENTRY_MOVING, 3}, number, out);
}
int FakeAttributes::GetMvldjp(UINT number, T_MVLDjp_D& out) const {
  return model_.named({LCOM_ENTRY_MOVING, 5}, number, out);
}
int FakeAttributes::GetMvldid(UINT number, T_MVLDid_D& out) const {
  return model_.named({LCOM_ENTRY_MOVING, 7}, number, out);
}
int FakeAttributes::GetMvldbs(UINT number, T_MVLDbs_D& out) const {
  return model_.named({LCOM_ENTRY_MOVING, 10}, number, out);
}
int FakeAttributes::GetMvldfr(UINT number, T_MVLDfr_D& out) const {
  return model_.named({LCOM_ENTRY_MOVING, 18}, number, out);
}
int FakeAttributes::GetMvldtr(UINT number, T_MVLDtr_D& out) const {
  return model_.named({LCOM_ENTRY_MOVING, 100}, number, out);
}

}  // namespace test_support

#include "tests/support/fake_attributes.h"

#include <algorithm>

#include "host/tz_db/mathfunc.h"

namespace test_support {

namespace {

/// Copies the entry of `key` and says whether there is one.
template <class Value>
int copy_entry(const std::map<UINT, Value>& table, UINT key, Value& out) {
  const auto found = table.find(key);
  if (found == table.end()) return 0;
  out = found->second;
  return 1;
}

template <class Value>
int copy_settings(const std::optional<Value>& settings, Value& out) {
  if (!settings) return 0;
  out = *settings;
  return 1;
}

bool contains(const std::vector<UINT>& keys, UINT key) {
  return std::find(keys.begin(), keys.end(), key) != keys.end();
}

}  // namespace

int FakeAttributes::GetCountElem(int option) const {
  return option == 1 ? static_cast<int>(model_.element_order.size()) : 0;
}

int FakeAttributes::GetElem(UINT elem, T_ELEM_D& out) const {
  return copy_entry(model_.elements, elem, out);
}

int FakeAttributes::GetNode(UINT node, T_NODE_D& out) const {
  return copy_entry(model_.nodes, node, out);
}

int FakeAttributes::GetFrlsElem(UINT elem, T_FRLS_D& out) const {
  return copy_entry(model_.releases, elem, out);
}

int FakeAttributes::GetSupportCondition(UINT node, T_SUPPORT_D& out) const {
  return copy_entry(model_.supports, node, out);
}

int FakeAttributes::GetConnectedElem(UINT node, CArray<UINT>& out) const {
  out.RemoveAll();
  for (const auto& [key, element] : model_.elements) {
    if (element.aNode[0] == node || element.aNode[1] == node) out.Add(key);
  }
  return out.IsEmpty() ? 0 : 1;
}

int FakeAttributes::GetMemberType(UINT elem, int scheme) const {
  if (!model_.elements.contains(elem)) return 0;
  int type = scheme == 0 ? 1 : 2;
  copy_entry(scheme == 0 ? model_.member_types : model_.member_types_of_scheme_1, elem, type);
  return type;
}

int FakeAttributes::IsFrameType(UINT elem) const {
  return model_.elements.contains(elem) && !contains(model_.not_frame_type, elem) ? 1 : 0;
}

UINT FakeAttributes::GetMembAssigned(UINT displayKey) const {
  for (const auto& [memb, elems] : model_.members) {
    if (!elems.empty() && elems.front() == displayKey) return memb;
  }
  return 0;
}

int FakeAttributes::GetMemb(UINT memb, T_MEMB_D& out) const {
  const auto found = model_.members.find(memb);
  if (found == model_.members.end()) return 0;
  out.aElem.RemoveAll();
  for (const UINT elem : found->second) out.aElem.Add(elem);
  return 1;
}

int FakeAttributes::GetSectDesign(UINT sect, T_SECT_DESIGN_D& out) const {
  log_.events.push_back("section " + std::to_string(sect) + " read");
  return copy_entry(model_.sections, sect, out);
}

int FakeAttributes::GetMatlDesign(UINT matl, T_MATD_D& out) const {
  log_.events.push_back("material " + std::to_string(matl) + " read");
  return copy_entry(model_.materials, matl, out);
}

int FakeAttributes::GetDalu(T_DALU_D& out) const {
  return copy_settings(model_.settings, out);
}

int FakeAttributes::GetDctl(T_DCTL_D& out) const {
  return copy_settings(model_.control, out);
}

int FakeAttributes::GetAphi(UINT elem, T_APHI_D& out) const {
  return copy_entry(model_.stability_coefficients, elem, out);
}

int FakeAttributes::GetArib(UINT elem, T_ARIB_D& out) const {
  return copy_entry(model_.ribs, elem, out);
}

int FakeAttributes::GetAwed(UINT elem, T_AWED_D& out) const {
  return copy_entry(model_.welds, elem, out);
}

int FakeAttributes::GetAhtr(UINT elem, T_AHTR_D& out) const {
  return copy_entry(model_.heat_zones, elem, out);
}

int FakeAttributes::GetCmft(UINT elem, T_CMFT_D& out) const {
  return copy_entry(model_.moment_factors, elem, out);
}

int FakeAttributes::GetKfac(UINT elem, T_KFAC_D& out) const {
  return copy_entry(model_.own_length_factors, elem, out);
}

int FakeAttributes::GetLtsr(UINT elem, T_LTSR_D& out) const {
  return copy_entry(model_.slenderness_limits, elem, out);
}

double FakeAttributes::GetMembTotalLength(UINT memb) const {
  const auto found = model_.members.find(memb);
  if (found == model_.members.end()) return 0.0;
  double total = 0.0;
  for (const UINT elem : found->second) {
    T_ELEM_D element;
    if (GetElem(elem, element) != 0) total += length_of(element);
  }
  return total;
}

UINT FakeAttributes::GetShowElemByIncludeElem(UINT elem) const {
  for (const auto& [memb, elems] : model_.members) {
    if (contains(elems, elem)) return elems.front();
  }
  return model_.elements.contains(elem) ? elem : 0;
}

double FakeAttributes::length_of(const T_ELEM_D& element) const {
  T_NODE_D start;
  T_NODE_D end;
  if (GetNode(element.aNode[0], start) == 0 || GetNode(element.aNode[1], end) == 0) return 0.0;
  return CMathFunc::mathLength(start, end);
}

}  // namespace test_support

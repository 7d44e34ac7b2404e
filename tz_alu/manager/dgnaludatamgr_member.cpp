#include <algorithm>
#include <set>

#include "host/tz_db/mathfunc.h"
#include "host/tz_dgn/tz_dgn.h"
#include "tz_alu/manager/dgnaludatamgr.h"
#include "tz_alu/manager/release_assertion.h"

namespace {

constexpr int kLineNoMember = 836;
// Distance from the member's line beyond which a connected element holds the member.
constexpr double kOffLine = 0.001;

enum END { END_I = 0, END_J = 1 };
enum AXIS { AXIS_Y = 0, AXIS_Z = 1 };

// Releases of My and Mz at the two ends of an element, by [end][axis].
struct RELEASES {
  bool bReleased[2][2] = {};
};

RELEASES ReleasesOf(const CAttrCtrl& attributes, UINT elem) {
  constexpr std::size_t kDegreesOfFreedom = 6;
  constexpr std::size_t kFirstMoment = 4;
  RELEASES out;
  T_FRLS_D releases;
  if (attributes.GetFrlsElem(elem, releases) == 0) return out;
  for (std::size_t end = 0; end < 2; ++end) {
    for (std::size_t axis = 0; axis < 2; ++axis) {
      const std::size_t place = end * kDegreesOfFreedom + kFirstMoment + axis;
      out.bReleased[end][axis] = releases.aRelease[place] == '1';
    }
  }
  return out;
}

bool IsNodeOf(const T_ELEM_D& element, UINT node) {
  return element.aNode[0] == node || element.aNode[1] == node;
}

// An element at a member's end: the outer node, and which end of the element lies there.
struct MEMBER_END {
  UINT nNode = 0;
  END end = END_I;
};

// The outer end of `outer`, whose other node it shares with `neighbour`.
MEMBER_END OuterEnd(const T_ELEM_D& outer, const T_ELEM_D& neighbour) {
  const END end = IsNodeOf(neighbour, outer.aNode[0]) ? END_J : END_I;
  return {outer.aNode[end], end};
}

// A fixed end that is released becomes pinned.
void PinReleasedEnd(ALU_DGN_MEMB& memb, END at, const bool (&released)[2]) {
  for (int axis = AXIS_Y; axis <= AXIS_Z; ++axis) {
    std::int32_t& code = memb.nEndCond[axis][at];
    if (code == ALU_END_FIXED && released[axis]) code = ALU_END_PINNED;
  }
}

bool Contains(const CArray<UINT>& keys, UINT key) {
  return std::find(keys.begin(), keys.end(), key) != keys.end();
}

// Whether an element that meets the member at an inner node holds it there.
bool HoldsMember(const CAttrCtrl& attributes, UINT elem, const T_NODE_D& i, const T_NODE_D& j) {
  constexpr int kBeam = 1;
  constexpr int kBrace = 4;
  const int type = attributes.GetMemberType(elem, 1);
  if (type == kBeam || type == kBrace) return true;
  if (attributes.IsFrameType(elem) == 0) return false;
  T_ELEM_D element;
  T_NODE_D a;
  T_NODE_D b;
  if (attributes.GetElem(elem, element) == 0) return false;
  if (attributes.GetNode(element.aNode[0], a) == 0) return false;
  if (attributes.GetNode(element.aNode[1], b) == 0) return false;
  return CMathFunc::mathDistanceToLine(a, i, j) > kOffLine ||
         CMathFunc::mathDistanceToLine(b, i, j) > kOffLine;
}

}  // namespace

int IAluDgnDataMgr::MakeBuffMemb(const KEYS& keys) {
  m_mapMemb.RemoveAll();
  m_mapMemb.InitHashTable(static_cast<std::size_t>(keys.GetSize()) + 1);
  T_DCTL_D control;
  GetDoc()->GetAttrCtrl().GetDctl(control);
  CDgnDynData* dynData = CDgnDynData::GetDgnDynData();
  const auto kFactor = CKFactor::Create();
  kFactor->SetIsAluDgn(1);
  kFactor->Calc_KFactor(keys, control.nKOption1, control.nKOption2, control.nKOption3, *dynData);
  for (const UINT elem : keys) {
    const UINT displayKey = GetElemShowKey(elem);
    if (m_mapMemb.PLookup(displayKey) != nullptr) continue;
    ALU_DGN_MEMB memb;
    if (BuildMemb(elem, displayKey, memb) == 0) return 0;
    T_KFAC_D factors;
    if (dynData->GetKFactor(displayKey, factors) != 0) {
      memb.dKy = factors.dKy;
      memb.dKz = factors.dKz;
    }
    m_mapMemb.SetAt(displayKey, memb);
  }
  return 1;
}

int IAluDgnDataMgr::BuildMemb(UINT elem, UINT displayKey, ALU_DGN_MEMB& memb) const {
  const CAttrCtrl& attributes = GetDoc()->GetAttrCtrl();
  memb.nMemb = attributes.GetMembAssigned(displayKey);
  T_MEMB_D chain;
  const bool bChain = attributes.GetMemb(memb.nMemb, chain) != 0 && chain.aElem.GetSize() > 1;
  const int ok = bChain ? FillFromChain(chain.aElem, memb) : FillFromElement(elem, memb);
  if (ok == 0) return 0;
  memb.bMidSupport = HaveMidSupprt(memb);
  return 1;
}

int IAluDgnDataMgr::FillFromChain(const CArrayEx<UINT>& elems, ALU_DGN_MEMB& memb) const {
  const CAttrCtrl& attributes = GetDoc()->GetAttrCtrl();
  const std::ptrdiff_t last = elems.GetSize() - 1;
  T_ELEM_D first, second, beforeLast, final;
  if (attributes.GetElem(elems[0], first) == 0 || attributes.GetElem(elems[1], second) == 0 ||
      attributes.GetElem(elems[last - 1], beforeLast) == 0 ||
      attributes.GetElem(elems[last], final) == 0) {
    AssertDgnAluDataMgr(__LINE__);
    return 0;
  }
  memb.aElem = elems;
  memb.dLength = GetDoc()->GetAttrCtrl2().GetMembTotalLength(memb.nMemb);
  const MEMBER_END start = OuterEnd(first, second);
  const MEMBER_END finish = OuterEnd(final, beforeLast);
  memb.nNodeI = start.nNode;
  memb.nNodeJ = finish.nNode;
  SetEndConditions(memb);
  PinReleasedEnd(memb, END_I, ReleasesOf(attributes, elems[0]).bReleased[start.end]);
  PinReleasedEnd(memb, END_J, ReleasesOf(attributes, elems[last]).bReleased[finish.end]);
  return 1;
}

int IAluDgnDataMgr::FillFromElement(UINT elem, ALU_DGN_MEMB& memb) const {
  const CAttrCtrl& attributes = GetDoc()->GetAttrCtrl();
  T_ELEM_D element;
  if (attributes.GetElem(elem, element) == 0) {
    AssertDgnAluDataMgr(__LINE__);
    return 0;
  }
  memb.dLength = GetDoc()->calcLAVElem(element);
  memb.nNodeI = element.aNode[0];
  memb.nNodeJ = element.aNode[1];
  SetEndConditions(memb);
  const RELEASES releases = ReleasesOf(attributes, elem);
  PinReleasedEnd(memb, END_I, releases.bReleased[END_I]);
  PinReleasedEnd(memb, END_J, releases.bReleased[END_J]);
  return 1;
}

void IAluDgnDataMgr::SetEndConditions(ALU_DGN_MEMB& memb) const {
  const UINT nodes[2] = {memb.nNodeI, memb.nNodeJ};
  for (int end = END_I; end <= END_J; ++end) {
    GetSupport(nodes[end], nullptr, &memb.nEndCond[AXIS_Y][end], &memb.nEndCond[AXIS_Z][end]);
  }
}

UINT IAluDgnDataMgr::GetElemShowKey(UINT elem) const {
  return GetDoc()->GetMembCtrl().GetShowElemByIncludeElem(elem);
}

ALU_DGN_MEMB* IAluDgnDataMgr::GetMembInfo(UINT elem) {
  auto* pair = m_mapMemb.PLookup(GetElemShowKey(elem));
  if (pair != nullptr) return &pair->value;
  AssertDgnAluDataMgr(kLineNoMember);
  return nullptr;
}

int IAluDgnDataMgr::GetSupport(UINT node, UINT*, int* codeY, int* codeZ) const {
  T_SUPPORT_D support;
  GetDoc()->GetAttrCtrl().GetSupportCondition(node, support);
  const auto& r = support.aRestraint;
  const auto code = [](bool held, bool turned) {
    if (!held) return ALU_END_FREE;
    return turned ? ALU_END_FIXED : ALU_END_PINNED;
  };
  *codeY = code(r[0] != 0 || r[1] != 0, r[4] != 0);
  *codeZ = code(r[0] != 0 || r[2] != 0, r[5] != 0);
  return 1;
}

int IAluDgnDataMgr::HaveMidSupprt(const ALU_DGN_MEMB& memb) const {
  if (memb.aElem.GetSize() < 2) return 0;
  const CAttrCtrl& attributes = GetDoc()->GetAttrCtrl();
  T_NODE_D i;
  T_NODE_D j;
  if (attributes.GetNode(memb.nNodeI, i) == 0 || attributes.GetNode(memb.nNodeJ, j) == 0) return 0;
  std::set<UINT> visited{memb.nNodeI, memb.nNodeJ};
  for (const UINT elem : memb.aElem) {
    T_ELEM_D element;
    if (attributes.GetElem(elem, element) == 0) continue;
    for (const UINT node : element.aNode) {
      if (!visited.insert(node).second) continue;
      CArray<UINT> connected;
      attributes.GetConnectedElem(node, connected);
      for (const UINT other : connected) {
        if (!Contains(memb.aElem, other) && HoldsMember(attributes, other, i, j)) return 1;
      }
    }
  }
  return 0;
}

int IAluDgnDataMgr::IsReverseToMemb(UINT elem) {
  const ALU_DGN_MEMB* memb = GetMembInfo(elem);
  if (memb == nullptr || memb->aElem.GetSize() < 2) return 0;
  const CAttrCtrl& attributes = GetDoc()->GetAttrCtrl();
  T_ELEM_D element;
  T_NODE_D start, a, b;
  if (attributes.GetElem(elem, element) == 0) return 0;
  if (attributes.GetNode(memb->nNodeI, start) == 0) return 0;
  if (attributes.GetNode(element.aNode[0], a) == 0) return 0;
  if (attributes.GetNode(element.aNode[1], b) == 0) return 0;
  return CMathFunc::mathLength(start, a) > CMathFunc::mathLength(start, b) ? 1 : 0;
}

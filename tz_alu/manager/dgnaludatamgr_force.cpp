#include "tz_alu/manager/dgnaludatamgr.h"

namespace {

constexpr std::size_t kStart = 0;
constexpr std::size_t kEnd = kCheckPositions - 1;

struct MOMENTS {
  double dMy = 0.0;
  double dMz = 0.0;
};

MOMENTS MomentsAt(const T_ALU_FORCE_D& forces, std::size_t pos) {
  return {forces.aForce[pos][ALU_FORCE_MY], forces.aForce[pos][ALU_FORCE_MZ]};
}

}  // namespace

int IAluDgnDataMgr::MakeBuffLcomb(const LCOMBS& lcombs) {
  m_mapLcomb.RemoveAll();
  const IAluDgnTool& tool = GetDoc()->GetAluDgnTool();
  for (const T_LCOM_MAXMIN_K key : lcombs) {
    const UINT number = LcombNumber(key);
    m_mapLcomb.SetAt(number, tool.Get_SesiType(number, GetDoc(), kAluDesignKind));
  }
  return 1;
}

int IAluDgnDataMgr::GetDgnForce(UINT elem, T_LCOM_MAXMIN_K key, T_ALU_FORCE_D& out) const {
  CAluDesignMgr& results = GetDoc()->GetPostCtrl().AluDgnMgr();
  return results.GetElementForce(elem, LcombNumber(key), out, LcombMinSide(key) != 0) != 0 ? 1 : 0;
}

AluDgnEndForce& IAluDgnDataMgr::GetDgnEndForce(AluDgnEndForce& out, UINT elem, T_LCOM_MAXMIN_K key,
                                               const T_ALU_FORCE_D& own) {
  out.Initial();
  const ALU_DGN_MEMB* memb = GetMembInfo(elem);
  UINT first = elem;
  UINT last = elem;
  bool bFirstReversed = false;
  bool bLastReversed = false;
  if (memb != nullptr && memb->aElem.GetSize() > 1) {
    first = memb->aElem[0];
    last = memb->aElem[memb->aElem.GetSize() - 1];
    bFirstReversed = IsReverseToMemb(first) != 0;
    bLastReversed = IsReverseToMemb(last) != 0;
  }
  // Moments at a place of a member's end element; 0 where the host has no forces of it.
  const auto momentsOf = [&](UINT at, std::size_t pos) {
    if (at == elem) return MomentsAt(own, pos);
    T_ALU_FORCE_D forces;
    GetDgnForce(at, key, forces);
    return MomentsAt(forces, pos);
  };
  const MOMENTS start = momentsOf(first, bFirstReversed ? kEnd : kStart);
  const MOMENTS finish = momentsOf(last, bLastReversed ? kStart : kEnd);
  out.dMyI = start.dMy;
  out.dMzI = start.dMz;
  out.dMyJ = finish.dMy;
  out.dMzJ = finish.dMz;
  return out;
}

int IAluDgnDataMgr::GetDgnSectForce(const AluDgnEndForce& end, const T_ALU_FORCE_D& force, int pos,
                                    AluDgnSectForce& out) const {
  out.Initial();
  if (pos < 0 || pos >= kCheckPositions) return 0;
  out.end = end;
  out.nPos = pos;
  out.nLComb = force.nLComb;
  out.nSesiType = GetSesiType(force.nLComb);
  const auto& values = force.aForce[static_cast<std::size_t>(pos)];
  for (std::size_t i = 0; i < std::size(out.dForce); ++i) out.dForce[i] = values[i];
  return 1;
}

int IAluDgnDataMgr::IsEndSectCal(UINT elem, int pos) {
  if (pos != static_cast<int>(kStart) && pos != static_cast<int>(kEnd)) return 0;
  const ALU_DGN_MEMB* memb = GetMembInfo(elem);
  if (memb == nullptr || memb->aElem.GetSize() < 2) return 1;
  T_ELEM_D element;
  if (GetDoc()->GetAttrCtrl().GetElem(elem, element) == 0) return 0;
  // kept: the start node decides at both ends.
  return element.aNode[0] == memb->nNodeI || element.aNode[0] == memb->nNodeJ ? 1 : 0;
}

#include "host/tz_db/ralu.h"

#include <cmath>

namespace {

bool IsWorst(double demand, double capacity) {
  return !std::isfinite(demand) || !std::isfinite(RaluRatio(demand, capacity));
}

}  // namespace

double RaluRatio(double demand, double capacity) {
  return capacity == 0.0 ? 0.0 : demand / capacity;
}

bool RaluIsEmpty(double demand, double capacity) {
  return demand == 0.0 && capacity == 0.0;
}

bool RaluGoverns(double demandA, double capacityA, double demandB, double capacityB) {
  if (RaluIsEmpty(demandA, capacityA)) return false;
  if (RaluIsEmpty(demandB, capacityB)) return true;
  if (IsWorst(demandB, capacityB)) return false;
  if (IsWorst(demandA, capacityA)) return true;
  return RaluRatio(demandA, capacityA) > RaluRatio(demandB, capacityB);
}

void T_RALU_SECT::Initial() {
  *this = T_RALU_SECT();
}

void T_RALU_ITEM::Initial() {
  *this = T_RALU_ITEM();
}

double T_RALU_ITEM::Ratio() const {
  return RaluRatio(dDemand, dCapacity);
}

int T_RALU_ITEM::ComPair(const T_RALU_ITEM& other) const {
  return RaluGoverns(dDemand, dCapacity, other.dDemand, other.dCapacity) ? 1 : 0;
}

void T_RALU_D::Initial() {
  *this = T_RALU_D();
}

void T_RALU_D::SetLCombKey(UINT number, int minSide) {
  nLComb = number;
  nMinSide = minSide;
}

void T_RALU_D::MakeCompItem() {
  for (std::size_t type = 0; type < aComp.size(); ++type) {
    T_RALU_ITEM& governing = aComp[type];
    governing.Initial();
    for (std::size_t pos = 0; pos < aSect.size(); ++pos) {
      const T_RALU_RLT& item = aSect[pos].aItem[type];
      if (!RaluGoverns(item.dDemand, item.dCapacity, governing.dDemand, governing.dCapacity)) {
        continue;
      }
      governing = {static_cast<int>(pos), item.dDemand, item.dCapacity, nLComb, nMinSide};
    }
  }
}

void T_RALU_D::GetMaxRlt(const T_RALU_D& other) {
  for (std::size_t pos = 0; pos < aSect.size(); ++pos) {
    for (std::size_t type = 0; type < aComp.size(); ++type) {
      T_RALU_RLT& mine = aSect[pos].aItem[type];
      const T_RALU_RLT& theirs = other.aSect[pos].aItem[type];
      if (RaluGoverns(theirs.dDemand, theirs.dCapacity, mine.dDemand, mine.dCapacity)) {
        mine = theirs;
      }
    }
  }
  for (std::size_t type = 0; type < aComp.size(); ++type) {
    if (other.aComp[type].ComPair(aComp[type]) != 0) aComp[type] = other.aComp[type];
  }
}

int T_RALU_D::GetMaxRltByItem(int type, T_RALU_ITEM& item) const {
  item = aComp.at(static_cast<std::size_t>(type));
  return item.nPos;
}

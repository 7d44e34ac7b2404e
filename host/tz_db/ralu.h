#pragma once

#include <array>
#include <cmath>
#include <limits>

#include "host/framework/types.h"
#include "host/tz_db/forces.h"
#include "host/tz_db/keys.h"

inline constexpr int kResultItems = 8;

/// Result items of a check position, in the order of `T_RALU_SECT::aItem`.
enum RALU_ITEM_TYPE : int {
  RALU_STRENGTH = 0,
  RALU_SHEAR_Y = 1,
  RALU_SHEAR_Z = 2,
  RALU_STABILITY = 3,
  RALU_COMBINED_STABILITY = 4,
  RALU_UNUSED = 5,
  RALU_SLENDERNESS_Y = 6,
  RALU_SLENDERNESS_Z = 7,
};

/// One check: what acts against what is allowed. Demand is a design stress (N/mm²) or a slenderness
/// kl/i; capacity the design strength or the limiting slenderness.
struct T_RALU_RLT {
  double dDemand = 0.0;
  double dCapacity = 0.0;
  double dReserve = 0.0;  ///< carried, never written by the module
};

// The comparisons are inline: a run makes a hundred of them for every record.

/// Demand / capacity with its sign; 0 when the capacity is 0 (slenderness without a limit).
/// Not finite when demand or capacity is not.
inline double RaluRatio(double demand, double capacity) {
  return capacity == 0.0 ? 0.0 : demand / capacity;
}

/// True when no check filled the item: demand and capacity are both 0.
inline bool RaluIsEmpty(double demand, double capacity) {
  return demand == 0.0 && capacity == 0.0;
}

/// How bad a check is, as a number to compare: -infinity for an item that no check filled,
/// +infinity when demand or ratio is not finite, else the ratio.
inline double RaluSeverity(double demand, double capacity) {
  constexpr double kLargest = std::numeric_limits<double>::max();
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  if (capacity != 0.0) {
    const double ratio = demand / capacity;
    return std::fabs(ratio) <= kLargest ? ratio : kInfinity;
  }
  if (demand == 0.0) return -kInfinity;
  return std::fabs(demand) <= kLargest ? 0.0 : kInfinity;
}

/// True when the first check governs over the second: any check over an item that no check filled;
/// a ratio that is not finite over any finite one, so that it is never hidden; else the larger
/// ratio, with its sign. Equals do not govern over each other.
inline bool RaluGoverns(double demandA, double capacityA, double demandB, double capacityB) {
  if (demandA == demandB && capacityA == capacityB) return false;
  // Products are rounded in order, so this is certain for ratios that are not negative (a negative
  // one may overflow, which makes it the worst). It spares nearly every division.
  if (demandA >= 0.0 && capacityA > 0.0 && capacityB > 0.0 &&
      demandA * capacityB < demandB * capacityA) {
    return false;
  }
  return RaluSeverity(demandA, capacityA) > RaluSeverity(demandB, capacityB);
}

/// Results of one check position.
struct T_RALU_SECT {
  std::array<T_RALU_RLT, kResultItems> aItem{};

  void Initial() { *this = T_RALU_SECT(); }
};

/// The governing check of one item type: where it stands and which combination it comes from.
struct T_RALU_ITEM {
  int nPos = -1;  ///< position 0..4, or -1 when no check filled the item anywhere
  double dDemand = 0.0;
  double dCapacity = 0.0;
  UINT nLComb = 0;   ///< number of the combination
  int nMinSide = 0;  ///< 1: minimum side of an envelope

  void Initial() { *this = T_RALU_ITEM(); }
  /// The check's ratio as `RaluRatio` forms it.
  double Ratio() const { return RaluRatio(dDemand, dCapacity); }
  /// 1 when this check's ratio is larger than the other's, as `RaluGoverns` orders them; else 0.
  int ComPair(const T_RALU_ITEM& other) const {
    return RaluGoverns(dDemand, dCapacity, other.dDemand, other.dCapacity) ? 1 : 0;
  }
};

/// Aluminium design results of one element: for one combination, or, merged with `GetMaxRlt`, the
/// governing ones of all combinations.
///
///     T_RALU_D governing = first;
///     governing.GetMaxRlt(second);
struct T_RALU_D {
  int nHasResult = 0;                              ///< 0: nothing was checked
  std::array<T_RALU_SECT, kCheckPositions> aSect;  ///< per check position
  int nMembType = 0;                               ///< 1 column, 2 beam, 3 brace, 5 truss
  UINT nLComb = 0;                                 ///< combination the record was made for
  int nMinSide = 0;
  std::array<T_RALU_ITEM, kResultItems> aComp;  ///< per item type, filled by `MakeCompItem`

  void Initial() { *this = T_RALU_D(); }
  void SetLCombKey(UINT number, int minSide) {
    nLComb = number;
    nMinSide = minSide;
  }
  /// Finds the governing position of every item type and notes it with the record's combination.
  /// Among equal ratios the earliest position stays.
  void MakeCompItem();
  /// Keeps the larger ratio per position and item, and per item type the governing check with its
  /// combination. Among equals this record's stays.
  void GetMaxRlt(const T_RALU_D& other);
  /// Copies the governing check of item type `type` (0..7) into `item`.
  /// @return its position, or -1 when there is none
  int GetMaxRltByItem(int type, T_RALU_ITEM& item) const {
    item = aComp.at(static_cast<std::size_t>(type));
    return item.nPos;
  }
};

inline void T_RALU_D::MakeCompItem() {
  for (std::size_t type = 0; type < aComp.size(); ++type) {
    aComp[type].Initial();
    double worst = RaluSeverity(0.0, 0.0);
    int governing = -1;
    for (int pos = 0; pos < kCheckPositions; ++pos) {
      const T_RALU_RLT& item = aSect[static_cast<std::size_t>(pos)].aItem[type];
      const double severity = RaluSeverity(item.dDemand, item.dCapacity);
      governing = severity > worst ? pos : governing;
      worst = severity > worst ? severity : worst;
    }
    if (governing < 0) continue;
    const T_RALU_RLT& item = aSect[static_cast<std::size_t>(governing)].aItem[type];
    aComp[type] = {governing, item.dDemand, item.dCapacity, nLComb, nMinSide};
  }
}

inline void T_RALU_D::GetMaxRlt(const T_RALU_D& other) {
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

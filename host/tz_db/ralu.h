#pragma once

#include <array>

#include "host/framework/types.h"
#include "host/host_api.h"
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

/// Demand / capacity with its sign; 0 when the capacity is 0 (slenderness without a limit).
/// Not finite when demand or capacity is not.
HOST_API double RaluRatio(double demand, double capacity);

/// True when no check filled the item: demand and capacity are both 0.
HOST_API bool RaluIsEmpty(double demand, double capacity);

/// True when the first check governs over the second: any check over an item that no check filled;
/// a ratio that is not finite over any finite one, so that it is never hidden; else the larger
/// ratio, with its sign. Equals do not govern over each other.
HOST_API bool RaluGoverns(double demandA, double capacityA, double demandB, double capacityB);

/// Results of one check position.
struct T_RALU_SECT {
  std::array<T_RALU_RLT, kResultItems> aItem{};

  HOST_API void Initial();
};

/// The governing check of one item type: where it stands and which combination it comes from.
struct T_RALU_ITEM {
  int nPos = -1;  ///< position 0..4, or -1 when no check filled the item anywhere
  double dDemand = 0.0;
  double dCapacity = 0.0;
  UINT nLComb = 0;   ///< number of the combination
  int nMinSide = 0;  ///< 1: minimum side of an envelope

  HOST_API void Initial();
  /// The check's ratio as `RaluRatio` forms it.
  HOST_API double Ratio() const;
  /// 1 when this check's ratio is larger than the other's, as `RaluGoverns` orders them; else 0.
  HOST_API int ComPair(const T_RALU_ITEM& other) const;
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

  HOST_API void Initial();
  HOST_API void SetLCombKey(UINT number, int minSide);
  /// Finds the governing position of every item type and notes it with the record's combination.
  /// Among equal ratios the earliest position stays.
  HOST_API void MakeCompItem();
  /// Keeps the larger ratio per position and item, and per item type the governing check with its
  /// combination. Among equals this record's stays.
  HOST_API void GetMaxRlt(const T_RALU_D& other);
  /// Copies the governing check of item type `type` (0..7) into `item`.
  /// @return its position, or -1 when there is none
  HOST_API int GetMaxRltByItem(int type, T_RALU_ITEM& item) const;
};

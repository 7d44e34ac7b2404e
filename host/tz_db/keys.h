#pragma once

#include "host/framework/types.h"

/// Key of a design load combination: the low 27 bits are the combination's number, bit 27 selects
/// the minimum side of an envelope combination (0: maximum side, or a combination with one side).
using T_LCOM_MAXMIN_K = UINT;

inline constexpr UINT kLcombNumberMask = 0x7FFFFFF;
inline constexpr UINT kLcombMinSideShift = 27;

/// Number of the combination, without its side.
constexpr UINT LcombNumber(T_LCOM_MAXMIN_K key) {
  return key & kLcombNumberMask;
}
/// 1 for the minimum side, else 0.
constexpr int LcombMinSide(T_LCOM_MAXMIN_K key) {
  return static_cast<int>((key >> kLcombMinSideShift) & 1U);
}
constexpr T_LCOM_MAXMIN_K MakeLcombKey(UINT number, int minSide) {
  return (number & kLcombNumberMask) | (minSide != 0 ? 1U << kLcombMinSideShift : 0U);
}

/// The host's code of aluminium among its kinds of design.
inline constexpr int kAluDesignKind = 6;

/// A selection of units: what lengths and forces are counted in.
struct T_UNIT_INDEX {
  int nForce = 0;   ///< 0 N, 1 kN, 2 kgf, 3 tonf, 4 lbf, 5 kip
  int nLength = 2;  ///< 0 m, 1 cm, 2 mm, 3 ft, 4 in

  friend bool operator==(const T_UNIT_INDEX&, const T_UNIT_INDEX&) = default;
};

#pragma once

#include <cstdint>

#include "host/framework/collections.h"
#include "host/framework/types.h"
#include "tz_alu/tz_alu_api.h"

/// A design member: a chain of elements that is checked with one length and one set of factors.
struct TZ_ALU_API ALU_DGN_MEMB {
  UINT nMemb;            ///< member key in the host's model; 0 for an element without a member
  CArrayEx<UINT> aElem;  ///< element keys in member order; empty for a member of one element
  UINT nNodeI;           ///< node at the member's start
  UINT nNodeJ;           ///< node at the member's end
  double dLength;        ///< length of the member
  double dKy;            ///< effective length factor about y, 1.0 until computed
  double dKz;            ///< effective length factor about z
  /// ALU_END_CONDITION, [axis y, z][end i, j]: the other way round than in ALU_DGN_DATA.
  std::int32_t nEndCond[2][2];
  std::int32_t bMidSupport;  ///< 1: a node inside the member is supported

  ALU_DGN_MEMB() { Initial(); }
  void Initial();
};

#pragma once

#include "host/framework/collections.h"
#include "host/framework/cstring.h"
#include "host/framework/types.h"

// Load combinations and load cases of the host's model, as far as design reads them.

/// Kinds of what a combination is made of.
enum LCOM_ENTRY_KIND : int {
  LCOM_ENTRY_STATIC = 1,
  LCOM_ENTRY_SPECTRUM = 2,  ///< response spectrum
  LCOM_ENTRY_TIME_HISTORY = 3,
  LCOM_ENTRY_MOVING = 4,
  LCOM_ENTRY_SETTLEMENT = 5,
  LCOM_ENTRY_COMBINATION = 8,
  LCOM_ENTRY_SEISMIC_STATIC = 13,
  LCOM_ENTRY_ECCENTRIC_SPECTRUM = 14,  ///< response spectrum with accidental eccentricity
  LCOM_ENTRY_CRANE = 19,
};

/// One term of a combination.
struct T_LCOM_ENTRY_D {
  int nKind = 0;     ///< LCOM_ENTRY_KIND
  UINT nNumber = 0;  ///< of the load case or combination
  double dFactor = 0.0;
};

/// A load combination.
struct T_LCOM_D {
  CString strName;
  int nType = 0;  ///< 0 linear, 1 envelope
  CArrayEx<T_LCOM_ENTRY_D> aEntry;
};

/// What a load case of any kind is known by.
struct T_LOAD_CASE_D {
  CString strName;
};

struct T_STLD_D : T_LOAD_CASE_D {};  ///< static load case
struct T_SPLC_D : T_LOAD_CASE_D {};  ///< response-spectrum case
struct T_THIS_D : T_LOAD_CASE_D {};  ///< time-history case
struct T_SMLC_D : T_LOAD_CASE_D {};  ///< settlement case
struct T_CRAN_D : T_LOAD_CASE_D {};  ///< crane case
// Moving-load cases, by the design code that the loads come from.
struct T_MVLD_D : T_LOAD_CASE_D {};
struct T_MVLDch_D : T_LOAD_CASE_D {};
struct T_MVLDjp_D : T_LOAD_CASE_D {};
struct T_MVLDid_D : T_LOAD_CASE_D {};
struct T_MVLDbs_D : T_LOAD_CASE_D {};
struct T_MVLDfr_D : T_LOAD_CASE_D {};
struct T_MVLDtr_D : T_LOAD_CASE_D {};

/// The code that the model's moving loads follow.
struct T_MVCD_D {
  int nCode =
      0;  ///< 0 none; 1, 2, 4, 6, 8, 9, 11 to 16 general; 3, 5, 7, 10, 18, 100 with own cases
};

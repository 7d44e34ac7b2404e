#pragma once

#include "host/tz_db/ralu.h"
#include "tz_alu/records/alu_cal.h"
#include "tz_alu/records/alu_dgn_data.h"
#include "tz_alu/records/alu_forces.h"
#include "tz_alu/report/aluprint.h"
#include "tz_alu/tz_alu_api.h"

/// Checks one element at one check position for one load combination to GB 50429-2007.
///
/// Units N and mm (N/mm²). The engine keeps no state between calls.
///
///     CALUCode_GB50429_07 engine;
///     T_RALU_SECT result;
///     if (engine.CheckCode(data, force, result) != 0) ... result.aItem[RALU_STRENGTH] ...
class TZ_ALU_API CALUCode_GB50429_07 : public CALU_GB50429_07Print {
 public:
  ~CALUCode_GB50429_07() override;

  /// Resets `result`, forms the section parameters and runs the check groups that the design
  /// input switches on, each storing demand and capacity into its item.
  /// @return 1, or 0 when the section parameters cannot be formed; then `result` stays reset
  int CheckCode(const ALU_DGN_DATA& data, const AluDgnSectForce& force, T_RALU_SECT& result);

  /// The same, leaving section parameters and intermediate values in `buffer`, which is reset
  /// first.
  int CheckCode(const ALU_DGN_DATA& data, const AluDgnSectForce& force, T_RALU_SECT& result,
                ALU_CAL_BUFF& buffer);
};

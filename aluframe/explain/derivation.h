#pragma once

#include <string>

#include "aluframe/explain/trace.h"
#include "tz_alu/engine/check_input.h"
#include "tz_alu/engine/slenderness.h"
#include "tz_alu/records/alu_cal.h"

namespace aluframe::explain {

/// Where the input of a check is from, in words for the engineer; empty: not told.
struct Origins {
  std::string forces;    ///< "combination 3 at J, linear analysis"
  std::string section;   ///< "section 1 H 300x150x8x12"
  std::string material;  ///< "material 2 6061-T6"
  std::string member;    ///< "member 4, elements 10-12"
  std::string factor_y;  ///< of the length factor about y: "given", "a chart of columns that sway"
  std::string factor_z;
  std::string coefficient;  ///< of φb, when it is not computed here: "restraints"
  std::string settings;     ///< "design settings of the model"
};

/// One check at one position while its steps are put together.
struct Derivation {
  Derivation(const ALU_DGN_DATA& data, const AluDgnSectForce& force, Origins from);
  Derivation(const Derivation&) = delete;
  Derivation& operator=(const Derivation&) = delete;

  const alu_engine::MATERIAL_CLASS material;
  const alu_engine::CHECK_INPUT in;
  const ALU_CAL_SECTPARA section;  ///< that the checks use
  const alu_engine::SLENDERNESS lambda;
  const bool is_unsymmetric;  ///< top and bottom fibre are checked apart
  const Origins origins;
  Trace trace;

  bool is_weak() const { return material.IsWeakHardening(); }
  bool is_welded() const { return in.Section().bWelded == 1; }
  bool has_ribs() const { return in.Parameters().bRib == 1; }
  std::int32_t shape() const { return in.Section().nShape; }
  /// "weakly hardening alloy" or "strongly hardening alloy".
  std::string hardening() const;
  /// A quantity without a formula, once.
  Term given(const Info& info, double value, const std::vector<std::string>& because = {});
};

}  // namespace aluframe::explain

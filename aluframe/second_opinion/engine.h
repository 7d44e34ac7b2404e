#pragma once

#include "tz_alu/engine/alucode_gb50429_07.h"

namespace aluframe::second_opinion {

/// Forces of a question to the engine: N and mm, compression negative.
struct Forces {
  double n = 0.0, fy = 0.0, fz = 0.0, mx = 0.0, my = 0.0, mz = 0.0;
};

/// One thread's engine with its calculation buffer, so that a question allocates nothing.
class Engine {
 public:
  /// @return false when the section parameters cannot be formed: then nothing was checked
  bool ask(const ALU_DGN_DATA& data, const AluDgnSectForce& force) {
    return engine_.CheckCode(data, force, result_, buffer_) != 0;
  }
  bool ask(const ALU_DGN_DATA& data, const Forces& forces);

  // What the last question gave.
  const T_RALU_SECT& result() const { return result_; }
  const T_RALU_RLT& item(RALU_ITEM_TYPE type) const {
    return result_.aItem[static_cast<std::size_t>(type)];
  }
  const ALU_CAL_SECTPARA& section() const { return buffer_.sectpara; }
  double report(ALU_REPORT_SLOT slot) const { return buffer_.report->dValue[slot]; }

 private:
  CALUCode_GB50429_07 engine_;
  T_RALU_SECT result_;
  ALU_CAL_BUFF buffer_;
};

}  // namespace aluframe::second_opinion

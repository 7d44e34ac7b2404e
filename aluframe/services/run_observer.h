#pragma once

#include <cstdint>

#include "aluframe/store/element_notes.h"
#include "host/tz_db/ralu.h"

namespace aluframe::services {

/// Who follows a run record by record, on the run's own thread, while its host is bound: the module
/// can be asked for the design data of the element at hand. Values are in N and mm.
class RunObserver {
 public:
  virtual ~RunObserver() = default;
  /// A record was stored. Combination 0 is the governing record, which ends the element. What it
  /// throws ends the run as failed.
  virtual void checked(std::uint32_t element, std::uint32_t combination, int min_side,
                       const T_RALU_D& record) = 0;
  /// Adds what is to be stored of the element whose governing record was the last one.
  virtual void add_notes(store::ElementNotes& notes) = 0;
  /// An earlier run was through with this element; it comes before those that are checked.
  virtual void take_up(const store::ElementNotes& notes) = 0;
};

}  // namespace aluframe::services

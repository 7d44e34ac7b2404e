#pragma once

#include "aluframe/analysis/fixed_end_forces.h"

namespace aluframe::analysis {

/// Fixed-end forces of one element in one load case.
struct FixedEndEntry {
  std::size_t load_case = 0;
  EndForceNorms unreleased;  ///< of the forces as if nothing were released
  Vector12 condensed;        ///< the forces with the releases of the element
};

/// Fixed-end forces of all elements in all cases that load them. They are formed once and kept,
/// because both the load vectors and the recovered element forces need them. The cases of one
/// element stand next to each other, as they are used.
class FixedEndTable {
 public:
  FixedEndTable() = default;
  FixedEndTable(const Frame& frame, std::span<const LoadsByElement> loads);

  /// An element in the cases that load it, in their order.
  std::span<const FixedEndEntry> of(std::size_t element) const {
    return std::span(all_).subspan(begin_[element], begin_[element + 1] - begin_[element]);
  }

 private:
  std::vector<std::size_t> begin_;  // per element, and the end
  std::vector<FixedEndEntry> all_;
};

}  // namespace aluframe::analysis

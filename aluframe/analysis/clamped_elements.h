#pragma once

#include "aluframe/analysis/clamped_forces.h"

namespace aluframe::analysis {

/// One element held still under the loads of one case.
struct ClampedElement {
  std::size_t load_case = 0;
  EndSizes unreleased;  ///< of its end forces as if nothing were released
  Vector12 condensed;   ///< its end forces with its releases
};

/// Clamped ends of all elements in all cases that load them. They are formed once and kept, because
/// both the right sides of the equations and the forces of the elements are made of them. The cases
/// of one element stand together, as they are used.
class ClampedElements {
 public:
  ClampedElements() = default;
  ClampedElements(const Frame& frame, std::span<const LoadsByElement> loads);

  /// An element in the cases that load it, in their order.
  std::span<const ClampedElement> of(std::size_t element) const {
    return std::span(all_).subspan(begin_[element], begin_[element + 1] - begin_[element]);
  }

 private:
  std::vector<std::size_t> begin_;  // per element, and the end
  std::vector<ClampedElement> all_;
};

}  // namespace aluframe::analysis

#pragma once

#include <cstddef>
#include <vector>

namespace aluframe::forces {

/// Pairs of element and load case, by their places, whose forces the analysis has computed: they
/// follow from the loads of the model, up to its rounding.
class ComputedPairs {
 public:
  ComputedPairs() = default;
  ComputedPairs(std::size_t elements, std::size_t cases)
      : cases_(cases), is_computed_(elements * cases, false) {}

  void add(std::size_t element, std::size_t load_case) {
    is_computed_[element * cases_ + load_case] = true;
  }
  bool contains(std::size_t element, std::size_t load_case) const {
    return !is_computed_.empty() && is_computed_[element * cases_ + load_case];
  }

 private:
  std::size_t cases_ = 0;
  std::vector<bool> is_computed_;
};

}  // namespace aluframe::forces

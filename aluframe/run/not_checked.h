#pragma once

#include <string>
#include <vector>

#include "aluframe/model/table.h"
#include "aluframe/store/result_file.h"

namespace aluframe::run {

/// A force that no check was made for, and the element in which it acts.
struct UncheckedForce {
  model::Number element = 0;
  store::LargestForce force;
};

inline bool is_moment(const store::LargestForce& force) {
  return force.component.starts_with('M');
}

/// What one reason kept from being checked.
struct NotCheckedGroup {
  std::string reason;
  std::vector<model::Number> elements;      ///< rising
  std::vector<model::Number> combinations;  ///< rising; empty: all
  std::vector<UncheckedForce> largest;      ///< of every component that the reason is about
};

/// Items put together by their reason, and the combinations that it holds for; by the alphabet.
std::vector<NotCheckedGroup> group_not_checked(const std::vector<store::NotChecked>& items);

/// The worst second opinion on the shear or torsion that a group is about, of the whole check;
/// null: there is none.
const store::RemarkRow* second_opinion_on(const NotCheckedGroup& group,
                                          const std::vector<store::RemarkRow>& remarks);

}  // namespace aluframe::run

#pragma once

#include <string>
#include <vector>

#include "aluframe/model/table.h"
#include "aluframe/store/result_file.h"

namespace aluframe::run {

/// What one reason kept from being checked.
struct NotCheckedGroup {
  std::string reason;
  std::vector<model::Number> elements;      ///< rising
  std::vector<model::Number> combinations;  ///< rising; empty: all
  /// Of every force that the reason is about, the item in which it is largest.
  std::vector<store::NotChecked> largest;
};

/// Items put together by their reason, and the combinations that it holds for; by the alphabet.
std::vector<NotCheckedGroup> group_not_checked(const std::vector<store::NotChecked>& items);

}  // namespace aluframe::run

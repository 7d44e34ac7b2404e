#pragma once

#include <functional>

#include "aluframe/second_opinion/rules.h"

namespace aluframe::second_opinion {

/// One question's answer: the ratio of a check item, and the rules that it sets right.
struct Answer {
  int item = 0;  ///< RALU_ITEM_TYPE
  double ratio = 0.0;
  RuleSet rules;
};

/// Takes the answers of a question, each as it comes; a question that does not arise gives none.
using Take = std::function<void(const Answer&)>;

}  // namespace aluframe::second_opinion

#pragma once

#include <string_view>
#include <vector>

namespace aluframe::explain {

/// A value of a step by hand: its symbol, with "@" and the item where every item has its own.
struct WorkedValue {
  std::string_view symbol;
  double value;
};

/// A worked example of docs/verification: its check point, and what its derivation comes to.
struct WorkedExample {
  std::string_view page;
  int number;
  std::string_view point;  ///< as `aluframe points` takes it
  std::vector<WorkedValue> values;
};

/// The derivations of docs/verification, worked out apart from the program.
const std::vector<WorkedExample>& worked_examples();

}  // namespace aluframe::explain

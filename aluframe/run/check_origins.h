#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "aluframe/explain/derivation.h"
#include "aluframe/run/explained_check.h"
#include "aluframe/run/input.h"
#include "aluframe/store/result_file.h"

// Where the input of a check is from: kept sentences, English.

namespace aluframe::run {

/// The combination of the run; null when the run does not list it.
const store::CombinationRow* row_of(const store::RunInfo& info, std::uint32_t number);

/// "combination 3 "wind"", of a state that of its envelope.
std::string combination_text(const store::RunInfo& info, const CheckPlace& place);

/// "I", "1/4", ... as everywhere.
const char* position_text(int position);

/// Tells where the input of the checks of one run is from.
class CheckOrigins {
 public:
  /// Both outlive it.
  CheckOrigins(const Input& input, const store::RunInfo& info);

  /// @param elements rising; of more than one, all that is told is true of each: its combination,
  ///   section, material, source of length factors, and whether it belongs to a member
  explain::Origins of(const std::vector<model::Number>& elements, const CheckPlace& place) const;
  bool has_member(model::Number element) const;

 private:
  const members::SegmentFactors* factors_of(model::Number element) const;
  /// Null where restraints give the element nothing.
  const services::RestrainedValues* restrained_of(model::Number element) const;
  std::string member_text(const std::vector<model::Number>& elements) const;

  const Input& input_;
  const store::RunInfo& info_;
  std::unordered_map<model::Number, const members::SegmentFactors*> factors_;
};

}  // namespace aluframe::run

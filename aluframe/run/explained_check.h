#pragma once

#include <optional>
#include <vector>

#include "aluframe/model/table.h"
#include "aluframe/run/problem.h"
#include "aluframe/store/result_file.h"

// Which stored check an engineer means to follow.

namespace aluframe::run {

/// What the user asks for; what is left open is that of the worst check.
struct WantedCheck {
  model::Number element = 0;
  std::optional<int> item = std::nullopt;  ///< RALU_ITEM_TYPE
  /// Of the model, or one of the states of an envelope.
  std::optional<model::Number> combination = std::nullopt;
  std::optional<int> min_side = std::nullopt;  ///< 0 maximum, 1 minimum side of an envelope
  std::optional<int> position = std::nullopt;  ///< 0..4
};

/// One check at one place.
struct CheckPlace {
  int item = 0;
  std::uint32_t combination = 0;
  int min_side = 0;
  int position = 0;
  /// As stored; nothing: there is none, and a derivation says why.
  std::optional<T_RALU_RLT> stored;
};

/// The worst of the stored checks that are wanted. Where none of them has a result, the first place
/// at which it could have one.
Result<CheckPlace> find_check(store::ResultReader& reader, const WantedCheck& wanted);

/// The worst stored check of an element; nothing when it has none.
std::optional<CheckPlace> governing_check(store::ResultReader& reader, model::Number element);
/// The worst stored check of each item that has one, by item.
std::vector<CheckPlace> worst_checks(store::ResultReader& reader, model::Number element);

}  // namespace aluframe::run

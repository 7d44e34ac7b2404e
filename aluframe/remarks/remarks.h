#pragma once

#include <optional>
#include <string>
#include <vector>

#include "aluframe/members/length_factors.h"
#include "aluframe/model/model.h"

/// What an engineer is owed a word about before trusting the checks of a model, from the model
/// alone. docs/warnings.md lists every kind with its reason and its remedy.
namespace aluframe::remarks {

/// One kind of remark with everything that it concerns.
struct Remark {
  std::string rule;                      ///< of docs/behaviour.md, such as "W1", or a word: "truss"
  std::vector<model::Number> elements;   ///< all that it concerns, ascending
  std::optional<model::Number> element;  ///< the worst of them
  std::optional<model::Number> section;  ///< of the worst one, when the section is to blame
  std::optional<model::Number> member;   ///< of the worst one, when it belongs to one
  std::string text;                      ///< one line: what, where, and what to do about it
  /// What the text is about where it is a number: the effective over the gross area, a length
  /// factor, a given coefficient, a width over thickness over its limit.
  std::optional<double> value;
};

/// All remarks on a model, at most one of each kind, in a fixed order. Empty for most frames. The
/// model must be consistent, as its reader leaves it, and its members complete
/// (members/find_members.h).
std::vector<Remark> model_remarks(const model::Model& model);
/// The same for a caller that has `members::length_factors(model)` already.
std::vector<Remark> model_remarks(const model::Model& model,
                                  const std::vector<members::SegmentFactors>& factors);

}  // namespace aluframe::remarks

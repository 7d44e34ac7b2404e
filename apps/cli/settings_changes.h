#pragma once

#include <optional>
#include <string>
#include <vector>

#include "aluframe/model/model.h"

namespace aluframe::cli {

/// What is to become of a model's settings and of one of its materials, as the user wrote it.
struct WantedChanges {
  std::vector<std::string> set;         ///< "rib-ratio=1.2" of the settings
  std::optional<std::string> material;  ///< number of the material that the others are of
  std::optional<std::string> grade;     ///< an alloy of the code's table, which gives all values
  std::optional<std::string> name;
  std::optional<std::string> e, poisson, fu, f02_thin, f02_thick;  ///< N/mm²

  bool empty() const { return set.empty() && !material; }
};

/// Names that `set` takes, joined for messages.
std::string setting_names();

/// Makes the changes. Any value of the user makes the material one of the user's own, without
/// standard and grade, that keeps its name or, when it has none, goes by the grade it had. Settings
/// that would be the defaults of a model without settings do not come into being.
/// @return what is wrong, a line each: option, what was found, what is allowed; the model is then
///         not to be used
std::vector<std::string> apply(const WantedChanges& wanted, model::Model& model);

}  // namespace aluframe::cli

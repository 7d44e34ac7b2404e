#pragma once

#include <string_view>

#include "aluframe/model/combination_rule.h"

namespace aluframe::model {

/// Name in model files.
constexpr std::string_view name_of(ActionKind kind) {
  switch (kind) {
    case ActionKind::none:
      return "none";
    case ActionKind::permanent:
      return "permanent";
    case ActionKind::prestress:
      return "prestress";
    case ActionKind::settlement:
      return "settlement";
    case ActionKind::live:
      return "live";
    case ActionKind::snow:
      return "snow";
    case ActionKind::wind:
      return "wind";
    case ActionKind::temperature:
      return "temperature";
    case ActionKind::construction:
      return "construction";
    case ActionKind::earthquake:
      return "earthquake";
    case ActionKind::accidental:
      return "accidental";
  }
  return {};
}

constexpr std::string_view name_of(Favourable favourable) {
  switch (favourable) {
    case Favourable::also:
      return "also";
    case Favourable::never:
      return "never";
    case Favourable::only:
      return "only";
  }
  return {};
}

constexpr std::string_view name_of(CombinationType type) {
  switch (type) {
    case CombinationType::fundamental:
      return "fundamental";
    case CombinationType::seismic:
      return "seismic";
    case CombinationType::accidental:
      return "accidental";
    case CombinationType::characteristic:
      return "characteristic";
    case CombinationType::frequent:
      return "frequent";
    case CombinationType::quasi_permanent:
      return "quasi_permanent";
  }
  return {};
}

}  // namespace aluframe::model

#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "aluframe/model/model.h"

namespace aluframe::desktop {

/// A number or a choice of a design attribute.
struct AttributeField {
  const char* name;                  ///< marked text; may be empty
  std::vector<const char*> choices;  ///< marked texts; empty: a number
  double least = 0.0;                ///< of a number
  bool may_be_least = false;
  /// Of an element that has the attribute; a choice by its place.
  std::function<double(const model::Element&)> get;
  std::function<void(model::Element&, double)> set;
};

/// A design attribute of elements: given for an element, or not.
struct Attribute {
  const char* name;  ///< marked text
  std::function<bool(const model::Element&)> is_given;
  /// Gives it its usual values, or takes it away.
  std::function<void(model::Element&, bool)> give;
  /// Where it comes from when it is not given: a kept text.
  std::function<std::string(const model::Model&, const model::Element&)> origin;
  std::vector<AttributeField> fields;
};

/// All of them, in the order of the panel.
const std::vector<Attribute>& attributes();

}  // namespace aluframe::desktop

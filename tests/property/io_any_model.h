#pragma once

#include <rapidcheck.h>
#include <initializer_list>
#include <vector>

#include "aluframe/model/model.h"

/// Random models for properties of files. To be called inside a property only.
namespace aluframe::io {

template <class Value>
Value any_of(std::initializer_list<Value> values) {
  return *rc::gen::elementOf(std::vector<Value>(values));
}

/// A consistent model of a few entities of every kind and content, in any units, as reading gives
/// it.
model::Model any_model();

}  // namespace aluframe::io

#pragma once

#include "aluframe/model/model.h"

/// Random models for properties of files. To be called inside a property only.
namespace aluframe::io {

/// A consistent model of a few entities of every kind and content, in any units, as reading gives
/// it.
model::Model any_model();

/// Loads of every kind on nodes and elements of the model, none that does nothing.
model::CaseLoads any_case_loads(const model::Model& model);

}  // namespace aluframe::io

#pragma once

#include "aluframe/analysis/second_order.h"
#include "aluframe/model/model.h"

namespace aluframe::forces {

/// How the model wants its combinations analysed in second order: with its imperfections, whose
/// bows are those of its members.
analysis::SecondOrderOptions second_order_options(const model::Model& model);

}  // namespace aluframe::forces

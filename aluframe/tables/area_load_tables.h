#pragma once

#include <functional>
#include <string>

#include "aluframe/model/model.h"
#include "aluframe/tables/output_table.h"

/// Loads per area as they are worked out, in the given units.
namespace aluframe::tables {

/// Whether a load case is shown.
using ShowsCase = std::function<bool(const model::LoadCase&)>;

/// What an area load acts on: "region of nodes 1-4", "region of 4 points", "elements 5, 7".
std::string area_load_place(const model::AreaLoad& load);

/// A line an area load: what it acts on, its pressure, its area and the forces that its line loads
/// add up to, along X, Y and Z; those in local axes of elements have none.
OutputTable area_loads_table(const model::Model& model, const model::Units& units,
                             const ShowsCase& shows);

/// A line a step from the parameters of wind and snow to the pressure.
OutputTable pressures_table(const model::Model& model, const model::Units& units,
                            const ShowsCase& shows);

/// A line a piece of an element: where it is, as parts of the length, and force per length there,
/// along a global or local axis.
OutputTable line_loads_table(const model::Model& model, const model::Units& units,
                             const ShowsCase& shows);

}  // namespace aluframe::tables

#pragma once

#include "aluframe/model/model.h"
#include "aluframe/tables/output_table.h"

// What a model consists of, a line an entity in the order of the file. Lengths, sections and
// springs are in the model's units, which their headings and keys name; strengths and E are in
// N/mm².

namespace aluframe::tables {

/// Coordinates and supports.
OutputTable nodes_table(const model::Model& model);
/// Nodes, section, material, member, type by which rules are chosen, length, axes and releases.
OutputTable elements_table(const model::Model& model);
/// The chains of elements that are checked as one, with length factors where these are given.
OutputTable members_table(const model::Model& model);
/// Dimensions, and properties as the checks take them; how many elements have the section.
OutputTable sections_table(const model::Model& model);
OutputTable materials_table(const model::Model& model);
/// How many loads of each sort a load case has, and whether the model gives forces in it.
OutputTable load_cases_table(const model::Model& model);
/// The combinations of the file, without the states that envelopes are checked by.
OutputTable combinations_table(const model::Model& model);

}  // namespace aluframe::tables

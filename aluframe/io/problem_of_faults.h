#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "aluframe/io/faults.h"
#include "aluframe/io/json_document.h"
#include "aluframe/io/problem.h"

namespace aluframe::io {

/// A message has at most so many faults: more are not read by anybody.
inline constexpr std::size_t most_faults_told = 20;

/// The gathered faults of a document as a problem, in the order of its text. There must be one.
/// @param text that the document was made from
Problem problem_of(const Faults& faults, const JsonDocument& document, std::string_view text,
                   const std::string& file);

/// The lines, from 1, where values of a document begin in its text.
/// @param places in ascending order
std::vector<std::size_t> lines_of(std::string_view text,
                                  const std::vector<JsonDocument::Place>& places);

/// The entity that a value belongs to, by its own number: "element 12", "support of node 3",
/// "element 3, load case 2" for its forces. Empty outside of the lists of entities and where no
/// number can be read.
std::string entity_at(const JsonDocument& document, JsonDocument::Place place);

}  // namespace aluframe::io

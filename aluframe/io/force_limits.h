#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "aluframe/model/model.h"

namespace aluframe::io {

/// A force table has room for every pair of element and load case; beyond this number (2.5 GB) a
/// model is refused instead of exhausting memory.
inline constexpr std::size_t most_force_pairs = 20'000'000;

/// Why the model is too large to carry forces, or nothing.
std::optional<std::string> find_force_size_problem(const model::Model& model);

}  // namespace aluframe::io

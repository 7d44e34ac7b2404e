#pragma once

#include <vector>

#include "aluframe/run/input.h"
#include "aluframe/store/result_file.h"

// What an engineer is owed a word about before trusting the ratios of a model, however it is run.

namespace aluframe::run {

/// The kind of remark on forces that are given at the ends of loaded elements alone.
inline constexpr const char* unknown_between_ends = "ends";

/// The remark on displacements of second order that are not small: `subjects` are its combinations
/// or load cases, "combinations 1-4, 7", and `worst` is one of them.
std::string growth_remark(const std::string& subjects, const std::string& worst, double share,
                          const std::string& moves);

/// Everything that follows from the prepared input alone, a row a kind: magnitudes, welds, length
/// factors, ends taken as free, elements that count as vertical, torsion constants, forces without
/// inner positions, envelopes checked by their extremes. Kinds are those of docs/warnings.md.
std::vector<store::RemarkRow> input_remarks(const Input& input);

}  // namespace aluframe::run

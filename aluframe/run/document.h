#pragma once

#include <array>
#include <filesystem>
#include <functional>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "aluframe/picture/content.h"
#include "aluframe/run/analysis.h"
#include "aluframe/run/document_checks.h"
#include "aluframe/run/element_result.h"
#include "aluframe/run/input.h"
#include "aluframe/run/results.h"
#include "aluframe/run/told.h"

// What the calculation document shows of a model and of the results of its check.

namespace aluframe::run {

/// The worst of all checks made in one combination, or in one state of an envelope.
struct CombinationResult {
  std::uint32_t number = 0;                  ///< as the results have it
  std::optional<store::GoverningRow> worst;  ///< nothing: no check in it has a limit
  std::size_t over = 0;                      ///< elements of which a check fails in it
};

/// A member whose element has the worst ratio of a section, or an element that belongs to none.
struct GoverningMember {
  std::optional<model::Number> member;
  std::vector<model::Number> elements;  ///< from its start to its end
  model::Number section = 0;
  store::GoverningRow worst;
  /// N, Vy, Vz, T, My, Mz under the combination of the worst check, of the elements in their order;
  /// empty where no forces are known.
  std::array<std::vector<picture::ForceLine>, 6> forces;
  /// By element, the largest ratio of each check position in all combinations; no number where no
  /// check has a limit.
  std::vector<std::array<double, kCheckPositions>> ratios;
};

struct DocumentOptions {
  InputOptions input;
  std::filesystem::path results;
  Selection selection;  ///< elements that the document is of
};

struct DocumentContent {
  Input input;
  store::RunInfo info;
  Coverage coverage;
  Told told;                              ///< of the elements that the document is of
  std::vector<std::string> reservations;  ///< why the results are not those of a whole check
  std::vector<ElementResult> elements;    ///< the worst ratio first
  std::map<std::uint32_t, store::SafeRow> safe;
  std::vector<CombinationResult> combinations;
  std::vector<GoverningMember> governing_members;  ///< the worst ratio first
  std::optional<Analysis> analysis;                ///< of load cases, in second order combinations
  std::string no_analysis;                         ///< why there is none
};

/// Gathers what the document shows by results that are of the model as it is now.
/// @throws std::runtime_error when the results cannot be read
Result<DocumentContent> gather_document(const DocumentOptions& options);

/// Hands over how the checks of the document's elements come about (`for_each_derivation`).
/// @param results that the content was gathered by
/// @throws std::runtime_error when a check cannot be explained, or the results cannot be read
void derive_checks(const DocumentContent& content, const std::filesystem::path& results,
                   DerivationDetail detail, const std::function<void(const ExplainedCheck&)>& take);

}  // namespace aluframe::run

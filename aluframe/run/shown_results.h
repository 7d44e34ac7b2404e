#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "aluframe/picture/content.h"
#include "aluframe/run/element_result.h"
#include "aluframe/run/results.h"
#include "aluframe/run/told.h"

namespace aluframe::run {

/// The results of a model as a window shows them: read once, and kept while the model is open.
struct ShownResults {
  std::filesystem::path file;
  store::RunInfo info;
  Coverage coverage;
  std::map<model::Number, ElementResult> elements;  ///< those with a governing check
  std::map<std::uint32_t, store::SafeRow> safe;     ///< second opinions
  Told told;
  /// Why they are not to be trusted: of another state of the model, of a run that did not end;
  /// empty: they are.
  std::vector<std::string> cautions;

  /// Null: the element has no governing check.
  const ElementResult* find(model::Number element) const;
};

/// The results that stand beside the model; nothing when there are none.
/// @param digest of the model as `read_input` has it with these options
/// @return a problem when they cannot be read
Result<std::optional<ShownResults>> shown_results(const InputOptions& options,
                                                  const std::string& digest);

/// The largest ratio of each element that was checked in a combination of the model, of an envelope
/// in all of its states.
/// @throws std::runtime_error when the results cannot be read
picture::Ratios ratios_in_combination(const ShownResults& results, model::Number combination);

}  // namespace aluframe::run

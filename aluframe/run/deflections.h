#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "aluframe/model/number_ranges.h"
#include "aluframe/run/input.h"
#include "aluframe/texts/text.h"

// How far the frame is displaced under its combinations for serviceability, and what it is limited
// to. These are checks beside those of the design module, never among them.

namespace aluframe::run {

/// A combination, or some states of it, under which displacements are not known, and why.
struct UnknownDisplacements {
  model::Number combination = 0;
  std::string reason;
};

struct RunDisplacements {
  /// Deflections of spans along y, then along z, in the order of members and elements; drifts and
  /// nodes in the order of their limits. Empty without a combination for serviceability.
  std::vector<store::DisplacementRow> rows;
  std::vector<UnknownDisplacements> unknown;
};

/// What the user names of the combinations for serviceability; empty: all.
Result<RunDisplacements> find_displacements(const Input& input,
                                            const model::NumberRanges& combinations);

/// Whether a model has a combination for serviceability.
bool is_looked_at_in_use(const model::Model& model);

/// Those of all combinations for serviceability, whatever the run is limited to: limits hold for
/// the frame.
RunDisplacements displacements_of_run(const Input& input, const GoesOn& goes_on);

/// What an engineer is owed a word about: limits that are passed, with the remedy, and combinations
/// under which nothing is known.
std::vector<store::RemarkRow> displacement_remarks(const RunDisplacements& displacements);

/// The latter alone, one a reason.
std::vector<store::RemarkRow> remarks_on_unknown(const RunDisplacements& displacements);

/// Over the limit; nothing without one, or where the displacement is not known.
std::optional<double> ratio_of(const store::DisplacementRow& row);
/// Whether a displacement passes its limit: the frame fails in use, whatever its strength is.
bool exceeds_limit(const store::DisplacementRow& row);

/// The row with the largest ratio, the first of those that differ by rounding alone; null where
/// nothing is limited or known.
const store::DisplacementRow* worst_displacement(const std::vector<store::DisplacementRow>& rows);
/// The same of the largest share of a span.
const store::DisplacementRow* largest_share(const std::vector<store::DisplacementRow>& rows);

/// The largest ratio of the deflections that each element has a part of; an element that no limit
/// holds for, or whose deflection is not known, has none.
std::map<model::Number, double> deflection_ratios(const std::vector<store::DisplacementRow>& rows);

/// The elements for which a limit holds and that no deflection is known of, ascending.
std::vector<model::Number> unknown_deflections(const std::vector<store::DisplacementRow>& rows);

/// Kind of the remark on combinations under which displacements are unknown.
inline constexpr const char* unknown_displacements = texts::translatable("unknown displacements");

/// "member 3 (nodes 1 to 5)", "elements 1-4 (nodes 1 to 5)", "element 7", "drift between nodes 1
/// and 9", "node 5"; in English, and translated as a sentence.
std::string subject_text(const store::DisplacementRow& row);

/// The span over its deflection, as in L/250; nothing where nothing moves.
std::optional<double> span_share(const store::DisplacementRow& row);

}  // namespace aluframe::run

#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "aluframe/analysis/frame.h"
#include "aluframe/forces/compute_forces.h"
#include "aluframe/members/length_factors.h"
#include "aluframe/model/model.h"
#include "aluframe/model/number_ranges.h"
#include "aluframe/run/frame_modes.h"
#include "aluframe/run/problem.h"
#include "aluframe/run/restraints.h"
#include "aluframe/run/setup.h"
#include "aluframe/store/result_file.h"
#include "aluframe/texts/text.h"

// What every run over a model begins with: the model read and completed, limited to what the user
// named, and given its forces.
//
//     auto prepared = run::prepare({.model = "frame.json"});
//     if (const auto* problem = std::get_if<run::Problem>(&prepared)) ...
//     const auto& input = std::get<run::Input>(prepared);

namespace aluframe::run {

/// What a run makes its model from.
struct InputOptions {
  std::filesystem::path model;
  /// CSV in place of the model's forces.
  std::optional<std::filesystem::path> forces = std::nullopt;
  bool second_order = false;         ///< whatever the model says
  bool large_displacements = false;  ///< whatever the model says
  FrameBuckling buckling = FrameBuckling::on;
  bool allow_outside = false;  ///< catalogues that lie outside of the model's folder

  friend bool operator==(const InputOptions&, const InputOptions&) = default;
};

/// Why large displacements and imperfections do not go together.
inline constexpr const char* no_large_imperfections = texts::translatable(
    "large displacements start from the nodes of the model: displace these in place of "
    "imperfections, or leave --large-displacements and --limit-load out");

/// What the user limits a run to; empty: everything.
struct Selection {
  model::NumberRanges elements;
  model::NumberRanges combinations;  ///< design combinations
};

/// A model as its file has it, and with the members that the file leaves to be found.
struct Input {
  std::filesystem::path file;
  model::Model model;
  std::size_t found_members = 0;  ///< of its members, those that the file leaves to be found
  /// Digest of what is to be checked: the model, its loads and the forces that it is given.
  std::string digest;
  std::vector<model::Number> elements;   ///< that the run is limited to; empty: all
  std::set<model::Number> combinations;  ///< that the run is limited to; empty: all for design
  forces::Summary forces;                ///< how forces were computed, once they are
  FrameBuckling buckling = FrameBuckling::on;  ///< whether it is looked at
  std::optional<FrameModes> modes;  ///< of all combinations, where length factors hang on them
  std::vector<members::SegmentFactors> length_factors;  ///< once it is prepared
  Restrained restrained;  ///< by what holds members beside the frame, once it is prepared
  SetupOrigins origins;   ///< of what the run goes by
  store::RunSetup setup;  ///< what it goes by, once it is prepared
  std::vector<store::RemarkRow> remarks;  ///< on it (run/remarks.h), once it is prepared
};

/// Reads the model, and the forces that take the place of its own, and completes it. What the
/// selection names must exist.
Result<Input> read_input(const InputOptions& options, const Selection& selection = {});

/// Reads the input and computes the forces that follow from the model's loads, and the length
/// factors.
Result<Input> prepare(const InputOptions& options, const Selection& selection = {});

/// The problem of an analysis as it is told, with the JSON path of the element or node that it is
/// about, of the first one when there are several.
Problem problem_of(const std::filesystem::path& file, const analysis::Problem& problem);

}  // namespace aluframe::run

#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "aluframe/members/frame_mode.h"
#include "aluframe/model/model.h"

namespace aluframe::run {

struct Input;

/// Whether the buckling of the frame is looked at.
enum class FrameBuckling { on, off };

/// One factor of the loads of a combination or a load case at which the frame buckles.
struct BucklingFactor {
  model::Number subject = 0;     ///< number of the combination or the load case
  std::optional<double> factor;  ///< nothing: nothing is compressed, or `unknown` says why
  std::string mode = {};         ///< "nodes 2-3 move along X"
  /// Elements whose axial force does a tenth of the work in the mode, or more.
  std::vector<model::Number> elements = {};
  std::string unknown = {};  ///< why no factor is known, of all or of some states; empty: it is
};

/// How combinations buckle the frame.
struct FrameModes {
  std::vector<BucklingFactor> factors;    ///< the smallest of every combination, by number
  std::vector<members::FrameMode> modes;  ///< of these, and others that length factors follow from
  /// Combinations with more modes near the first than were looked for.
  std::vector<model::Number> passed_over;
};

/// Asked before every combination; what is left when it says no is not worked out.
using GoesOn = std::function<bool(int done, int total)>;

/// The smallest factor of every combination of a run, by number, and its mode; of an envelope that
/// of its states. States in which forces are given have none.
FrameModes frame_modes(const Input& input, const GoesOn& goes_on);

/// Combinations that a run looks at: envelopes, not their states.
std::vector<model::Number> combinations_of_run(const Input& input);

/// The same of all design combinations of the model, whatever the run is limited to, because length
/// factors do not depend on that.
FrameModes frame_modes_of_all(const Input& input);

}  // namespace aluframe::run

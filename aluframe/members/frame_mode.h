#pragma once

#include <vector>

#include "aluframe/analysis/axial_work.h"
#include "aluframe/model/model.h"

namespace aluframe::members {

/// A buckling mode of the frame under the loads of a combination. By element, in the order of
/// the model:
struct FrameMode {
  model::Number combination = 0;
  double factor = 0.0;  ///< of the loads at which the frame buckles so
  /// Whether its factor is near the smallest of its loads: no mode of these was passed over.
  bool is_near = true;
  std::vector<analysis::AxialWork> work;  ///< of its axial force in the mode
  std::vector<double> compression;        ///< the largest in it at the factor 1, N
};

/// An effective length factor that follows from a mode.
struct ModeLength {
  double k = 1.0;
  model::Number combination = 0;
  double factor = 0.0;
  bool is_near = true;  ///< the mode is (FrameMode)
};

}  // namespace aluframe::members

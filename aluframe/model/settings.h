#pragma once

#include <optional>

#include <string>

namespace aluframe::model {

/// Aluminium design settings of the model.
struct DesignSettings {
  std::string code = "GB50429-07(A)";  ///< the host's internal name of GB 50429-2007
  bool rib = true;                     ///< plates are stiffened by ribs
  double rib_ratio = 1.2;              ///< stiffener factor
  int safety_class = 2;                ///< 1, 2 or 3: γ0 is 1.1, 1.0 or 0.9
  double strength_ratio = 0.85;        ///< net over gross area in strength checks
  bool seismic = false;                ///< seismic combinations use γRE instead of γ0
  double gamma_re_strength = 0.75;
  double gamma_re_stability = 0.8;

  friend bool operator==(const DesignSettings&, const DesignSettings&) = default;
};

/// Where effective length factors come from that the model does not give.
enum class LengthFactors {
  computed,  ///< from the stiffness of what frames into the ends, and from the buckling modes of
             ///< the frame where that is no measure
  buckling,  ///< from the buckling modes of the frame
  one        ///< they are 1
};

/// The usual border of first-order analysis: beyond it second-order effects stay below a tenth.
inline constexpr double usual_buckling_limit = 10.0;

/// How the frame is stabilised and its stability judged. Whether it is braced against sway along
/// its two axes: a is global X, b global Y.
struct FrameSettings {
  bool braced_a = false;
  bool braced_b = false;
  LengthFactors length_factors = LengthFactors::computed;
  /// A combination whose buckling load factor is smaller has a remark; nothing: the usual limit.
  std::optional<double> buckling_limit = std::nullopt;

  friend bool operator==(const FrameSettings&, const FrameSettings&) = default;
};

/// What the frame is out of true by before it is loaded; 0: nothing.
struct Imperfections {
  double sway_x = 0.0, sway_y = 0.0;  ///< lean of the whole frame along X and Y, rad
  /// Bow of every member in the middle, over its length, by which it bends about its y and z.
  double bow_y = 0.0, bow_z = 0.0;
  double mode = 0.0;  ///< largest displacement of the first buckling mode, mm

  bool any() const { return *this != Imperfections(); }
  friend bool operator==(const Imperfections&, const Imperfections&) = default;
};

/// How element forces are computed from loads.
struct AnalysisSettings {
  /// Axial forces act on the displaced frame, each combination analysed on its own.
  bool second_order = false;
  /// With `second_order`: displacements and rotations of any size.
  bool large_displacements = false;
  Imperfections imperfections;  ///< in second order with small displacements only

  friend bool operator==(const AnalysisSettings&, const AnalysisSettings&) = default;
};

/// The limit of buckling load factors where the model gives none: where forces are of second order
/// and have imperfections in them, what grows towards buckling is in the forces, and 1 remains.
inline double usual_limit(const AnalysisSettings& analysis) {
  return analysis.second_order && analysis.imperfections.any() ? 1.0 : usual_buckling_limit;
}

}  // namespace aluframe::model

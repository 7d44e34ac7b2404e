#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "aluframe/model/table.h"

namespace aluframe::model {

/// Shapes of sections. `other` is a section given by its properties alone, which the checks of
/// GB 50429-2007 do not cover.
enum class Shape { channel, h_section, tee, box, pipe, double_channel, solid_round, other };

/// Name in model files and in the host's records: "C", "H", "T", "B", "P", "2C", "SR", "UP".
std::string_view name_of(Shape shape);
std::optional<Shape> parse_shape(std::string_view name);
/// "C, H, T, B, P, 2C, SR, UP", for messages.
std::string_view shape_names();

/// Names of a shape's dimensions, in the host's order:
/// C and H: H, B1, tw, tf1, B2, tf2, r1, r2; T: H, B, tw, tf; B: H, B, tw, tf1, C, tf2 (C: distance
/// of the web centres); P: D, t; 2C: H, B, tw, tf, C (gap between the backs); SR: D; UP: none.
std::span<const std::string_view> dimension_names(Shape shape);
/// How many of them must be given: the others have a default (B2 = B1, tf2 = tf1, C = B − tw for a
/// box, C = 0 for 2C, r1 = r2 = 0).
std::size_t required_dimensions(Shape shape);

/// What a dimension is when the file does not give it, in mm: B2 = B1 and tf2 = tf1 (the other
/// flange is the same), C = B − tw of a box (its webs at the edges), 0 for r1, r2 and the gap
/// between two channels. `dimension` is a place in dimension_names behind the required ones;
/// the places before it are filled in.
double default_dimension(Shape shape, std::size_t dimension,
                         const std::array<double, 8>& dimensions);

/// Properties of a section about its centroid; y parallel to the flanges and positive to the right
/// when x points at the viewer, z up. Lengths in mm.
struct SectionProperties {
  double area = 0.0;
  double it = 0.0;   ///< St-Venant torsion constant
  double iyy = 0.0;  ///< second moment of area about y (strong axis)
  double izz = 0.0;
  double qyb = 0.0;  ///< Q/b for shear along z: largest first moment over the width it acts on, mm²
  double qzb = 0.0;  ///< Q/b for shear along y
  double iw = 0.0;   ///< warping constant about the shear centre
  double shear_centre_y = 0.0;  ///< from the centroid; of a channel beyond its web, else 0
  double shear_centre_z = 0.0;  ///< from the centroid
  /// Stress points: top left, top right, bottom right, bottom left.
  std::array<double, 4> point_y{};
  std::array<double, 4> point_z{};

  friend bool operator==(const SectionProperties&, const SectionProperties&) = default;
};

/// Properties that the user gives instead of having them computed. For shape `other` the area, both
/// moments of inertia and the stress points are required.
struct GivenProperties {
  std::optional<double> area, it, iyy, izz, qyb, qzb, iw, shear_centre_z;
  std::optional<std::array<double, 4>> point_y, point_z;

  friend bool operator==(const GivenProperties&, const GivenProperties&) = default;
};

struct Section {
  Number number = 0;
  std::string name;
  Shape shape = Shape::other;
  /// Dimensions in the order of `dimension_names`, defaults filled in. Unused places are 0.
  std::array<double, 8> dimensions{};
  bool welded = false;
  GivenProperties given;

  friend bool operator==(const Section&, const Section&) = default;
};

}  // namespace aluframe::model

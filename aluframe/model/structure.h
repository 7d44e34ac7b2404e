#pragma once

#include <array>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "aluframe/model/restraint.h"
#include "aluframe/model/serviceability.h"
#include "aluframe/model/table.h"

namespace aluframe::model {

/// Node in global coordinates, mm, Z up.
struct Node {
  Number number = 0;
  std::string name;
  double x = 0.0, y = 0.0, z = 0.0;

  friend bool operator==(const Node&, const Node&) = default;
};

/// How the ground holds a node in its six directions: translations Dx, Dy, Dz, then rotations Rx,
/// Ry, Rz (global). A direction is held rigidly, by a spring, or not at all.
struct Support {
  Number node = 0;
  std::array<bool, 6> restrained{};
  /// Springs, N/mm along and N·mm/rad about the axes; 0 is none.
  std::array<double, 6> springs{};

  friend bool operator==(const Support&, const Support&) = default;
};

enum class ElementKind {
  beam,  ///< axial force, shear, bending and torsion
  truss  ///< axial force only
};

/// Member type by which the checks choose their rules.
enum class MemberType { column, beam, brace, truss };

/// Equivalent moment factor of one axis: computed from the loading between the ends (0 to 3), or
/// given.
struct MomentFactor {
  std::optional<double> value;
  int loading = 0;

  friend bool operator==(const MomentFactor&, const MomentFactor&) = default;
};

/// Design attributes of one element; what is not given comes from the settings or the member.
struct ElementDesign {
  struct AxisPair {
    double y = 1.0, z = 1.0;
    friend bool operator==(const AxisPair&, const AxisPair&) = default;
  };
  struct Rib {
    bool stiffened = true;
    double ratio = 1.2;
    friend bool operator==(const Rib&, const Rib&) = default;
  };
  struct MomentFactors {
    MomentFactor y, z;
    friend bool operator==(const MomentFactors&, const MomentFactors&) = default;
  };
  struct Slenderness {
    bool checked = true;
    double compression = 200.0, tension = 300.0;
    friend bool operator==(const Slenderness&, const Slenderness&) = default;
  };

  std::optional<AxisPair> stability_coefficients;  ///< φb and φbz: bending about y and z
  std::optional<Rib> rib;
  std::optional<double> weld_coefficient;
  std::optional<double> haz_width;  ///< mm, on each side of a weld
  std::optional<MomentFactors> moment_factors;
  std::optional<AxisPair> length_factors;  ///< effective length factors about y and z
  std::optional<Slenderness> slenderness_limits;

  friend bool operator==(const ElementDesign&, const ElementDesign&) = default;
};

/// Where the z axis of an element's section points, given outright: z lies in the plane of the
/// element's axis and a direction in global coordinates (any length), on its side. A node stands
/// for the direction from the element's start to it.
using Orientation = std::variant<std::array<double, 3>, Number>;

struct Element {
  Number number = 0;
  std::string name;
  std::array<Number, 2> nodes{};  ///< start, end
  Number section = 0;
  Number material = 0;
  /// In place of the rule for vertical and other elements (docs/sign-convention.md).
  std::optional<Orientation> orientation = std::nullopt;
  double beta = 0.0;  ///< rotation of the section about the axis, degrees; after `orientation`
  ElementKind kind = ElementKind::beam;
  std::optional<MemberType> member_type;  ///< overrides the type that follows from the direction
  /// Releases of N, Fy, Fz, Mx, My, Mz at the start, then at the end.
  std::array<bool, 12> released{};
  ElementDesign design;

  friend bool operator==(const Element&, const Element&) = default;
};

/// A chain of elements that is checked as one member.
struct Member {
  Number number = 0;
  std::string name;
  std::vector<Number> elements;  ///< from the start to the end
  std::optional<ElementDesign::AxisPair> length_factors;
  /// In place of that of all members; without values nothing limits this one.
  std::optional<DeflectionLimit> deflection_limit = std::nullopt;
  std::vector<Restraint> restraints = {};

  friend bool operator==(const Member&, const Member&) = default;
};

}  // namespace aluframe::model

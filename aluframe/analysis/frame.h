#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

/// Analysis of three-dimensional frames: straight prismatic elements, small displacements, linear
/// elastic material; docs/sign-convention.md has the axes and signs. Units N, mm, kg, K; any other
/// consistent system works as well, but self-weight assumes metres per second squared and N.
namespace aluframe::analysis {

using Vector3 = std::array<double, 3>;  ///< along X, Y, Z
using Vector6 = std::array<double, 6>;  ///< along X, Y, Z, then about X, Y, Z (right-handed)

/// A direction that leaves another by less than this part of its length counts as parallel to it:
/// an element's axis as vertical, a reference direction as one that says nothing. Coordinates
/// rounded to a millimetre turn an element of a metre by as much.
inline constexpr double parallel_limit = 1e-3;

/// Number that the user knows a node or an element by; messages name it.
using Number = std::uint32_t;

struct Node {
  Number number = 0;
  double x = 0.0, y = 0.0, z = 0.0;  ///< mm, Z up
};

/// What one section and its material resist with.
struct Stiffness {
  double e = 0.0;     ///< elastic modulus, N/mm²
  double g = 0.0;     ///< shear modulus, N/mm²; not used by trusses
  double area = 0.0;  ///< mm²
  double ay = 0.0;    ///< shear area for Fy, mm²; 0: rigid in shear
  double az = 0.0;    ///< shear area for Fz, mm²; 0: rigid in shear
  double it = 0.0;    ///< St-Venant torsion constant, mm⁴
  double iyy = 0.0;   ///< about y: bending by Fz and My, mm⁴
  double izz = 0.0;   ///< about z: bending by Fy and Mz, mm⁴
};

enum class ElementKind {
  beam,  ///< axial force, two bending planes with shear, St-Venant torsion
  truss  ///< axial force only; loads on its length go to its two ends
};

/// A straight element. `released` says which end forces are zero: N, Fy, Fz, Mx, My, Mz of the
/// start, then of the end, in local axes. A release of what a truss does not carry changes nothing;
/// its N cannot be released.
struct Element {
  Number number = 0;
  std::size_t start = 0, end = 0;  ///< places in Frame::nodes
  Stiffness stiffness;
  double beta = 0.0;  ///< degrees, turns y and z about x
  /// Global direction on whose side z lies, of any length; not parallel to the axis.
  std::optional<Vector3> reference = std::nullopt;
  ElementKind kind = ElementKind::beam;
  std::array<bool, 12> released{};
  double density = 0.0;    ///< kg/mm³, for self-weight
  double expansion = 0.0;  ///< thermal, 1/K
};

/// Directions in which a node is restrained; a load case may prescribe a displacement there.
struct Support {
  std::size_t node = 0;
  std::array<bool, 6> fixed{};
};

/// Springs between a node and the ground: N/mm along and N·mm/rad about the global axes; 0: none.
struct Spring {
  std::size_t node = 0;
  Vector6 stiffness{};
};

/// Everything of a structure that is the same in all load cases. Places are indices from 0.
struct Frame {
  std::vector<Node> nodes;
  std::vector<Element> elements;
  std::vector<Support> supports;
  std::vector<Spring> springs;
};

}  // namespace aluframe::analysis

#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "aluframe/members/straightness.h"
#include "aluframe/model/members.h"

namespace aluframe::members {

/// The two axes of a section that bending turns about.
enum class Axis : std::size_t { y, z };

/// What ends at a node of a segment: an element (its place in the table) and which of its ends.
struct ElementEnd {
  std::size_t element = 0;
  std::size_t end = 0;
};

/// A member segment: a member, or an element that belongs to none, as one bar. A member that the
/// file names may be bent or change its section: its length is along its elements, its stiffness
/// the mean over that length, its axes those of its first element.
struct MemberSegment {
  const model::Member* member = nullptr;  ///< null for a lone element
  std::vector<std::size_t> elements;      ///< places in the table, from start to end
  std::array<model::Number, 2> nodes{};   ///< start, end
  std::array<ElementEnd, 2> ends{};       ///< what lies there
  double length = 0.0;                    ///< mm
  bool has_one_section = true;            ///< and one material
  std::array<double, 2> stiffness{};      ///< E·I about y and z, N·mm²
};

/// All member segments of a model, members first, then lone elements, each in the order of the
/// file. The model must be consistent, as its reader leaves it, and outlive the object.
class MemberSegments {
 public:
  explicit MemberSegments(const model::Model& model);

  const model::Model& model() const { return model_; }
  const model::Connectivity& connectivity() const { return connectivity_; }
  const std::vector<MemberSegment>& all() const { return all_; }
  const analysis::Geometry& geometry(std::size_t element) const { return geometry_[element]; }
  /// Whether an end of an element is the free end of a cantilever (cantilever_ends.h).
  bool is_cantilever_end(const ElementEnd& at) const {
    return cantilever_ends_[at.element][at.end];
  }
  /// E·I of an element about its own axis, N·mm².
  double stiffness(std::size_t element, Axis axis) const {
    return stiffness_[element][static_cast<std::size_t>(axis)];
  }
  /// Whether an element carries the frame as a column does (straightness.h).
  bool stands_upright(std::size_t element) const { return upright_[element]; }

  /// The part of an element's segment that leads away from the node at one of its ends.
  struct Arm {
    const MemberSegment* segment = nullptr;
    double length = 0.0;  ///< mm, from the node to the end of the segment
  };
  Arm arm(const ElementEnd& at) const;

  /// Unit vector of an element's axis.
  Eigen::Vector3d direction(std::size_t element, Axis axis) const;

 private:
  void add(const model::Member* member, std::vector<std::size_t> elements);
  void note_elements(const std::vector<std::array<double, 2>>& inertias);

  /// Where an element lies in its segment.
  struct Place {
    std::size_t segment = 0;
    std::array<double, 2> along{};  ///< distance of its two ends from the segment's start, mm
  };

  const model::Model& model_;
  model::Connectivity connectivity_;
  std::vector<analysis::Geometry> geometry_;
  std::vector<std::array<bool, 2>> cantilever_ends_;
  std::vector<std::array<double, 2>> stiffness_;  ///< E·I about y and z by element, N·mm²
  std::vector<bool> upright_;
  std::vector<MemberSegment> all_;
  std::vector<Place> places_;
};

}  // namespace aluframe::members

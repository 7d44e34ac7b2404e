#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <set>
#include <vector>

#include "aluframe/model/force_component.h"
#include "aluframe/second_opinion/element_opinion.h"
#include "aluframe/second_opinion/place.h"

namespace aluframe::second_opinion {

/// Forces that no check of the run is for, gathered over all elements.
struct Unchecked {
  enum class Kind {
    shear,            ///< C5
    torsion,          ///< C6
    tension_bending,  ///< C1: bending beside tension without a stability check
    tiny_axial        ///< C2: an axial force below noise beside bending picks the checks
  };
  Kind kind = Kind::shear;
  std::set<std::uint32_t> elements;
  double magnitude = 0.0;  ///< largest, N or N·mm
  Place magnitude_place;
  std::optional<double> ratio;  ///< worst second opinion of it
  Place ratio_place;
};

/// Shear or torsion without a check that is larger between the positions of an element than at any
/// of them, where the run itself looks.
struct UncheckedBetween {
  model::ForceComponent component = model::torsion;
  double magnitude = 0.0;  ///< N or N·mm
  Place place;
};

/// Which places an element's forces are looked at.
enum class PlaceKind { position, between };

/// Of one element what a run gathers over all.
struct ElementUnchecked {
  std::vector<Unchecked> kinds;  ///< in the order met
  std::vector<UncheckedBetween> between;
};

/// Notes the forces of a run that no check is for, place by place and element by element.
class UncheckedForces {
 public:
  /// @param code what the checks have made of `force`
  void note(const Place& place, PlaceKind where, ElementOpinion& opinion,
            const AluDgnSectForce& force, const T_RALU_SECT& code);
  /// The element has no more places. @return what was noted of it
  ElementUnchecked finish_element();
  /// Adds kinds of an element that is finished.
  void add(const std::vector<Unchecked>& kinds);

  /// The worst ratio of torsion so far; 0 without one.
  double worst_torsion() const;
  /// Kinds that were met at finished elements.
  const std::vector<Unchecked>& kinds() const { return kinds_; }

 private:
  /// Shear along y and z and torsion of the element at hand.
  struct Largest {
    double at_positions = 0.0;
    UncheckedBetween between;
  };

  void note_component(const Place& place, PlaceKind where, model::ForceComponent component,
                      double magnitude, std::optional<double> ratio);
  void note_kind(Unchecked::Kind kind, double magnitude, const Place& place,
                 std::optional<double> ratio);

  std::vector<Unchecked> kinds_;
  std::vector<Unchecked> of_element_;  ///< at hand
  std::array<Largest, 3> largest_{};
};

}  // namespace aluframe::second_opinion

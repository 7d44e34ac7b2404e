#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "aluframe/analysis/element_loads.h"
#include "aluframe/analysis/frame.h"
#include "aluframe/forces/computed_pairs.h"
#include "aluframe/model/model.h"

namespace aluframe::forces {

/// How loads that begin, end or act at one place of an element change the forces of the sections
/// from there on. Signs are those of the forces of a section.
struct SpanChange {
  double x = 0.0;                 ///< mm from the start
  std::array<double, 6> jump{};   ///< of N, Fy, Fz, Mx, My, Mz: a force or moment at the place
  std::array<double, 3> rate{};   ///< per mm, of N, Fy, Fz: a distributed load
  std::array<double, 3> slope{};  ///< per mm², of the rate: a load that varies along the element

  bool has_jump() const { return jump != std::array<double, 6>{}; }
};

/// Appends the changes that the loads of one case make in an element, from its start to its end.
void append_changes(const analysis::ElementLoads& loads, std::vector<SpanChange>& out);

/// Appends the changes of the distributed load, linear over each quarter, with which the forces
/// pass through all values at the five positions but those of Mx.
/// @return false, with nothing appended, when no load of one sign in each quarter gives such values
bool append_changes(const model::CaseForces& forces, double length, std::vector<SpanChange>& out);

/// The loads between the ends of all elements, case by case: those of the model, or where given
/// forces do not follow from those, what the forces at the five positions show. Trusses have none:
/// their loads are on their nodes.
class SpanChanges {
 public:
  /// An element and a load case by their places.
  struct Pair {
    std::size_t element = 0, load_case = 0;
    auto operator<=>(const Pair&) const = default;
  };

  /// @param computed whose forces are those of the loads, without looking
  SpanChanges(const model::Model& model, const analysis::Frame& frame,
              const ComputedPairs& computed = {});

  /// From the start of the element to its end; empty when the case has no loads between its ends.
  std::span<const SpanChange> of(std::size_t element, std::size_t load_case) const {
    const Case& one = cases_[load_case];
    if (one.begin.empty()) return {};
    const std::size_t first = one.begin[element];
    return {one.changes.data() + first, one.begin[element + 1] - first};
  }
  /// Whether any case loads the element between its ends.
  bool any(std::size_t element) const { return loaded_[element] != 0; }
  double length_of(std::size_t element) const { return lengths_[element]; }
  /// What the element would do by itself under its temperature.
  analysis::FreeDeformation free_of(std::size_t element, std::size_t load_case) const {
    const Case& one = cases_[load_case];
    return one.free.empty() ? analysis::FreeDeformation() : one.free[element];
  }
  /// Pairs whose given forces show that something acts between the ends, but not what.
  std::span<const Pair> unknown() const { return unknown_; }
  /// Pairs whose given forces do not follow from the loads of the model: what acts between the ends
  /// is an estimate.
  std::span<const Pair> estimated() const { return estimated_; }

 private:
  /// Changes of all elements one behind the other, and where those of each begin.
  struct Case {
    std::vector<std::uint32_t> begin;  ///< empty when the case has none
    std::vector<SpanChange> changes;
    std::vector<analysis::FreeDeformation> free;  ///< by element; empty without temperatures
  };

  Case changes_of(const model::Model& model, const analysis::Frame& frame,
                  const analysis::LoadsByElement& loads, const ComputedPairs& computed,
                  std::size_t load_case);
  void correct(const model::CaseForces& forces, Pair pair, std::size_t first,
               std::vector<SpanChange>& changes);

  std::vector<double> lengths_;
  std::vector<Case> cases_;
  std::vector<std::uint8_t> loaded_;
  std::vector<Pair> unknown_, estimated_;
};

}  // namespace aluframe::forces

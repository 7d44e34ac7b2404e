#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/tz_db/ralu.h"

// What the result file has on an element beside its records.

namespace aluframe::store {

/// LargestForce::position of a force that acts at none of them.
inline constexpr int between_positions = -1;

/// The largest of the forces that no check was made for, and where it acts.
struct LargestForce {
  std::string component;   ///< "Fy", "Fz", "Mx"
  double magnitude = 0.0;  ///< N or N·mm, without a sign
  int position = 0;        ///< or `between_positions`
  std::uint32_t combination = 0;
  int min_side = 0;

  friend bool operator==(const LargestForce&, const LargestForce&) = default;
};

/// Something that the run could not check.
struct NotChecked {
  std::uint32_t element = 0;
  std::optional<std::uint32_t> combination;  ///< nothing: all of them
  std::string reason;
  std::optional<LargestForce> largest = {};  ///< of the force that the reason is about

  friend bool operator==(const NotChecked&, const NotChecked&) = default;
};

/// True of a force that is larger between two positions than at any of them.
inline bool is_between(const NotChecked& item) {
  return item.largest && item.largest->position == between_positions;
}

/// The second opinion of one element: its largest ratio when every unsafe rule of the checks is set
/// right, beside what the checks have.
struct SafeRow {
  std::uint32_t element = 0;
  std::optional<double> code;  ///< worst ratio of the checks; nothing: no check has one
  double safe = 0.0;           ///< never below `code`
  int item = 0;                ///< RALU_ITEM_TYPE of the safe ratio
  std::string rules;           ///< "C1, S6": what makes it differ; empty: nothing does
  std::uint32_t combination = 0;
  int min_side = 0;
  /// Part of the element's length from its start; nothing: the whole member together.
  std::optional<double> fraction;
  double from_start = 0.0;  ///< mm

  friend bool operator==(const SafeRow&, const SafeRow&) = default;
};

/// A force of an element that no check of the run is for: its largest, and its worst second
/// opinion. The remarks C1, C2, C5 and C6 are made of these.
struct UncheckedRow {
  /// Where a value stands: as in `SafeRow`.
  struct At {
    std::uint32_t combination = 0;
    int min_side = 0;
    std::optional<double> fraction;

    friend bool operator==(const At&, const At&) = default;
  };

  std::string kind;        ///< "C5"
  double magnitude = 0.0;  ///< N or N·mm, without a sign
  At at;
  std::optional<double> ratio;
  At ratio_at;  ///< when there is a ratio

  friend bool operator==(const UncheckedRow&, const UncheckedRow&) = default;
};

/// How often an internal inconsistency was met.
struct AssertionRow {
  std::string place;  ///< "source:line"
  std::uint64_t count = 0;

  friend bool operator==(const AssertionRow&, const AssertionRow&) = default;
};

/// Everything that a run has to say on an element beside its records.
struct ElementNotes {
  std::uint32_t element = 0;  ///< 0: the start of the run, before its first element
  /// Combination × position at which at least one demand was set against a limit.
  std::uint64_t checked_positions = 0;
  std::vector<NotChecked> not_checked = {};  ///< of this element
  std::optional<SafeRow> safe = {};          ///< nothing without a second opinion
  std::vector<UncheckedRow> unchecked = {};  ///< in the order met
  std::vector<AssertionRow> assertions = {};

  friend bool operator==(const ElementNotes&, const ElementNotes&) = default;
};

/// An element that an earlier run was through with.
struct FinishedElement {
  ElementNotes notes;
  /// Of its governing record; nothing: it has no records.
  std::optional<std::array<T_RALU_ITEM, kResultItems>> governing;
};

}  // namespace aluframe::store

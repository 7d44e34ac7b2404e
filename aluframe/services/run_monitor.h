#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "aluframe/model/model.h"
#include "aluframe/services/governing_count.h"
#include "aluframe/store/result_file.h"
#include "aluframe/texts/text.h"
#include "host/tz_db/forces.h"
#include "host/tz_db/ralu.h"

namespace aluframe::services {

/// Why shear and torsion stand without a check, as NotChecked::reason says it.
inline constexpr const char* shear_without_check = texts::translatable(
    "shear where it acts without bending, or with axial force on a member that is no beam");
inline constexpr const char* torsion_without_check = texts::translatable("torsion");

/// What a run came to, gathered from the services that it called: what was checked, what could not
/// be and why, and what went wrong.
class RunMonitor {
 public:
  /// `model` must outlive the object.
  explicit RunMonitor(const model::Model& model) : model_(model) {}

  /// The elements of the run, in the order in which they are checked.
  void set_elements(std::vector<std::uint32_t> elements);
  /// Counts an element that an earlier run was through with; it is one of the first of the run.
  void take_up(const store::FinishedElement& element);
  /// Elements that an earlier run was through with.
  std::size_t taken_up() const { return taken_up_.size(); }
  bool was_taken_up(std::uint32_t element) const { return taken_up_.contains(element); }
  /// The first element is about to be checked. What was noted until then stands in the results of
  /// the earlier run, if there is one.
  void begin_elements();
  /// Of those that this run checks `done` elements are finished; the last of them was not checked
  /// if it left no governing record. @return it, if it was not
  std::optional<std::uint32_t> set_done(std::size_t done);
  /// What follows is about this element of the run: a report takes elements without counting them.
  void start_element(std::uint32_t element);
  /// Forces that were handed out for `element`, which may be the one being checked or an end of its
  /// member.
  void note_forces(std::uint32_t element, const T_ALU_FORCE_D& forces);
  void note_missing_forces(std::uint32_t element, std::uint32_t combination,
                           std::optional<std::uint32_t> load_case);
  /// A stored record; combination 0 is the governing one.
  void note_record(std::uint32_t element, std::uint32_t combination, const T_RALU_D& record);
  void note_assertion(const std::string& source, int line);
  void note_failure(const std::string& text);
  /// What is to be stored of an element that the run is through with, or of its start (element 0):
  /// all that was noted since the element before.
  store::ElementNotes take_notes(std::uint32_t element);

  std::size_t element_count() const { return elements_.size(); }
  const std::vector<std::uint32_t>& elements() const { return elements_; }
  std::uint64_t checked_elements() const { return governing_.checked(); }
  /// Element × combination × position at which at least one demand was set against a limit.
  std::uint64_t checked_positions() const { return checked_positions_; }
  /// Of these, those of elements that an earlier run was through with.
  std::uint64_t positions_taken_up() const { return positions_taken_up_; }
  std::uint64_t elements_over_limit() const { return governing_.over_limit(); }
  const std::optional<WorstCheck>& worst() const { return governing_.worst(); }
  const std::vector<store::NotChecked>& not_checked() const { return not_checked_; }
  /// "source:line" of every internal inconsistency, and how often it was met; not of those that
  /// `not_checked` tells.
  const std::map<std::string, std::uint64_t>& assertions() const { return assertions_; }
  /// The first failure of a service.
  const std::optional<std::string>& failure() const { return failure_; }

 private:
  /// What is known of the element being checked until its governing record comes.
  struct Current {
    bool governing_written = false;
    bool had_forces = false;
    bool had_force_state = false;  ///< an axial force or a moment stood at some position
    /// Shear along y and z where no shear check ran, and torsion, which no check is for: the
    /// largest of each.
    std::array<store::LargestForce, 3> left_out{};
    std::array<bool, kCheckPositions> requested{};
    std::array<std::array<float, 6>, kCheckPositions> force{};
    std::vector<store::NotChecked> pending;
  };

  /// What was noted since the notes of the last element were taken.
  struct SinceNotes {
    std::uint64_t checked_positions = 0;
    std::size_t not_checked = 0;  ///< of `not_checked_` those before it are taken
    std::map<std::string, std::uint64_t> assertions;
  };

  bool is_current(std::uint32_t element) const;
  void note_positions(std::uint32_t element, std::uint32_t combination, const T_RALU_D& record);
  void note_governing(std::uint32_t element, const T_RALU_D& record);
  void note_left_out_forces(std::size_t position, std::uint32_t combination,
                            const T_RALU_D& record);
  void add_left_out_forces(std::uint32_t element);
  /// What a state lacks is told of its envelope.
  void add_pending(store::NotChecked item);
  /// Shear and torsion of an element on which nothing else acts.
  void note_forces_without_state(std::uint32_t element);
  std::string reason_without_result(std::uint32_t element) const;

  const model::Model& model_;
  std::vector<std::uint32_t> elements_;
  std::unordered_set<std::uint32_t> taken_up_;
  std::size_t done_ = 0;
  Current current_;
  SinceNotes since_;
  GoverningCount governing_;
  std::uint64_t checked_positions_ = 0;
  std::uint64_t positions_taken_up_ = 0;
  std::vector<store::NotChecked> not_checked_;
  std::map<std::string, std::uint64_t> assertions_;
  std::optional<std::string> failure_;
};

}  // namespace aluframe::services

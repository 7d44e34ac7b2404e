#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "aluframe/io/failure.h"
#include "aluframe/model/table.h"

namespace aluframe::io {

/// Faults of one file, gathered while the rest of it is read, so that an engineer can mend them all
/// in one go. Entities that could not be read are remembered as lost: what names one of them is no
/// fault of its own.
///
///     Faults faults;
///     const JsonDocument document(text, &faults);
///     root.part([&] { read_nodes(root, scales, model); });   // goes on behind a fault
class Faults {
 public:
  /// Thrown when there are so many faults that reading on is of no use to anybody.
  struct TooMany {};

  /// Keeps a fault, once. Throws TooMany.
  void add(Failure failure);
  /// Counts something that follows from a fault and is not told.
  void add_consequence() { ++count_; }
  /// Faults and their consequences: where it has grown, something could not be read.
  std::size_t count() const { return count_; }
  bool is_full() const { return told_.size() >= most; }
  const std::vector<Failure>& told() const { return told_; }

  // `list` stands for a list of entities: the address of the table that they are read into.

  /// The entity at a place of its list could not be read; its number, where that is known.
  void lose(const void* list, std::size_t position, std::optional<model::Number> number);
  /// An entity bears the number of another one: which it was to have is unknown.
  void lose_a_number(const void* list) { lists_[list].unnumbered = true; }
  /// No entity of the list could be read.
  void lose_all(const void* list) { lists_[list].all = true; }
  bool any_lost(const void* list) const;
  /// Whether an entity that is not in the table may be one that could not be read.
  bool may_be_lost(const void* list, model::Number number) const;
  /// Where in its list a lost entity of the number stands.
  std::optional<std::size_t> lost_position(const void* list, model::Number number) const;
  /// Where in its list an entity stands that is at `position` of the table, without the lost ones.
  std::size_t position_in_list(const void* list, std::size_t position) const;

  /// An object has a field whose name is not allowed: what it lacks may be just that.
  void misspell(std::uint32_t object) { misspelt_.insert(object); }
  bool is_misspelt(std::uint32_t object) const { return misspelt_.contains(object); }

 private:
  struct Lost {
    bool all = false;
    bool unnumbered = false;             ///< one of them has no number that can be read
    std::vector<std::size_t> positions;  ///< ascending
    std::unordered_map<model::Number, std::size_t> numbers;
  };
  const Lost* lost_of(const void* list) const;

  /// Ten times as many as are told, so that those told are the first of the file in most cases,
  /// also where its parts are read in another order.
  static constexpr std::size_t most = 200;

  std::vector<Failure> told_;
  std::size_t count_ = 0;
  std::unordered_map<const void*, Lost> lists_;
  std::unordered_set<std::uint32_t> misspelt_;
};

/// Reads something. A fault in it is kept, when there is who keeps it, and else thrown on.
/// @return whether it was read to its end
template <class Read>
bool gather(Faults* faults, Read&& read) {
  if (faults == nullptr) {
    std::forward<Read>(read)();
    return true;
  }
  try {
    std::forward<Read>(read)();
    return true;
  } catch (Failure& failure) {
    faults->add(std::move(failure));
  } catch (const FollowsFromFault&) {
    faults->add_consequence();
  }
  return false;
}

}  // namespace aluframe::io

#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace aluframe::model {

/// Number that the user gives to a node, an element, a section and so on: 1 to 2^27 − 1.
using Number = std::uint32_t;

inline constexpr Number max_number = (1U << 27) - 1;

/// Entities in the order of the model file, each found by its `number`.
///
///     Table<Node> nodes;
///     nodes.add({.number = 7});
///     const Node* node = nodes.find(7);
template <class Entity>
class Table {
 public:
  /// Appends an entity. @return false, with nothing added, when its number is taken
  bool add(Entity entity) {
    if (!index_.try_emplace(entity.number, entities_.size()).second) return false;
    entities_.push_back(std::move(entity));
    return true;
  }
  /// Puts an entity in the place of the one with its number.
  /// @return false, with nothing changed, when there is none
  bool replace(Entity entity) {
    const auto found = index_.find(entity.number);
    if (found == index_.end()) return false;
    entities_[found->second] = std::move(entity);
    return true;
  }
  /// The entity of this number, or null.
  const Entity* find(Number number) const {
    if (stands_in_line(number)) return &entities_[place_in_line(number)];
    const auto found = index_.find(number);
    return found == index_.end() ? nullptr : &entities_[found->second];
  }
  /// Place of an entity in the order of the file. The number must be in the table.
  std::size_t position(Number number) const {
    return stands_in_line(number) ? place_in_line(number) : index_.at(number);
  }

  std::size_t size() const { return entities_.size(); }
  bool empty() const { return entities_.empty(); }
  const Entity& operator[](std::size_t position) const { return entities_[position]; }
  auto begin() const { return entities_.begin(); }
  auto end() const { return entities_.end(); }

 private:
  /// Where a number stands when the numbers of the table count up by one, as they mostly do.
  /// Looking there first spares a run most of its searches.
  std::size_t place_in_line(Number number) const { return number - entities_.front().number; }
  bool stands_in_line(Number number) const {
    if (entities_.empty() || number < entities_.front().number) return false;
    const std::size_t place = place_in_line(number);
    return place < entities_.size() && entities_[place].number == number;
  }

  std::vector<Entity> entities_;
  std::unordered_map<Number, std::size_t> index_;
};

}  // namespace aluframe::model

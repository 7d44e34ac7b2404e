#include "aluframe/io/faults.h"

#include <algorithm>

namespace aluframe::io {

void Faults::add(Failure failure) {
  ++count_;
  const bool is_known = std::ranges::any_of(told_, [&](const Failure& known) {
    return known.place == failure.place && known.text == failure.text;
  });
  if (is_known) return;
  told_.push_back(std::move(failure));
  if (is_full()) throw TooMany{};
}

const Faults::Lost* Faults::lost_of(const void* list) const {
  const auto found = lists_.find(list);
  return found == lists_.end() ? nullptr : &found->second;
}

void Faults::lose(const void* list, std::size_t position, std::optional<model::Number> number) {
  Lost& lost = lists_[list];
  lost.positions.push_back(position);
  if (number) {
    lost.numbers.try_emplace(*number, position);
  } else {
    lost.unnumbered = true;
  }
}

bool Faults::any_lost(const void* list) const {
  return lost_of(list) != nullptr;
}

bool Faults::may_be_lost(const void* list, model::Number number) const {
  const Lost* lost = lost_of(list);
  return lost != nullptr && (lost->all || lost->unnumbered || lost->numbers.contains(number));
}

std::optional<std::size_t> Faults::lost_position(const void* list, model::Number number) const {
  const Lost* lost = lost_of(list);
  if (lost == nullptr) return std::nullopt;
  const auto found = lost->numbers.find(number);
  return found == lost->numbers.end() ? std::nullopt : std::optional(found->second);
}

std::size_t Faults::position_in_list(const void* list, std::size_t position) const {
  const Lost* lost = lost_of(list);
  if (lost == nullptr) return position;
  for (const std::size_t before : lost->positions) {
    if (before > position) break;
    ++position;
  }
  return position;
}

}  // namespace aluframe::io

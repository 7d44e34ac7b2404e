#include "aluframe/run/opinion_notes.h"

#include <algorithm>
#include <iterator>

#include "aluframe/run/second_opinion.h"

namespace aluframe::run {

void OpinionNotes::checked(std::uint32_t element, std::uint32_t combination, int min_side,
                           const T_RALU_D& record) {
  opinion_.checked(element, combination, min_side, record);
}

void OpinionNotes::add_notes(store::ElementNotes& notes) {
  const second_opinion::ElementFound& found = opinion_.last();
  if (found.safe) {
    notes.safe = safe_row(*found.safe);
    safe_rows_.push_back(*notes.safe);
  }
  for (const second_opinion::UncheckedBetween& force : found.unchecked.between) {
    notes.not_checked.push_back(not_checked_between(force));
    between_.push_back(notes.not_checked.back());
  }
  for (const second_opinion::Unchecked& item : found.unchecked.kinds) {
    notes.unchecked.push_back(unchecked_row(item));
  }
}

void OpinionNotes::take_up(const store::ElementNotes& notes) {
  if (notes.safe) safe_rows_.push_back(*notes.safe);
  std::ranges::copy_if(notes.not_checked, std::back_inserter(between_), store::is_between);
  std::vector<second_opinion::Unchecked> kinds;
  kinds.reserve(notes.unchecked.size());
  for (const store::UncheckedRow& row : notes.unchecked) {
    kinds.push_back(unchecked_of(notes.element, row));
  }
  opinion_.take_up(kinds);
}

std::vector<store::RemarkRow> OpinionNotes::remarks() const {
  return unchecked_remarks(opinion_.result(), model_);
}

}  // namespace aluframe::run

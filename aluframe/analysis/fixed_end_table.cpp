#include "aluframe/analysis/fixed_end_table.h"

#include "aluframe/analysis/releases.h"

namespace aluframe::analysis {

namespace {

/// Per element, where its cases begin, and the end.
std::vector<std::size_t> begins(std::size_t elements, std::span<const LoadsByElement> loads) {
  std::vector<std::size_t> begin(elements + 1, 0);
  for (const LoadsByElement& of_case : loads) {
    for (std::size_t i = 0; i < elements; ++i) begin[i + 1] += of_case.is_loaded(i) ? 1 : 0;
  }
  for (std::size_t i = 0; i < elements; ++i) begin[i + 1] += begin[i];
  return begin;
}

std::optional<Releases> releases_of(const Element& element, double length) {
  if (element.released == std::array<bool, 12>{}) return std::nullopt;
  Matrix12 k = elastic_stiffness(element, length);
  return Releases::condense(element.released, k);
}

/// Fills the entries of one element.
void fill_entries(const Element& element, std::size_t place, std::span<const LoadsByElement> loads,
                  std::span<FixedEndEntry> entries) {
  if (entries.empty()) return;
  const auto releases = releases_of(element, loads.front().of(place).length);
  auto next = entries.begin();
  for (std::size_t c = 0; c < loads.size(); ++c) {
    if (!loads[c].is_loaded(place)) continue;
    const Vector12 ends = fixed_end_forces(element, loads[c].of(place));
    *next = {c, EndForceNorms::of(ends), ends};
    if (releases) releases->condense_forces(next->condensed);
    ++next;
  }
}

}  // namespace

FixedEndTable::FixedEndTable(const Frame& frame, std::span<const LoadsByElement> loads)
    : begin_(begins(frame.elements.size(), loads)), all_(begin_.back()) {
  for (std::size_t i = 0; i < frame.elements.size(); ++i) {
    const auto entries = std::span(all_).subspan(begin_[i], begin_[i + 1] - begin_[i]);
    fill_entries(frame.elements[i], i, loads, entries);
  }
}

}  // namespace aluframe::analysis

#include "aluframe/run/shown_results.h"

#include <algorithm>
#include <set>
#include <stdexcept>
#include <utility>

namespace aluframe::run {

namespace {

namespace fs = std::filesystem;

/// The numbers under which checks of a combination of the model are stored.
std::set<std::uint32_t> stored_numbers_of(const store::RunInfo& info, model::Number combination) {
  std::set<std::uint32_t> numbers{combination};
  for (const store::CombinationRow& row : info.combinations) {
    if (row.state_of == combination) numbers.insert(row.number);
  }
  for (const store::EnvelopeState& row : info.envelope_states) {
    if (row.envelope == combination) numbers.insert(row.combination);
  }
  return numbers;
}

/// The largest ratio of the checks of some combinations; nothing where none was judged.
std::optional<double> largest_ratio(const std::vector<store::StoredRecord>& records,
                                    const std::set<std::uint32_t>& combinations) {
  std::optional<double> largest;
  for (const store::StoredRecord& stored : records) {
    if (!combinations.contains(stored.combination)) continue;
    for (const T_RALU_ITEM& check : stored.record.aComp) {
      if (!services::was_judged(check.dDemand, check.dCapacity)) continue;
      const double ratio = check.Ratio();
      if (!largest || !(ratio <= *largest)) largest = ratio;
    }
  }
  return largest;
}

ShownResults read(store::ResultReader& reader, const InputOptions& options, const fs::path& file,
                  const std::string& digest) {
  ShownResults out;
  out.file = file;
  out.info = reader.info();
  out.coverage = coverage_of(reader);
  for (ElementResult& element : by_element(reader.governing())) {
    const model::Number number = element.element;
    out.elements.emplace(number, std::move(element));
  }
  out.safe = safe_by_element(reader);
  std::vector<model::Number> taken_up = reader.elements();
  for (const store::NotChecked& item : reader.not_checked()) taken_up.push_back(item.element);
  std::ranges::sort(taken_up);
  out.told = told_by(reader, taken_up);
  out.cautions = cautions(options, file, reader, digest);
  return out;
}

}  // namespace

const ElementResult* ShownResults::find(model::Number element) const {
  const auto found = elements.find(element);
  return found == elements.end() ? nullptr : &found->second;
}

Result<std::optional<ShownResults>> shown_results(const InputOptions& options,
                                                  const std::string& digest) {
  const fs::path file = result_path_of(options.model);
  std::error_code ignored;
  if (!fs::exists(file, ignored)) return std::nullopt;
  try {
    return read(*store::ResultReader::open(file), options, file, digest);
  } catch (const std::runtime_error& error) {
    return Problem{error.what()};
  }
}

picture::Ratios ratios_in_combination(const ShownResults& results, model::Number combination) {
  const auto numbers = stored_numbers_of(results.info, combination);
  const auto reader = store::ResultReader::open(results.file);
  picture::Ratios ratios;
  for (const auto& [element, governing] : results.elements) {
    if (const auto ratio = largest_ratio(reader->read_all(element), numbers)) {
      ratios[element] = *ratio;
    }
  }
  return ratios;
}

}  // namespace aluframe::run

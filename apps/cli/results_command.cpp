#include "apps/cli/results_command.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <variant>

#include "apps/cli/envelope_remark.h"
#include "apps/cli/exit_status.h"
#include "apps/cli/output_file.h"
#include "apps/cli/result_tables.h"
#include "apps/cli/run_input.h"
#include "apps/cli/terminal.h"

namespace aluframe::cli {

namespace {

namespace fs = std::filesystem;

/// Sort keys that name a check item.
constexpr std::pair<std::string_view, int> item_sort_keys[] = {
    {"strength", RALU_STRENGTH},
    {"shear-y", RALU_SHEAR_Y},
    {"shear-z", RALU_SHEAR_Z},
    {"stability", RALU_STABILITY},
    {"combined-stability", RALU_COMBINED_STABILITY},
    {"slenderness-y", RALU_SLENDERNESS_Y},
    {"slenderness-z", RALU_SLENDERNESS_Z},
};

/// Input that cannot be used; the text is for the user.
struct InputError {
  std::string text;
};

fs::path result_file_of(const fs::path& input) {
  return input.extension() == ".aluresult" ? input : result_path_of(input);
}

ResultView view_of(const std::optional<std::string>& units) {
  if (!units) return {};
  const auto parsed = parse_unit_pair(*units);
  if (const auto* text = std::get_if<std::string>(&parsed)) throw InputError{"--units: " + *text};
  const auto& [force, length] = std::get<UnitPair>(parsed);
  const double millimetres = model::millimetres_per(length);
  return {millimetres * millimetres / model::newtons_per(force),
          fmt::format("{}/{}²", model::name_of(force), model::name_of(length))};
}

/// True when the first element goes before the second by the check item.
bool goes_before(const ElementResult& a, const ElementResult& b, int item) {
  const store::GoverningRow* first = a.find(item);
  const store::GoverningRow* second = b.find(item);
  if (first == nullptr || second == nullptr) return first != nullptr && second == nullptr;
  return first->governing.ComPair(second->governing) != 0;
}

void sort_elements(std::vector<ElementResult>& elements, const std::string& key) {
  if (key == "element") {
    std::ranges::stable_sort(elements, {}, &ElementResult::element);
  } else if (key == "ratio") {
    std::ranges::stable_sort(elements, [](const ElementResult& a, const ElementResult& b) {
      return a.worst().governing.ComPair(b.worst().governing) != 0;
    });
  } else {
    const auto* const item =
        std::ranges::find(item_sort_keys, key, &std::pair<std::string_view, int>::first);
    std::ranges::stable_sort(elements, [&](const ElementResult& a, const ElementResult& b) {
      return goes_before(a, b, item->second);
    });
  }
}

std::vector<ElementResult> chosen_elements(store::ResultReader& reader,
                                           const ResultsOptions& options) {
  std::vector<ElementResult> elements = by_element(reader.governing());
  if (!options.common.elements.empty()) {
    auto selected = select(options.common.elements, reader.elements(), "result of an element");
    if (const auto* text = std::get_if<std::string>(&selected)) {
      throw InputError{"--elements: " + *text};
    }
    std::erase_if(elements, [&](const ElementResult& element) {
      return !options.common.elements.contains(element.element);
    });
  }
  if (options.over) {
    std::erase_if(elements, [&](const ElementResult& element) {
      const double ratio = element.worst().governing.Ratio();
      return std::isfinite(ratio) && ratio <= *options.over;
    });
  }
  sort_elements(elements, options.sort);
  if (options.top && elements.size() > *options.top) elements.resize(*options.top);
  return elements;
}

std::string list_text(store::ResultReader& reader, const ResultsOptions& options,
                      const ResultView& view) {
  const std::vector<ElementResult> elements = chosen_elements(reader, options);
  if (options.common.format != Format::table) {
    return render(governing_table(elements, reader.info(), view), options.common.format, false);
  }
  std::string out =
      to_text(overview_table(elements, reader.info()), !options.output && stdout_wants_colour());
  const std::vector<store::NotChecked> not_checked = reader.not_checked();
  if (!not_checked.empty()) out += "\n" + not_checked_text(not_checked);
  return out;
}

/// The combinations of the run that the user names by their own numbers or by their envelope's.
std::set<model::Number> chosen_combinations(const store::RunInfo& info,
                                            const NumberRanges& ranges) {
  std::vector<model::Number> existing;
  for (const store::CombinationRow& row : info.combinations) existing.push_back(row.number);
  for (const store::EnvelopeState& row : info.envelope_states) existing.push_back(row.envelope);
  const auto selected = select(ranges, existing, "result of a combination");
  if (const auto* text = std::get_if<std::string>(&selected)) {
    throw InputError{"--combinations: " + *text};
  }
  const auto& numbers = std::get<std::vector<model::Number>>(selected);
  std::set<model::Number> chosen(numbers.begin(), numbers.end());
  for (const store::EnvelopeState& row : info.envelope_states) {
    if (ranges.contains(row.envelope)) chosen.insert(row.combination);
  }
  return chosen;
}

std::vector<store::StoredRecord> chosen_records(store::ResultReader& reader, model::Number element,
                                                const ResultsOptions& options) {
  std::vector<store::StoredRecord> records = reader.read_all(element);
  if (records.empty()) {
    throw InputError{fmt::format("--element: there is no result of element {}", element)};
  }
  if (!options.common.combinations.empty()) {
    const std::set<model::Number> chosen =
        chosen_combinations(reader.info(), options.common.combinations);
    std::erase_if(records, [&](const store::StoredRecord& record) {
      return record.combination != 0 && !chosen.contains(record.combination);
    });
  }
  return records;
}

std::string governing_text(store::ResultReader& reader, model::Number element,
                           const ResultView& view, bool colour) {
  std::vector<store::GoverningRow> rows;
  for (const store::GoverningRow& row : reader.governing()) {
    if (row.element == element) rows.push_back(row);
  }
  return fmt::format("Element {}: governing checks\n", element) +
         to_text(governing_table(by_element(rows), reader.info(), view), colour) + "\n";
}

std::string element_text(store::ResultReader& reader, model::Number element,
                         const ResultsOptions& options, const ResultView& view) {
  const std::vector<store::StoredRecord> records = chosen_records(reader, element, options);
  if (options.common.format != Format::table) {
    return render(all_checks_table(element, records, reader.info(), view), options.common.format,
                  false);
  }
  const bool colour = !options.output && stdout_wants_colour();
  std::string out;
  // The governing checks are those of all combinations.
  if (options.common.combinations.empty()) out = governing_text(reader, element, view, colour);
  out += fmt::format("Element {}: ratios of every combination and position\n", element);
  out += to_text(position_ratios_table(records, reader.info()), colour);
  std::vector<store::NotChecked> not_checked = reader.not_checked();
  std::erase_if(not_checked, [element](const auto& item) { return item.element != element; });
  if (!not_checked.empty()) out += "\n" + not_checked_text(not_checked);
  return out;
}

std::vector<model::Number> two_sided_combinations(const store::RunInfo& info) {
  std::vector<model::Number> numbers;
  for (const store::CombinationRow& row : info.combinations) {
    if (row.two_sides) numbers.push_back(row.number);
  }
  return numbers;
}

/// The table must not take the place of what it was made from.
void refuse_own_input(const ResultsOptions& options, const fs::path& file) {
  if (!options.output) return;
  std::error_code error;
  for (const fs::path& input : {options.input, file}) {
    if (fs::equivalent(*options.output, input, error)) {
      throw InputError{"--output: " + options.output->string() + " is the input"};
    }
  }
}

}  // namespace

std::string sort_names() {
  std::string names = "element, ratio";
  for (const auto& [name, item] : item_sort_keys) names += ", " + std::string(name);
  return names;
}

bool is_sort_name(const std::string& name) {
  return name == "element" || name == "ratio" ||
         std::ranges::any_of(item_sort_keys, [&](const auto& key) { return key.first == name; });
}

int run_results_command(const ResultsOptions& options) {
  const fs::path file = result_file_of(options.input);
  std::unique_ptr<store::ResultReader> reader;
  try {
    const ResultView view = view_of(options.units);
    refuse_own_input(options, file);
    reader = store::ResultReader::open(file);
    warn_about_results(options.input, file, reader->state());
    remark_on_extremes(two_sided_combinations(reader->info()));
    return write_output(options.element ? element_text(*reader, *options.element, options, view)
                                        : list_text(*reader, options, view),
                        options.output);
  } catch (const InputError& error) {
    print_message(file.string() + ": " + error.text);
    return exit_input_error;
  } catch (const std::runtime_error& error) {
    print_message(error.what());
    return reader == nullptr ? exit_input_error : exit_failure;
  }
}

}  // namespace aluframe::cli

#include <fmt/format.h>

#include <algorithm>

#include "aluframe/model/number_ranges.h"
#include "aluframe/store/result_file.h"

namespace aluframe::store {

namespace {

/// Something that a run goes by, in the words of the two runs.
struct Compared {
  std::string what;
  std::string found;
  std::string wanted;
};

std::string or_unknown(const std::string& text) {
  return text.empty() ? "unknown" : text;
}

std::string or_none(const std::string& text) {
  return text.empty() ? "none" : text;
}

std::string program_of(const RunInfo& info) {
  return info.build.empty() ? info.program : fmt::format("{} (build {})", info.program, info.build);
}

std::string numbers_of(const std::vector<CombinationRow>& combinations) {
  std::vector<std::uint32_t> numbers;
  for (const CombinationRow& row : combinations) numbers.push_back(row.number);
  std::ranges::sort(numbers);
  return or_none(model::join_as_ranges(numbers));
}

std::string text_of(const CombinationRow& row) {
  return fmt::format("\"{}\"{}{}{}", row.name, row.two_sides ? ", two sides" : "",
                     row.seismic ? ", seismic" : "",
                     row.state_of ? fmt::format(", state of {}", *row.state_of) : "");
}

std::string setting_of(const RunSetup& setup, const std::string& key) {
  const auto found = std::ranges::find(setup.settings, key, &SettingRow::key);
  return found == setup.settings.end() ? "none"
                                       : fmt::format("{} ({})", found->value, found->origin);
}

void add_settings(const RunSetup& stored, const RunSetup& wanted, std::vector<Compared>& out) {
  for (const RunSetup* of : {&stored, &wanted}) {
    for (const SettingRow& row : of->settings) {
      std::string what = row.key;
      std::ranges::replace(what, '_', ' ');
      out.push_back({what, setting_of(stored, row.key), setting_of(wanted, row.key)});
    }
  }
}

void add_combinations(const RunInfo& stored, const RunInfo& wanted, std::vector<Compared>& out) {
  out.push_back({"combinations", numbers_of(stored.combinations), numbers_of(wanted.combinations)});
  const std::size_t count = std::min(stored.combinations.size(), wanted.combinations.size());
  for (std::size_t i = 0; i < count; ++i) {
    out.push_back({fmt::format("combination {}", wanted.combinations[i].number),
                   text_of(stored.combinations[i]), text_of(wanted.combinations[i])});
  }
}

std::vector<Compared> compared(const RunInfo& stored, const RunInfo& wanted) {
  const auto asked = [](const RunInfo& info) {
    return info.setup.second_order_asked ? "asked for" : "not asked for";
  };
  std::vector<Compared> out{
      {"program", program_of(stored), program_of(wanted)},
      {"code", stored.code, wanted.code},
      {"title of the model", stored.model_title, wanted.model_title},
      {"model file", or_unknown(stored.setup.model_file), or_unknown(wanted.setup.model_file)},
      {"file of forces", or_none(stored.setup.forces_file), or_none(wanted.setup.forces_file)},
      {"elements", or_none(stored.elements), or_none(wanted.elements)}};
  add_combinations(stored, wanted, out);
  out.push_back({"second order", asked(stored), asked(wanted)});
  add_settings(stored.setup, wanted.setup, out);
  out.push_back({"state of the model or its given forces", or_unknown(stored.model_digest),
                 or_unknown(wanted.model_digest)});
  out.push_back({"state of the forces", or_unknown(stored.setup.forces_digest),
                 or_unknown(wanted.setup.forces_digest)});
  return out;
}

}  // namespace

std::optional<std::string> anything_different(const RunInfo& stored, const RunInfo& wanted) {
  for (const auto& [what, found, now] : compared(stored, wanted)) {
    if (found != now) return fmt::format("{}: found {}, wanted {}", what, found, now);
  }
  return std::nullopt;
}

}  // namespace aluframe::store

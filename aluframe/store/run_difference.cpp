#include <fmt/format.h>

#include <algorithm>

#include "aluframe/model/number_ranges.h"
#include "aluframe/store/result_file.h"
#include "aluframe/texts/sentence.h"
#include "aluframe/texts/text.h"

namespace aluframe::store {

namespace {

/// Something that a run goes by, in the words of the two runs.
struct Compared {
  std::string what;
  std::string found;
  std::string wanted;
};

std::string or_unknown(const std::string& text) {
  return text.empty() ? texts::translated("unknown") : text;
}

std::string or_none(const std::string& text) {
  return text.empty() ? texts::translated("none") : text;
}

std::string program_of(const RunInfo& info) {
  return info.build.empty() ? info.program
                            : texts::translated("{} (build {})", info.program, info.build);
}

std::string numbers_of(const std::vector<CombinationRow>& combinations) {
  std::vector<std::uint32_t> numbers;
  for (const CombinationRow& row : combinations) numbers.push_back(row.number);
  std::ranges::sort(numbers);
  return or_none(model::join_as_ranges(numbers));
}

std::string text_of(const CombinationRow& row) {
  return fmt::format("\"{}\"{}{}{}", row.name,
                     row.two_sides ? texts::translated(", two sides") : "",
                     row.seismic ? texts::translated(", seismic") : "",
                     row.state_of ? texts::translated(", state of {}", *row.state_of) : "");
}

std::string setting_of(const RunSetup& setup, const std::string& key) {
  const auto found = std::ranges::find(setup.settings, key, &SettingRow::key);
  return found == setup.settings.end()
             ? texts::translated("none")
             : fmt::format("{} ({})", texts::sentence_in_words(found->value),
                           texts::sentence_in_words(found->origin));
}

void add_settings(const RunSetup& stored, const RunSetup& wanted, std::vector<Compared>& out) {
  for (const RunSetup* of : {&stored, &wanted}) {
    for (const SettingRow& row : of->settings) {
      std::string what = row.key;
      std::ranges::replace(what, '_', ' ');
      out.push_back({std::string(texts::translation_of(what)), setting_of(stored, row.key),
                     setting_of(wanted, row.key)});
    }
  }
}

void add_combinations(const RunInfo& stored, const RunInfo& wanted, std::vector<Compared>& out) {
  out.push_back({texts::translated("combinations"), numbers_of(stored.combinations),
                 numbers_of(wanted.combinations)});
  const std::size_t count = std::min(stored.combinations.size(), wanted.combinations.size());
  for (std::size_t i = 0; i < count; ++i) {
    out.push_back({texts::translated("combination {}", wanted.combinations[i].number),
                   text_of(stored.combinations[i]), text_of(wanted.combinations[i])});
  }
}

std::vector<Compared> compared(const RunInfo& stored, const RunInfo& wanted) {
  const auto asked = [](const RunInfo& info) {
    return info.setup.second_order_asked ? texts::translated("asked for")
                                         : texts::translated("not asked for");
  };
  std::vector<Compared> out{
      {texts::translated("program"), program_of(stored), program_of(wanted)},
      {texts::translated("code"), stored.code, wanted.code},
      {texts::translated("title of the model"), stored.model_title, wanted.model_title},
      {texts::translated("model file"), or_unknown(stored.setup.model_file),
       or_unknown(wanted.setup.model_file)},
      {texts::translated("file of forces"), or_none(stored.setup.forces_file),
       or_none(wanted.setup.forces_file)},
      {texts::translated("elements"), or_none(stored.elements), or_none(wanted.elements)}};
  add_combinations(stored, wanted, out);
  out.push_back({texts::translated("second order"), asked(stored), asked(wanted)});
  add_settings(stored.setup, wanted.setup, out);
  out.push_back({texts::translated("state of the model or its given forces"),
                 or_unknown(stored.model_digest), or_unknown(wanted.model_digest)});
  out.push_back({texts::translated("state of the forces"), or_unknown(stored.setup.forces_digest),
                 or_unknown(wanted.setup.forces_digest)});
  return out;
}

}  // namespace

std::optional<std::string> anything_different(const RunInfo& stored, const RunInfo& wanted) {
  for (const auto& [what, found, now] : compared(stored, wanted)) {
    if (found != now) return texts::translated("{}: found {}, wanted {}", what, found, now);
  }
  return std::nullopt;
}

}  // namespace aluframe::store

#include "apps/cli/profile_list.h"

#include <fmt/format.h>

#include <span>

#include "aluframe/section/section_properties.h"
#include "aluframe/texts/text.h"
#include "apps/cli/section_tables.h"

namespace aluframe::cli {

namespace {

using catalogue::Profile;
using model::Section;

/// The list as a table; its sources are told below it, once a series.
tables::OutputTable list_table(std::span<const Profile* const> profiles, tables::Format format) {
  tables::OutputTable table;
  table.columns = {{"name", texts::translatable("name")},
                   {"shape", texts::translatable("shape")},
                   {"dimensions", texts::translatable("dimensions, mm")},
                   {"area", "A, mm2", 1},
                   {"mass", "kg/m", 3}};
  if (format != tables::Format::table) table.columns.push_back({"source", "source"});
  for (const Profile* profile : profiles) {
    const Section section = section_of(*profile);
    const double area = section::properties_of(section).area;
    auto& row = table.rows.emplace_back();
    row = {profile->name, std::string(model::name_of(profile->shape)), dimensions_text(section),
           area, area * mass_per_area};
    if (format != tables::Format::table) row.emplace_back(profile->source);
  }
  return table;
}

std::string sources_text(std::span<const Profile* const> profiles) {
  std::string text;
  std::string told;
  for (const Profile* profile : profiles) {
    if (profile->source == told) continue;
    told = profile->source;
    text += fmt::format("  {}: {}\n", profile->series, texts::translation_of(told));
  }
  return text;
}

}  // namespace

std::string profile_list(const std::vector<Profile>& own, std::optional<model::Shape> shape,
                         tables::Format format) {
  std::vector<const Profile*> chosen;
  for (const std::span<const Profile> part :
       {std::span<const Profile>(own), catalogue::profiles()}) {
    for (const Profile& profile : part) {
      if (!shape || profile.shape == *shape) chosen.push_back(&profile);
    }
  }
  std::string table = tables::render(list_table(chosen, format), format, false);
  if (format != tables::Format::table) return table;
  return texts::translated("{}\n{} profiles; mass with a density of {:g} kg/m3\n{}", table,
                           chosen.size(), aluminium_density, sources_text(chosen));
}

}  // namespace aluframe::cli
